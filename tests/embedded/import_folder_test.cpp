// Imports of the example firm: what the books then hold, how a second import goes on from the first, and what
// stays when one fails.
#include "embedded/import_folder.h"

#include <gtest/gtest.h>

#include <cmath>

#include "embedded/cash_rows.h"
#include "embedded/import_fixture.h"
#include "embedded/import_values.h"
#include "embedded/sample_fixture.h"
#include "platform/conversions.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::ContentOf;
using test::Filter;
using test::FirmFolder;
using test::PutContent;

std::string Answer(const std::filesystem::path& file, const std::string& statement) {
    AccountSet set(file);
    Statement asked(set.database(), statement);
    std::string answer;
    while (asked.Step()) {
        for (int i = 0; i < sqlite3_column_count(asked.handle()); ++i) {
            answer += std::string(asked.Text(i)) + "|";
        }
    }
    return answer;
}

TEST(ImportFolder, TheExampleFirmIsImported) {
    const FirmFolder folder;
    const ImportOutcome outcome = ImportFolder(test::ExampleFirm(), folder.books());
    ASSERT_EQ(outcome.mistakes.count(), 0u);
    EXPECT_EQ(outcome.bills.added, 50);
    EXPECT_EQ(Answer(folder.books(), "SELECT count(DISTINCT FBillType) FROM t_Bill"), "26|") << "every kind";
    EXPECT_EQ(Answer(folder.books(), "SELECT count(*) FROM pragma_foreign_key_check WHERE parent<>'t_Item'"),
              "0|");
    AccountSet books(folder.books());
    EXPECT_EQ(books.Name(), "江南文仪商贸有限公司");
    EXPECT_EQ(books.Profile("IC", "StartYear").value() + books.Profile("IC", "CurrentPeriod").value(),
              "20256");
    EXPECT_TRUE(books.HasAllRights(1));
    EXPECT_EQ(books.UserName(16), "沈佳宁");
    EXPECT_EQ(books.DeepestLevel(item_class::kCustomer), 3);
}

TEST(ImportFolder, TheExamplesReportsTellItsBooks) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    MiddleTier tier(folder.books(), 1);
    const Ref<RecordSet> rows =
        test::AskReport(tier, "QORMArApRpt.Data", "GetRpt10522Data", test::Filter({{"BTypeIn", "02"}}));
    std::string text;
    for (; !rows->Eof(); rows->Move(1)) {
        text += rows->Field("FName").text() + " " + rows->Field("FCustName").text() + " " +
                std::to_string(rows->Field("FAmount").number()) + "\n";
    }
    EXPECT_EQ(text,
              "维修服务收入 宁波港城会计师事务所 680.000000\n维修服务收入 宁波港城会计师事务所 -80.000000\n"
              "安装调试收入 杭州云栖软件有限公司 400.000000\n利息收入  83.150000\n");
}

/// "01.01.001 0.00" for each party of a summary of the half year that the example firm has behind it.
std::string BalancesOf(const FirmFolder& folder, const char* member, const char* code) {
    MiddleTier tier(folder.books(), 1);
    const Ref<RecordSet> rows = test::AskReport(
        tier, "QORMArApRpt.Data", member,
        test::Filter({{"BDate", "2025-01-01"}, {"EDate", "2025-06-30"}, {"CheckState", std::int16_t{0}}}));
    std::string text;
    for (; !rows->Eof(); rows->Move(1)) {
        if (ToInt32(rows->Field("FSumSort")) > 0) continue;
        const auto cents = std::llround(rows->Field("FBalanceAmount").number() * 100);
        text += rows->Field(code).text() + " " + CentsText(cents) + "\n";
    }
    return text;
}

TEST(ImportFolder, TheExamplesBalancesAreThoseWorkedOutByHand) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    EXPECT_EQ(BalancesOf(folder, "GetRpt10503Data", "FCustNumber"),
              "01.01.001 0.00\n01.01.002 500.00\n01.02.001 4830.00\n02.001 516.00\n02.002 1881.00\n"
              "02.003 26900.00\n03 0.00\n");
    EXPECT_EQ(BalancesOf(folder, "GetRpt10505Data", "FSupplyNumber"),
              "01.001 10656.00\n01.002 3070.00\n02.001 17650.00\n02.002 0.00\n02.003 2860.00\n");
}

