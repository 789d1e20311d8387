// What the sample firm is called and calls things: regions, trades, people, goods, income and expense
// classes.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace qor {

struct SampleRegion {
    std::string_view code;
    std::string_view name;
    std::span<const std::string_view> cities;
    bool byCity;  // its customers stand in a category of their city
};

/// A row of a hierarchy of codes. A code's categories stand ahead of it.
struct SampleClass {
    std::string_view code;
    std::string_view name;
    std::int32_t typicalYuan = 0;  // 0: a category
    bool disabled = false;
};

struct SampleGoods {
    std::string_view code;
    std::string_view name;
    std::string_view model = "";
    std::string_view unit = "";
    std::string_view showUnit = "";
    std::int32_t showRate = 1;
    std::int32_t priceFen = 0;  // of the base unit; 0: a category
};

struct SampleUser {
    std::int32_t number;
    std::string_view name;
    bool allRights;
};

extern const std::span<const SampleRegion> kSampleRegions;
extern const std::span<const SampleClass> kSampleSupplierGroups;
extern const std::span<const SampleClass> kSampleDepartments;
extern const std::span<const SampleClass> kSampleIncomeClasses;
extern const std::span<const SampleClass> kSampleExpenseClasses;
extern const std::span<const SampleClass> kSampleAccounts;
extern const std::span<const SampleGoods> kSampleGoods;
extern const std::span<const SampleUser> kSampleUsers;

extern const std::span<const std::string_view> kSampleWords;    // of a company's name
extern const std::span<const std::string_view> kSampleTrades;   // what a customer does
extern const std::span<const std::string_view> kSampleEndings;  // of a company's name
extern const std::span<const std::string_view> kSampleSurnames;
extern const std::span<const std::string_view> kSampleGivenNames;
extern const std::span<const std::string_view> kSampleIncomeNotes;
extern const std::span<const std::string_view> kSampleExpenseNotes;
extern const std::span<const std::string_view>
    kSampleOddNames;  // parties with quotes and wild cards in their names

}  // namespace qor
