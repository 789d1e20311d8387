// The base data of the sample firm: who it deals with, what it trades, where its money lies.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "embedded/dice.h"
#include "embedded/sqlite.h"

namespace qor {

/// The firm as the bills need it. Ids are t_Item.FItemID; only what bills may carry is here, no categories.
struct SampleFirm {
    struct Party {
        std::int64_t id;
        std::size_t employee;  // who looks after it
        std::int32_t creditDays;
        std::size_t match = kNoMatch;   // the supplier that a customer is at once, and the other way round
        std::vector<std::size_t> open;  // its open bills, oldest first; kept by the bills
    };
    struct Employee {
        std::int64_t id;
        std::int64_t department;
    };
    struct Class {
        std::int64_t id;
        std::string name;
        std::int64_t typicalFen;
        bool disabled;
    };
    struct Goods {
        std::int64_t id;
        std::int64_t unit;
        std::int64_t showUnit;
        std::int32_t showRate;
        std::int64_t priceFen;
        bool weighed;  // sold by tenths of its unit
    };
    static constexpr std::size_t kNoMatch = static_cast<std::size_t>(-1);

    std::vector<Party> customers;
    std::vector<Party> suppliers;
    std::vector<Employee> employees;
    std::vector<Class> incomeClasses;
    std::vector<Class> expenseClasses;
    std::vector<Goods> goods;
    std::vector<std::int64_t> accounts;
    std::vector<std::int32_t> users;
};

/// Writes the base data of a firm of that many bills.
SampleFirm MakeSampleFirm(Database& database, Dice& dice, std::int64_t bills);

}  // namespace qor
