// Every mistake that an import tells of files and base data, each made in the example firm.
#include <gtest/gtest.h>

#include "embedded/import_fixture.h"

namespace qor {
namespace {

using test::ExpectTold;
using test::FirmFolder;

TEST(ImportMistakes, OfTheFileItself) {
    ExpectTold({
        {"units.csv", "code,name", "code,nmae",
         "units.csv:1: \"nmae\" is no column of this file; there are code, name, category, is_category, "
         "disabled\nunits.csv:1: name: this column is missing"},
        {"units.csv", "code,name", "code,name,code", "units.csv:1: code: this column stands twice"},
        {"units.csv", "05,盒", "05,盒,x", "units.csv:@: has 3 cells, the header 2"},
        {"units.csv", "05,盒", "05,\"盒", "units.csv:@: a quote that is not closed"},
        {"users.csv", "沈佳宁", "\xC9\xF2\xBC\xD1\xC4\xFE",
         "users.csv:@: is not in UTF-8; save the file as CSV UTF-8"},
        {"bill_fields.csv", "送货至教务处", "", "bill_fields.csv:@: text: is blank"},
    });
}

TEST(ImportMistakes, OfTheFolder) {
    const FirmFolder folder;
    test::PutContent(folder.firm() / "bill.csv", "kind,number\n");
    test::PutContent(folder.firm() / "notes.txt", "no file of ours");
    EXPECT_EQ(folder.Import(),
              "bill.csv: is no file of an account set; there are accounts.csv, bill_fields.csv, bills.csv, "
              "class_lines.csv, currencies.csv, customers.csv, departments.csv, employees.csv, "
              "expense_classes.csv, firm.csv, goods.csv, goods_lines.csv, income_classes.csv, "
              "settlement_types.csv, settlements.csv, suppliers.csv, units.csv, users.csv");
    for (const auto& entry : std::filesystem::directory_iterator(folder.firm())) {
        std::filesystem::remove(entry);
    }
    EXPECT_TRUE(folder.Import().starts_with(folder.firm().string() + ": has no file of an account set"));
}

TEST(ImportMistakes, OfAFileWhoseNameIsWrittenInOtherLetters) {
    const FirmFolder folder;
    std::filesystem::rename(folder.firm() / "bill_fields.csv", folder.firm() / "Bill_Fields.CSV");
    EXPECT_EQ(folder.Import().find("Bill_Fields.CSV: is no file of an account set; there are "), 0u);
}

TEST(ImportMistakes, AnEmptyFileIsNone) {
    const FirmFolder folder;
    test::PutContent(folder.firm() / "currencies.csv", "\r\n");
    EXPECT_EQ(folder.Import(), "currencies.csv: is empty; its first line names the columns");
    std::filesystem::remove(folder.firm() / "currencies.csv");
    std::filesystem::create_directory(folder.firm() / "currencies.csv");
    EXPECT_EQ(folder.Import(), "currencies.csv: cannot be read");
}

TEST(ImportMistakes, OfTheFirm) {
    ExpectTold({
        {"firm.csv", "2025-01,", "2025-1,",
         "firm.csv:2: start_month: \"2025-1\" is no month; write it as YYYY-MM"},
        {"firm.csv", "2025-06", "2024-12", "firm.csv: current_month: lies before the first month"},
        {"firm.csv", "", "第二家,,\n", "firm.csv:3: name: is a second firm; the file has one row"},
        {"firm.csv", "name,start_month,current_month\n江南文仪商贸有限公司,2025-01,2025-06",
         "name,data_rights\n江南,maybe", "firm.csv:2: data_rights: \"maybe\" is neither yes nor no"},
        {"users.csv", "16,沈佳宁", "0,沈佳宁",
         "users.csv:@: number: \"0\" is no whole number from 1 to 32767"},
        {"users.csv", "16,沈佳宁", "32768,沈佳宁",
         "users.csv:@: number: \"32768\" is no whole number from 1 to 32767"},
        {"users.csv", "23,顾明远", "16,顾明远", "users.csv:@: number: stands twice"},
        {"users.csv", ",yes", ",all", "users.csv:@: all_rights: \"all\" is neither yes nor no"},
    });
}

TEST(ImportMistakes, WithoutBillsTheFirstMonthMustBeSaid) {
    const FirmFolder folder;
    for (const char* file : {"firm.csv", "bills.csv", "class_lines.csv", "goods_lines.csv", "bill_fields.csv",
                             "settlements.csv"}) {
        std::filesystem::remove(folder.firm() / file);
    }
    EXPECT_EQ(folder.Import(),
              "firm.csv: start_month: is needed where there are no bills to tell the first month");
}

TEST(ImportMistakes, OfCodesAndCategories) {
    ExpectTold({
        {"departments.csv", "04,行政部", "04.,行政部",
         "departments.csv:@: code: \"04.\" is no code: a part of it is blank"},
        {"income_classes.csv", "02.02,", "02.01,",
         "income_classes.csv:@: code: \"02.01\" stands on line 6 already"},
        {"units.csv", "", "A1,只\na1,个\n", "units.csv:8: code: \"a1\" stands on line 7 already"},
        {"units.csv", "", "09.01,只\n",
         "units.csv:@: code: the category \"09\" of \"09.01\" is neither in units.csv nor in the account "
         "set"},
    });
}

TEST(ImportMistakes, OfTheCategoryColumns) {
    ExpectTold({
        {"settlement_types.csv", nullptr,
         "code,name,category\n01,现金,\n01.01,零钱,02\n02,支票,02.01\n02.01,转账,\n",
         "settlement_types.csv:3: category: \"02\" is not the category of \"01.01\", which stands below "
         "\"01\"\n"
         "settlement_types.csv:4: category: \"02.01\" is not the category of \"02\", which stands at the "
         "top"},
        {"settlement_types.csv", nullptr, "code,name,is_category\n01,现金,no\n01.01,零钱,\n02,支票,perhaps\n",
         "settlement_types.csv:4: is_category: \"perhaps\" is neither yes nor no\n"
         "settlement_types.csv:2: is_category: is no, but other codes stand below \"01\""},
        {"currencies.csv", nullptr, "code,name,disabled\nRMB,人民币,never\n",
         "currencies.csv:2: disabled: \"never\" is neither yes nor no"},
    });
}

TEST(ImportMistakes, OfEmployeesAccountsAndGoods) {
    ExpectTold({
        {"employees.csv", "002,顾明远,01.02", "002,顾明远,09",
         "employees.csv:@: department: \"09\" is neither in departments.csv nor in the account set"},
        {"employees.csv", "002,顾明远,01.02", "002,顾明远,01",
         "employees.csv:@: department: \"01\" is a category"},
        {"employees.csv", "002,顾明远,01.02", "002,顾明远,", "employees.csv:@: department: is blank"},
        {"accounts.csv", "yes,356200.50", "yes,\"356,200.50\"",
         "accounts.csv:@: opening_balance: \"356,200.50\" has thousands commas; write 356200.50"},
        {"accounts.csv", "02,银行存款,,", "02,银行存款,,5",
         "accounts.csv:@: opening_balance: must be blank for a category"},
        {"goods.csv", "S8,01", "S8,", "goods.csv:@: unit: is blank"},
        {"goods.csv", "S8,01", "S8,77",
         "goods.csv:@: unit: \"77\" is neither in units.csv nor in the account set"},
        {"goods.csv", "03,8,", "03,0,", "goods.csv:@: show_rate: \"0\" is no whole number from 1 to 1000000"},
        {"goods.csv", ",899", ",899.00001",
         "goods.csv:@: price: \"899.00001\" has more than four decimals; round it yourself"},
    });
}

TEST(ImportMistakes, OfParties) {
    ExpectTold({
        {"customers.csv", "50000.00,60,1;16", "50000.00,60,1;17",
         "customers.csv:@: users: user 17 is not in users.csv"},
        {"customers.csv", "50000.00,60,1;16", "50000.00,60,\"1,16\"",
         "customers.csv:@: users: \"1,16\" is no whole number from 1 to 32767; users stand as 16;23"},
        {"customers.csv", "50000.00,60", "50000.005,60",
         "customers.csv:@: credit_limit: \"50000.005\" has more than two decimals; round it yourself"},
        {"customers.csv", "50000.00,60", "50000.00,60天",
         "customers.csv:@: credit_days: \"60天\" is no whole number from 0 to 9999"},
        {"customers.csv", "025-83020005,", "025-83020005,02",
         "customers.csv:@: matching_supplier: \"02\" is a category"},
        {"customers.csv", "025-83020005,", "025-83020005,02.002",
         "customers.csv:@: matching_supplier: \"02.002\" is the match of line 9"},
    });
}

TEST(ImportMistakes, TheFirstHundredAreTold) {
    const FirmFolder folder;
    std::string rows;
    for (int i = 0; i < 130; ++i) {
        rows += "X" + std::to_string(i) + ",\n";
    }
    folder.Edit("units.csv", "", rows);
    const ImportOutcome outcome = ImportFolder(folder.firm(), folder.books());
    EXPECT_EQ(outcome.mistakes.count(), 130u);
    ASSERT_EQ(outcome.mistakes.kept().size(), 100u);
    EXPECT_EQ(outcome.mistakes.kept().back().Text(), "units.csv:106: name: is blank");
}

}  // namespace
}  // namespace qor