TEST(ImportFolder, BlanksAreFilledWithWhatIsUsual) {
    const FirmFolder folder;
    for (const char* file : {"firm.csv", "users.csv"}) {
        std::filesystem::remove(folder.firm() / file);
    }
    for (const char* file : {"customers.csv", "suppliers.csv"}) {
        std::string content = ContentOf(folder.firm() / file);
        for (const char* users : {"1;16;23", "1;16", "1;23"}) {
            for (std::size_t at; (at = content.find("," + std::string(users) + ",")) != std::string::npos;) {
                content.replace(at + 1, std::string(users).size(), "1");
            }
        }
        PutContent(folder.firm() / file, content);
    }
    std::string bills = ContentOf(folder.firm() / "bills.csv");
    for (const char* biller : {",16,", ",23,"}) {
        for (std::size_t at; (at = bills.find(biller)) != std::string::npos;) {
            bills.replace(at, 4, ",1,");
        }
    }
    PutContent(folder.firm() / "bills.csv", bills);
    ASSERT_EQ(folder.Import(), "");
    EXPECT_EQ(Answer(folder.books(), "SELECT * FROM t_User"), "1|管理员|1|");
    EXPECT_EQ(
        Answer(folder.books(), "SELECT FValue FROM t_SystemProfile WHERE FCategory='Base' ORDER BY FKey"),
        "1,8|firm|1|1|");
    EXPECT_EQ(
        Answer(folder.books(), "SELECT FKey, FValue FROM t_SystemProfile WHERE FCategory='IC' ORDER BY FKey"),
        "CurrentPeriod|6|CurrentYear|2025|StartPeriod|1|StartYear|2025|UseShortNumber|1|");
    EXPECT_EQ(Answer(folder.books(), "SELECT min(FStartDate), max(FEndDate), count(*) FROM t_PeriodDate"),
              "45658|46387|24|");
    EXPECT_EQ(
        Answer(folder.books(), "SELECT FName FROM t_Item WHERE FItemClassID IN (12,130) ORDER BY FItemID"),
        "人民币|现金|转账支票|电汇|");
}

TEST(ImportFolder, OtherClaimsMayBePaidAtOnce) {
    const FirmFolder folder;
    folder.Edit("bills.csv", "001,,,360.00,", "001,01.01,,360.00,100.00");
    folder.Edit("class_lines.csv", "360.00,", "360.00,100.00");
    ASSERT_EQ(folder.Import(), "");
    AccountSet set(folder.books());
    const auto movements = [&](const char* withOtherClaims) {
        return CashJournal(set, *Filter({{"BAcctNumber", "01.01"},
                                         {"EAcctNumber", "01.01"},
                                         {"BDate", "2025-03-12"},
                                         {"EDate", "2025-03-12"},
                                         {"IncludARAP", withOtherClaims}}));
    };
    EXPECT_EQ(movements("0")->RowCount(), 1) << "the opening balance alone";
    const Ref<RecordSet> rows = movements("1");
    ASSERT_EQ(rows->RowCount(), 2);
    rows->Move(1);
    EXPECT_EQ(rows->Field("FBillNo"), Value("QS-202503-001"));
    EXPECT_EQ(rows->Field("FInAmount"), Value(100.0));
}

TEST(ImportFolder, TheLastDayOfTheCalendarIsADayLikeAnyOther) {
    const FirmFolder folder;
    folder.Edit("bills.csv", "FY-202506-002,2025-06-28", "FY-202506-002,9999-12-31");
    ASSERT_EQ(folder.Import(), "");
    EXPECT_EQ(Answer(folder.books(), "SELECT FEndDate FROM t_PeriodDate WHERE FYear=9999 AND FPeriod=12"),
              "2958465|");
}

TEST(ImportFolder, ACategoryMatchesWhateverTheCaseOfItsLetters) {
    const FirmFolder folder;
    PutContent(folder.firm() / "settlement_types.csv",
               "code,name,category\nA,现金,\na.01,零钱,A\nA.02,支票,a\n");
    EXPECT_EQ(folder.Import(), "");
}

TEST(ImportFolder, TheFormOfTheFilesPlaysNoPart) {
    const FirmFolder plain, other;
    ASSERT_EQ(plain.Import(), "");
    for (const auto& entry : std::filesystem::directory_iterator(other.firm())) {
        std::string content = ContentOf(entry.path()), changed = "\xEF\xBB\xBF";
        for (const char c : content) {
            changed += c == '\n' ? "\r\n\r\n" : std::string(1, c);
        }
        PutContent(entry.path(), changed);
    }
    PutContent(other.firm() / "units.csv", "name , code\n台,01\n\"包\", 02 \n箱,03\n支,04\n盒,05");
    ASSERT_EQ(other.Import(), "");
    EXPECT_EQ(ContentOf(plain.books()), ContentOf(other.books()));
}

TEST(ImportFolder, TheSameFilesAgainLeaveTheFileAlone) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    const auto when = std::filesystem::last_write_time(folder.books());
    const ImportOutcome again = ImportFolder(folder.firm(), folder.books());
    EXPECT_EQ(again.mistakes.count(), 0u);
    EXPECT_EQ(again.bills.same, 50);
    EXPECT_FALSE(again.bills.HasNews() || again.baseData.HasNews());
    EXPECT_EQ(std::filesystem::last_write_time(folder.books()), when);
}

