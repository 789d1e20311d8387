// Every mistake that an import tells of bills, their lines and their settlements, each made in the example
// firm.
#include <gtest/gtest.h>

#include <sstream>

#include "embedded/import_fixture.h"

namespace qor {
namespace {

using test::ExpectTold;

TEST(ImportMistakes, OfABillsOwnCells) {
    ExpectTold({
        {"bills.csv", "YH,YH-", "ZZ,YH-",
         "bills.csv:@: kind: \"ZZ\" is no kind of bill; write a sign such as XS or a name such as 销售单"},
        {"bills.csv", "YS,YS-202502-001", "YS,XS-202501-001",
         "bills.csv:@: number: \"XS-202501-001\" stands on line 8 already"},
        {"bills.csv", "YH-202501-001,2025-01-26", "YH-202501-001,2025-02-30",
         "bills.csv:@: date: \"2025-02-30\" is no day of the calendar"},
        {"bills.csv", "2025-06-28,,", "2025-06-28,done,",
         "bills.csv:@: state: \"done\" is no state; write audited, not audited or void"},
        {"bills.csv", "5000.00,,,,,1,,记-15", "5000.00,,,,,7,,记-15",
         "bills.csv:@: biller: user 7 is not in users.csv"},
        {"bills.csv", "5000.00,,,,,1,,记-15", "\"5,000\",,,,,1,,记-15",
         "bills.csv:@: amount: \"5,000\" has thousands commas; write 5000"},
        {"bills.csv", "2025-01-10,,01.01.001,", "2025-01-10,,01.01,",
         "bills.csv:@: customer: \"01.01\" is a category"},
        {"bills.csv", "2025-01-10,,01.01.001,", "2025-01-10,,01.01.777,",
         "bills.csv:@: customer: \"01.01.777\" is neither in customers.csv nor in the account set"},
        {"bills.csv", "7420.00,,,2025-03-11", "7420.00,,,2025-01-09",
         "bills.csv:@: due_date: lies before the bill's date, 2025-01-10"},
    });
}

TEST(ImportMistakes, OfWhatABillsKindHas) {
    ExpectTold({
        {"bills.csv", "2025-01-10,,01.01.001,", "2025-01-10,,,",
         "bills.csv:@: customer: is blank; a 销售单 has a customer"},
        {"bills.csv", "2025-01-10,,01.01.001,", "2025-01-10,,01.01.001,01.001",
         "bills.csv:@: supplier: must be blank; a 销售单 has none"},
        {"bills.csv", "2025-01-10,,01.01.001,,", "2025-01-10,,01.01.001,,01.01.002",
         "bills.csv:@: to_party: must be blank; a 销售单 has none"},
        {"bills.csv", "01.01.001,,01.01.002,", "01.01.001,,,",
         "bills.csv:@: to_party: is blank; a 核销单-应收转应收 has a party that takes the claim over"},
        {"bills.csv", "01.01.001,,01.01.002,", "01.01.001,,01.01.001,",
         "bills.csv:@: to_party: is the party that the claim comes from"},
        {"bills.csv", ",-499.00,", ",499.00,",
         "bills.csv:@: amount: must be negative; a 销售退货单 takes back"},
        {"bills.csv", "02.01,01.01,5000.00", "02.01,01.01,-5000.00",
         "bills.csv:@: amount: must not be negative; swap the accounts"},
        {"bills.csv", "02.01,01.01,5000.00", "02.01,02.01,5000.00",
         "bills.csv:@: to_account: is the account that the money comes from"},
        {"bills.csv", "02.01,01.01,5000.00", "02.01,,5000.00",
         "bills.csv:@: to_account: is blank; a 银行存取款单 has an account that it moves to"},
        {"bills.csv", "8000.00,,,,,16,,记-3", "8000.00,8000.00,,,,16,,记-3",
         "bills.csv:@: settled: must be blank; a 预付款单 has none"},
        {"bills.csv", "992.80,992.80", "992.80,992.81",
         "bills.csv:@: settled: is not between 0 and the amount, 992.80"},
        {"bills.csv", "-499.00,,", "-499.00,1.00,",
         "bills.csv:@: settled: is not between 0 and the amount, -499.00"},
        {"bills.csv", "001,03,,992.80", "001,,,992.80",
         "bills.csv:@: account: is blank; a 销售单 has an account that its money moves on"},
        {"bills.csv", "003,02.02,,8000.00", "003,,,8000.00",
         "bills.csv:@: account: is blank; a 预付款单 has an account that its money moves on"},
        {"bills.csv", "002,,,10000.00", "002,02.02,,10000.00",
         "bills.csv:@: account: must be blank; a 核销单-预收冲应收 has none"},
        {"bills.csv", "12542.60,12542.60", "12542.60,12000.00",
         "bills.csv:@: settled: must be the amount, 12542.60: without a party everything is paid at once"},
        {"bills.csv", "8000.00,,,,,16,,记-3", "8000.00,,5.00,,,16,,记-3",
         "bills.csv:@: discount: must be blank; a 预付款单 has none"},
    });
}

TEST(ImportMistakes, OfTheBillThatOneGoesBackTo) {
    ExpectTold({
        {"bills.csv", "WT-202503-001,16,44120003", ",16,44120003",
         "bills.csv:@: related_bill: is blank; a 委托代销结算单 goes back to a 委托代销发货单"},
        {"bills.csv", "WT-202503-001,16,44120003", "WT-1,16,44120003",
         "bills.csv:@: related_bill: \"WT-1\" is neither in bills.csv nor in the account set"},
        {"bills.csv", "-499.00,,,,XS-202502-001", "-499.00,,,,WT-202503-001",
         "bills.csv:@: related_bill: is a 委托代销发货单; a 销售退货单 goes back to a 销售单"},
        {"bills.csv", "-499.00,,,,XS-202502-001", "-499.00,,,,XS-202501-001",
         "bills.csv:@: related_bill: is a bill of another party"},
        {"bills.csv", "2025-02-20,,02.002", "2025-02-11,,02.002",
         "bills.csv:@: related_bill: is of a later day, 2025-02-12"},
        {"bills.csv", "2025-03-03,,01.02.001", "2025-03-03,void,01.02.001",
         "bills.csv:31: related_bill: is void"},
        {"bills.csv", "5000.00,,,,,1,,记-15", "5000.00,,,,XS-202501-001,1,,记-15",
         "bills.csv:@: related_bill: must be blank; a 银行存取款单 goes back to no bill"},
    });
}

TEST(ImportMistakes, OfTheFirstDay) {
    ExpectTold({
        {"bills.csv", "QC-2024-001,2024-12-31", "QC-2024-001,2025-01-01",
         "bills.csv:@: date: is not before the first day of the account set, 2025-01-01, as opening bills "
         "are"},
        {"bills.csv", "FY-202501-001,2025-01-16", "FY-202501-001,2024-12-16",
         "bills.csv:@: date: lies before the first day of the account set, 2025-01-01"},
    });
}

TEST(ImportMistakes, OfLines) {
    ExpectTold({
        {"class_lines.csv", "FY-202506-002,03", "FY-202506-009,03",
         "class_lines.csv:@: bill: \"FY-202506-009\" is not in bills.csv; the rows of a bill come with the "
         "bill\n"
         "bills.csv:51: number: has no lines in class_lines.csv; a 费用支出单 has some"},
        {"class_lines.csv", "FY-202506-002,03,36.50", "FY-202506-002,03,36.40",
         "bills.csv:51: amount: is 36.50; its lines in class_lines.csv sum up to 36.40\n"
         "bills.csv:51: settled: is 36.50; its lines in class_lines.csv sum up to 36.40"},
        {"class_lines.csv", "3600.00,2000.00", "3600.00,1999.99",
         "bills.csv:10: settled: is 2000.00; its lines in class_lines.csv sum up to 1999.99"},
        {"class_lines.csv", "SR-202501-002,03", "SR-202501-002,02",
         "class_lines.csv:@: class: \"02\" is a category"},
        {"class_lines.csv", "SR-202501-002,03", "SR-202501-002,02.03",
         "class_lines.csv:@: class: \"02.03\" is neither in income_classes.csv nor in the account set"},
        {"class_lines.csv", "", "XS-202501-001,03,1.00,,\n",
         "class_lines.csv:@: bill: is a 销售单, which has no lines here"},
        {"goods_lines.csv", "", "SR-202501-002,01.001,1,1,1.00,,,,\n",
         "goods_lines.csv:@: bill: is a 其他收入单, which has no lines here"},
        {"goods_lines.csv", "1,1320.00,1320.00", "1,1320.00,1300.00",
         "bills.csv:48: amount: is 1320.00; its lines in goods_lines.csv sum up to 1300.00"},
        {"goods_lines.csv", "01.003,-1,499.00,-499.00", "01.003,1,499.00,-499.00",
         "goods_lines.csv:@: amount: has another sign than the quantity"},
        {"goods_lines.csv", "01.003,-1,499.00,-499.00", "01.003,-1,-499.00,-499.00",
         "goods_lines.csv:@: price: must not be negative; a return has a negative quantity"},
        {"goods_lines.csv", "400,13.65,5460.00,03", "400,13.65,5460.00,05",
         "goods_lines.csv:@: unit_rate: is blank; the goods have no such unit, so the line must say how many "
         "base "
         "units make one"},
        {"bill_fields.csv", "XS-202501-001,3", "XS-202501-001,1",
         "bill_fields.csv:@: field: stands twice for this bill"},
        {"bill_fields.csv", "XS-202501-001,3", "XS-202501-001,100",
         "bill_fields.csv:@: field: \"100\" is no whole number from 1 to 99"},
    });
}

TEST(ImportMistakes, OfARateOfTheBaseUnit) {
    const test::FirmFolder folder;
    folder.Edit("goods_lines.csv", "unit,aux", "unit,unit_rate");
    const std::int64_t line = folder.Edit("goods_lines.csv", "17920.00,,", "17920.00,,12");
    EXPECT_EQ(folder.Import(), test::WithLine("goods_lines.csv:@: unit_rate: must be 1: the line is shown in "
                                              "the base unit",
                                              line));
}

TEST(ImportMistakes, OfSettlements) {
    ExpectTold({
        {"settlements.csv", "SK-202501-001,QC-2024-001,,12600.00", "SK-202501-001,QC-2024-001,,12600.01",
         "settlements.csv:@: target: has 12600.00 open; 12600.01 cannot be taken of it"},
        {"settlements.csv", "SK-202501-001,QC-2024-001,,12600.00", "SK-202501-001,QC-2024-001,,12000.00",
         "bills.csv:14: amount: is 12600.00; its rows in settlements.csv settle 12000.00; what settles no "
         "bill is "
         "booked as an advance"},
        {"settlements.csv", "23300.00,100.00", "23300.00,99.00",
         "bills.csv:15: discount: is 100.00; its rows in settlements.csv let 99.00 go"},
        {"settlements.csv", "SK-202501-001,QC-2024-001", "SK-202501-001,QC-2024-009",
         "settlements.csv:@: target: \"QC-2024-009\" is neither in bills.csv nor in the account set"},
        {"settlements.csv", "SK-202501-001,QC-2024-001", "SK-202501-001,QC-2024-002",
         "settlements.csv:@: target: is a bill of another party"},
        {"settlements.csv", "SK-202501-001,QC-2024-001", "SK-202501-001,QD-2024-001",
         "settlements.csv:@: target: is a 期初应付单, which a 收款单 cannot settle"},
        {"settlements.csv", "SK-202501-001,QC-2024-001", "XS-202501-001,QC-2024-001",
         "settlements.csv:@: bill: is a 销售单, which settles nothing\n"
         "bills.csv:14: amount: is 12600.00; its rows in settlements.csv settle 0.00; what settles no bill "
         "is "
         "booked as an advance"},
        {"settlements.csv", "SK-202501-001,QC-2024-001,,", "SK-202501-001,QC-2024-001,XS-202501-001,",
         "settlements.csv:@: source: must be blank or the bill itself"},
        {"settlements.csv", "XS-202502-001,YS-202502-001,", "XS-202502-001,,",
         "settlements.csv:@: source: is blank; a 核销单-预收冲应收 uses another bill up"},
        {"settlements.csv", "XS-202502-001,YS-202502-001,", "XS-202502-001,XS-202502-001,",
         "settlements.csv:@: source: is a 销售单, which a 核销单-预收冲应收 cannot use up"},
        {"settlements.csv", "HD-202504-001,XS-202501-001,,", "HD-202504-001,XS-202501-001,YS-202502-001,",
         "settlements.csv:@: source: must be blank; the claim moves to another party"},
        {"settlements.csv", "HD-202504-001,XS-202501-001,,2000.00,",
         "HD-202504-001,XS-202501-001,,2000.00,1.00",
         "settlements.csv:@: discount: must be blank; a 核销单-应收转应收 lets nothing go"},
        {"settlements.csv", "XF-202504-001,,-450.00", "XF-202504-001,,450.00",
         "settlements.csv:@: target: has -450.00 open; 450.00 cannot be taken of it"},
        {"settlements.csv", "", "XS-202506-002,QC-2024-001,,1.00,\n",
         "settlements.csv:@: bill: is a 销售单, which settles nothing"},
    });
}

TEST(ImportMistakes, ASettlementIsOfTheDayOfItsBill) {
    const test::FirmFolder folder;
    std::istringstream lines(test::ContentOf(folder.firm() / "settlements.csv"));
    std::string content, line;
    for (const char* cell = "date"; std::getline(lines, line);) {
        content += line + "," + cell + "\n";
        cell = line.starts_with("bill,") ? "2025-01-23" : "";
    }
    test::PutContent(folder.firm() / "settlements.csv", content);
    EXPECT_EQ(folder.Import(), "settlements.csv:2: date: is not the day of the settling bill, 2025-01-22");
}

TEST(ImportMistakes, OfDaysAndVoidBillsAmongSettlements) {
    ExpectTold({
        {"bills.csv", "QF-202503-001,2025-03-14,,,01.001,,04,005,,,1379.00,,,2025-04-13",
         "QF-202503-001,2025-06-21,,,01.001,,04,005,,,1379.00,,,",
         "settlements.csv:16: target: is of a later day, 2025-06-21, than the bill that settles it, "
         "2025-06-20"},
        {"bills.csv", "YS-202502-001,2025-02-05", "YS-202502-001,2025-02-14",
         "settlements.csv:4: source: is of a later day, 2025-02-14, than the bill that settles it, "
         "2025-02-13"},
        {"bills.csv", "SK-202501-001,2025-01-22,,", "SK-202501-001,2025-01-22,void,",
         "settlements.csv:2: bill: is void and settles nothing"},
        {"bills.csv", "QF-202503-001,2025-03-14,,", "QF-202503-001,2025-03-14,void,",
         "settlements.csv:16: target: is void"},
        {"bills.csv", "YS-202502-001,2025-02-05,,", "YS-202502-001,2025-02-05,void,",
         "settlements.csv:4: source: is void"},
        {"settlements.csv", "SK-202501-001,QC-2024-001,,12600.00,\n", "",
         "bills.csv:14: amount: is 12600.00; its rows in settlements.csv settle 0.00; what settles no bill "
         "is "
         "booked as an advance"},
    });
}

}  // namespace
}  // namespace qor
