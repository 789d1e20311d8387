// The files of an import and their columns: one row a column. What they mean stands in docs/account-set.md.
#pragma once

#include <span>
#include <string_view>

#include "embedded/bill_kinds.h"

namespace qor {

struct CsvColumn {
    std::string_view name;
    bool required = false;  // every row has it
};

struct CsvFile {
    std::string_view name;
    std::span<const CsvColumn> columns;
};

namespace import_columns {

inline constexpr CsvColumn kFirm[] = {
    {"name", true}, {"start_month"}, {"current_month"}, {"long_codes"}, {"show_disabled"}, {"data_rights"},
};
inline constexpr CsvColumn kUsers[] = {{"number", true}, {"name", true}, {"all_rights"}};
inline constexpr CsvColumn kItems[] = {
    {"code", true}, {"name", true}, {"category"}, {"is_category"}, {"disabled"},
};
inline constexpr CsvColumn kEmployees[] = {
    {"code", true}, {"name", true}, {"category"}, {"is_category"}, {"disabled"}, {"department"},
};
inline constexpr CsvColumn kAccounts[] = {
    {"code", true}, {"name", true}, {"category"},        {"is_category"},
    {"disabled"},   {"bank"},       {"opening_balance"},
};
inline constexpr CsvColumn kGoods[] = {
    {"code", true}, {"name", true}, {"category"},  {"is_category"}, {"disabled"},
    {"model"},      {"unit"},       {"show_unit"}, {"show_rate"},   {"price"},
};
inline constexpr CsvColumn kSuppliers[] = {
    {"code", true}, {"name", true},   {"category"},    {"is_category"}, {"disabled"},
    {"users"},      {"credit_limit"}, {"credit_days"}, {"contact"},     {"phone"},
};
inline constexpr CsvColumn kCustomers[] = {
    {"code", true},   {"name", true},  {"category"}, {"is_category"}, {"disabled"},          {"users"},
    {"credit_limit"}, {"credit_days"}, {"contact"},  {"phone"},       {"matching_supplier"},
};
inline constexpr CsvColumn kBills[] = {
    {"kind", true},   {"number", true}, {"date", true}, {"state"},    {"customer"},
    {"supplier"},     {"to_party"},     {"department"}, {"employee"}, {"account"},
    {"to_account"},   {"amount", true}, {"settled"},    {"discount"}, {"due_date"},
    {"related_bill"}, {"biller"},       {"invoice"},    {"voucher"},  {"explanation"},
};
inline constexpr CsvColumn kClassLines[] = {
    {"bill", true}, {"class", true}, {"amount", true}, {"settled"}, {"note"},
};
inline constexpr CsvColumn kGoodsLines[] = {
    {"bill", true}, {"goods", true}, {"quantity", true}, {"price", true}, {"amount", true}, {"unit"},
    {"unit_rate"},  {"aux"},         {"batch"},          {"note"},
};
inline constexpr CsvColumn kBillFields[] = {{"bill", true}, {"field", true}, {"text", true}};
inline constexpr CsvColumn kSettlements[] = {
    {"bill", true}, {"target", true}, {"source"}, {"date"}, {"amount", true}, {"discount"},
};

}  // namespace import_columns

/// A file of base data, with the class that its rows belong to.
struct ItemFile {
    CsvFile file;
    std::int32_t itemClass;
};

inline constexpr CsvFile kFirmFile{"firm.csv", import_columns::kFirm};
inline constexpr CsvFile kUsersFile{"users.csv", import_columns::kUsers};

/// A file refers only to those ahead of it.
inline constexpr ItemFile kItemFiles[] = {
    {{"departments.csv", import_columns::kItems}, item_class::kDepartment},
    {{"employees.csv", import_columns::kEmployees}, item_class::kEmployee},
    {{"income_classes.csv", import_columns::kItems}, item_class::kIncome},
    {{"expense_classes.csv", import_columns::kItems}, item_class::kExpense},
    {{"accounts.csv", import_columns::kAccounts}, item_class::kAccount},
    {{"units.csv", import_columns::kItems}, item_class::kUnit},
    {{"goods.csv", import_columns::kGoods}, item_class::kGoods},
    {{"suppliers.csv", import_columns::kSuppliers}, item_class::kSupplier},
    {{"customers.csv", import_columns::kCustomers}, item_class::kCustomer},
    {{"currencies.csv", import_columns::kItems}, item_class::kCurrency},
    {{"settlement_types.csv", import_columns::kItems}, item_class::kSettlementType},
};

inline constexpr CsvFile kBillsFile{"bills.csv", import_columns::kBills};
inline constexpr CsvFile kClassLinesFile{"class_lines.csv", import_columns::kClassLines};
inline constexpr CsvFile kGoodsLinesFile{"goods_lines.csv", import_columns::kGoodsLines};
inline constexpr CsvFile kBillFieldsFile{"bill_fields.csv", import_columns::kBillFields};
inline constexpr CsvFile kSettlementsFile{"settlements.csv", import_columns::kSettlements};

inline constexpr CsvFile kOtherFiles[] = {
    kFirmFile, kUsersFile, kBillsFile, kClassLinesFile, kGoodsLinesFile, kBillFieldsFile, kSettlementsFile,
};

/// The file that holds the items of a class.
constexpr std::string_view ItemFileName(std::int32_t itemClass) {
    for (const ItemFile& row : kItemFiles) {
        if (row.itemClass == itemClass) return row.file.name;
    }
    return {};
}

}  // namespace qor