TEST(ImportFolder, ALaterMonthIsAddedAndBaseDataAreBroughtUpToDate) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    for (const char* file : {"class_lines.csv", "goods_lines.csv", "bill_fields.csv", "firm.csv"}) {
        std::filesystem::remove(folder.firm() / file);
    }
    PutContent(
        folder.firm() / "bills.csv",
        "kind,number,date,customer,account,amount\n收款单,SK-202507-001,2025-07-03,02.003,02.02,900.00\n");
    PutContent(folder.firm() / "settlements.csv", "bill,target,amount\nSK-202507-001,XS-202505-001,900.00\n");
    PutContent(folder.firm() / "customers.csv", "code,name,credit_days\n02.003,无锡惠山医院集团,45\n");
    const ImportOutcome outcome = ImportFolder(folder.firm(), folder.books());
    ASSERT_EQ(outcome.mistakes.count(), 0u);
    EXPECT_EQ(outcome.bills.added, 1);
    EXPECT_EQ(outcome.baseData.changed, 2) << "the customer, and the current month";
    EXPECT_EQ(Answer(folder.books(), "SELECT count(*) FROM t_Bill"), "51|");
    EXPECT_EQ(
        Answer(
            folder.books(),
            "SELECT FName, FCreditDays, FCreditLimit, FContact FROM t_Organization WHERE FNumber='02.003'"),
        "无锡惠山医院集团|45|20000000|高洁|");
    EXPECT_EQ(Answer(folder.books(), "SELECT FValue FROM t_SystemProfile WHERE FKey='CurrentPeriod'"), "7|");
    EXPECT_EQ(
        Answer(folder.books(),
               "SELECT sum(s.FAmount) FROM t_Settlement s JOIN t_Bill b ON b.FBillID=s.FTargetBillID WHERE "
               "b.FBillNo='XS-202505-001'"),
        "590000|");
    PutContent(folder.firm() / "settlements.csv", "bill,target,amount\nSK-202507-001,XS-202505-001,890.00\n");
    EXPECT_EQ(folder.Import(),
              "settlements.csv:2: bill: this row of the bill differs from the one in the account set; a "
              "booked bill "
              "is not changed: make it void and book another one");
}

TEST(ImportFolder, WhatWasSettledBeforeIsNotOpenAgain) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    folder.Edit("bills.csv", "", "SK,SK-9,2025-06-29,,02.003,,,,,02.02,,21900.01,,,,,,,,\n");
    folder.Edit("settlements.csv", "", "SK-9,XS-202505-001,,21900.01,\n");
    EXPECT_EQ(folder.Import(),
              "settlements.csv:17: target: has 21900.00 open; 21900.01 cannot be taken of it");
}

TEST(ImportFolder, ABookedBillIsNotChanged) {
    struct Change {
        const char* file;
        const char* from;
        const char* to;
        const char* mistake;
    };
    const Change changes[] = {
        {"bills.csv", "YS-202502-001,2025-02-05", "YS-202502-001,2025-02-06",
         "bills.csv:@: date: differs from the bill in the account set, which has 2025-02-05"},
        {"bills.csv", "002,02.02,,10000.00", "002,02.01,,10000.00",
         "bills.csv:@: account: differs from the bill in the account set"},
        {"bills.csv", "2025-03-11,,16,44120001", "2025-03-11,,16,44120009",
         "bills.csv:@: invoice: differs from the bill in the account set, which has \"44120001\""},
        {"bills.csv", "-499.00,,,,XS-202502-001", "-499.00,,,,",
         "bills.csv:@: related_bill: differs from the bill in the account set"},
        {"bills.csv", "2025-06-12,void,", "2025-06-12,,",
         "bills.csv:@: state: differs from the bill in the account set, which has void"},
        {"class_lines.csv", "活期利息", "利息",
         "class_lines.csv:@: bill: this row of the bill differs from the one in the account set"},
        {"goods_lines.csv", "20,896.00", "20,896.01",
         "goods_lines.csv:@: bill: this row of the bill differs from the one in the account set"},
        {"bill_fields.csv", "HT-2025-07", "HT-2025-08",
         "bill_fields.csv:@: bill: this row of the bill differs from the one in the account set"},
        {"bill_fields.csv", "XS-202505-001,1,合同HT-2025-07\n", "",
         "bills.csv:43: number: has 2 rows in the other files and 3 in the account set; a booked bill is not "
         "changed"},
    };
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    const std::string before = ContentOf(folder.books());
    for (const Change& change : changes) {
        const std::string content = ContentOf(folder.firm() / change.file);
        const std::int64_t line = folder.Edit(change.file, change.from, change.to);
        const std::string told = folder.Import();
        EXPECT_TRUE(told.starts_with(test::WithLine(change.mistake, line))) << told;
        EXPECT_EQ(std::ranges::count(told, '\n'), 0) << told;
        EXPECT_EQ(ContentOf(folder.books()), before);
        PutContent(folder.firm() / change.file, content);
    }
}

TEST(ImportFolder, AnAuditMovesABillOn) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    folder.Edit("bills.csv",
                "XS-202506-001,2025-06-05,not audited,01.01.002,,,01.01,001,,,1648.00,,,2025-07-05,,16,,,",
                "XS-202506-001,2025-06-05,,01.01.002,,,01.01,001,,,1648.00,,,2025-07-05,,16,,记-1,");
    const ImportOutcome outcome = ImportFolder(folder.firm(), folder.books());
    ASSERT_EQ(outcome.mistakes.count(), 0u);
    EXPECT_EQ(outcome.bills.changed, 1);
    EXPECT_EQ(Answer(folder.books(), "SELECT FState, FVchNumber FROM t_Bill WHERE FBillNo='XS-202506-001'"),
              "0|记-1|");
}

TEST(ImportFolder, AReceiptThatBecomesVoidLetsGoWhatItSettled) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    folder.Edit("bills.csv", "SK-202506-001,2025-06-18,not audited", "SK-202506-001,2025-06-18,void");
    folder.Edit("settlements.csv", "SK-202506-001,XS-202505-001,,5000.00,\n", "");
    folder.Edit("bills.csv", "", "SK,SK-9,2025-06-29,,02.003,,,,,02.02,,26900.00,,,,,,,,\n");
    folder.Edit("settlements.csv", "", "SK-9,XS-202505-001,,26900.00,\n");
    EXPECT_EQ(folder.Import(), "") << "all of the sale is open again";
    EXPECT_EQ(Answer(folder.books(), "SELECT count(*) FROM t_Settlement WHERE FAmount=500000"), "0|");
}

TEST(ImportFolder, ASettledBillCannotBecomeVoid) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    PutContent(folder.firm() / "settlements.csv", "bill,target,amount\n");
    const std::string bills = ContentOf(folder.firm() / "bills.csv");
    PutContent(folder.firm() / "bills.csv",
               bills.substr(0, bills.find('\n') + 1) +
                   "QC,QC-2024-001,2024-12-31,void,01.01.001,,,01.01,001,,,12600.00,,,"
                   "2025-02-28,,16,,,期初余额\n");
    for (const char* file : {"class_lines.csv", "goods_lines.csv", "bill_fields.csv"}) {
        std::filesystem::remove(folder.firm() / file);
    }
    EXPECT_EQ(folder.Import(), "bills.csv:2: state: is void, but other bills settle it or use it up");
}

TEST(ImportFolder, AnItemOnBillsCannotBecomeACategory) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    folder.Edit("departments.csv", "", "01.02.01,销售二部一组\n");
    EXPECT_EQ(folder.Import(),
              "departments.csv:4: code: \"01.02\" carries bills and cannot become a category");
    PutContent(folder.firm() / "departments.csv", "code,name\n05,仓储部\n05.01,一号库\n04.01,后勤组\n");
    EXPECT_EQ(folder.Import(), "departments.csv:4: code: \"04\" carries bills and cannot become a category");
}

TEST(ImportFolder, MistakesLeaveTheBooksAsTheyWere) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    const std::string before = ContentOf(folder.books());
    folder.Edit("units.csv", "", "06,只\n07,\n");
    EXPECT_NE(folder.Import(), "");
    EXPECT_EQ(ContentOf(folder.books()), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2)
        << "an unfinished file stays";
}

TEST(ImportFolder, WhatIsNoAccountSetIsRefusedAndStays) {
    const FirmFolder folder;
    PutContent(folder.books(), "a letter");
    const auto error = test::ErrorOf([&] { folder.Import(); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description(), "不是账套文件：" + folder.books().string());
    EXPECT_EQ(ContentOf(folder.books()), "a letter");
    EXPECT_TRUE(test::ErrorOf([&] { ImportFolder(folder.path() / "nowhere", folder.path() / "x"); }));
    EXPECT_TRUE(test::ErrorOf([&] { ImportFolder(folder.firm(), folder.path() / "no folder/x"); }));
}

TEST(ImportFolder, ALinkStaysALink) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    std::filesystem::create_symlink(folder.books(), folder.path() / "link.db");
    folder.Edit("units.csv", "", "06,只\n");
    EXPECT_EQ(ImportFolder(folder.firm(), folder.path() / "link.db").baseData.added, 1);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link.db"));
    EXPECT_EQ(Answer(folder.books(), "SELECT count(*) FROM t_Item WHERE FItemClassID=7"), "6|");
}

}  // namespace
}  // namespace qor
