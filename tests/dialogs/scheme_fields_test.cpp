// What the scheme dialogs write, read back and set to its default.
#include <gmock/gmock.h>

#include "support/scheme_user.h"

namespace qor {
namespace {

using test::ControlOf;
using test::Person;
using test::SchemeUser;
using test::Shown;

const std::string kPad = std::string(50, ' ') + "|";

std::string Ranges(std::string_view day, std::string_view party) {
    return "BDate: #" + std::string(day) + "#, EDate: #2020-09-15#, B" + std::string(party) +
           "Number: \"\", E" + std::string(party) +
           "Number: \"\", BDeptNumber: \"\", EDeptNumber: \"\", BEmpNumber: \"\", EEmpNumber: \"\", ";
}

constexpr std::string_view kGroup =
    "CheckState: int16(0), cboTotal: int16(0), chkShowTotalRow: int16(0), MultiLevel: int16(0), "
    "MultiLevelBegin: int16(0), MultiLevelEnd: int16(0), ";
constexpr std::string_view kZeros =
    "NotShowBalZero: int16(0), OccurNotZero: int16(0), NotShowZero: int16(0), ";

std::string Receivables() {
    return "{" + Ranges("2020-09-01", "Cust") + std::string(kZeros) + "IncludeOtherR: int16(1), " +
           std::string(kGroup) +
           "IncludeWT: int16(0), IncludeFL: int16(1), UserID: 16, GroupBy: \"FCustNumber\", "
           "ShowTotalRow: int16(0), SumBy: \"客户" +
           kPad + "FCustNumber\", OK: True}";
}

std::string Payables() {
    return "{" + Ranges("2020-09-01", "Supply") + std::string(kZeros) +
           "IncludeOtherP: int16(1), IncludeGJ: int16(0), " + std::string(kGroup) +
           "IncludeFL: int16(1), UserID: 16, GroupBy: \"FSupplyNumber\", ShowTotalRow: int16(0), "
           "SumBy: \"供应商" +
           kPad + "FSupplyNumber\", OK: True}";
}

TEST(SchemeFields, ConfirmedDefaultsAreWrittenInTheOrderOfTheTable) {
    const std::pair<std::string_view, std::string> rows[] = {
        {"Rpt10501",
         "{BDate: #2020-09-01#, EDate: #2020-09-15#, AcctNumber: \"\", BDeptNumber: \"\", EDeptNumber: \"\", "
         "BEmpNumber: \"\", EEmpNumber: \"\", BillerName: \"\", IncludeR: int16(1), IncludeP: int16(1), "
         "IncludePurchase: int16(1), IncludeSale: int16(1), IncludeBank: int16(1), IncludeXSFL: int16(1), "
         "IncludeCGFL: int16(1), CheckState: int16(0), UserID: 16, RptID: int16(10501), OK: True}"},
        {"Rpt10502",
         "{" + Ranges("2020-09-15", "Cust") +
             "NotShowBalZero: int16(1), NotShowBillZero: int16(1), IncludeOtherR: int16(1), "
             "CheckState: int16(0), IncludeWT: int16(0), IncludeFL: int16(1), UserID: 16, "
             "UserFormula1: \"\", UserFormula2: \"\", UserFormula3: \"\", UserFormula4: \"\", "
             "UserFormula5: \"\", UserFormula6: \"\", CheckFormula1: int16(0), CheckFormula2: int16(0), "
             "CheckFormula3: int16(0), CheckFormula4: int16(0), CheckFormula5: int16(0), "
             "CheckFormula6: int16(0), OK: True}"},
        {"Rpt10503", Receivables()},
        {"Rpt10504",
         "{" + Ranges("2020-09-15", "Supply") +
             "NotShowBalZero: int16(1), NotShowBillZero: int16(1), IncludeOtherP: int16(1), "
             "IncludeGJ: int16(0), CheckState: int16(0), IncludeFL: int16(1), UserID: 16, OK: True}"},
        {"Rpt10505", Payables()},
        {"Rpt10531", Receivables()},
        {"Rpt10532", Payables()},
    };
    for (const auto& [report, filter] : rows) {
        SchemeUser user(report);
        user.Filter();
        EXPECT_EQ(Shown(user.report->Get("Filter")), filter) << report;
    }
}

TEST(SchemeFields, TextsAreTrimmedWhereTheyAreCodesOfDepartmentsAndEmployees) {
    const auto fill = [](Person& person) {
        for (int i = 0; i < 6; ++i) {
            person.Text("txtItem(" + std::to_string(i) + ")", "  a" + std::to_string(i) + " ");
        }
    };
    SchemeUser user("Rpt10504");
    user.Filter(fill);
    EXPECT_EQ(user.FilterValue("BSupplyNumber"), Value("  a0 "));
    EXPECT_EQ(user.FilterValue("ESupplyNumber"), Value("  a1 "));
    EXPECT_EQ(user.FilterValue("BDeptNumber"), Value("a2"));
    EXPECT_EQ(user.FilterValue("EDeptNumber"), Value("a3"));
    EXPECT_EQ(user.FilterValue("BEmpNumber"), Value("a4"));
    EXPECT_EQ(user.FilterValue("EEmpNumber"), Value("a5"));

    SchemeUser money("Rpt10501");
    money.Filter(fill);
    EXPECT_EQ(money.FilterValue("AcctNumber"), Value("  a0 "));
    EXPECT_EQ(money.FilterValue("BDeptNumber"), Value("a1"));
    EXPECT_EQ(money.FilterValue("EDeptNumber"), Value("a2"));
    EXPECT_EQ(money.FilterValue("BEmpNumber"), Value("a3"));
    EXPECT_EQ(money.FilterValue("EEmpNumber"), Value("a4"));
    EXPECT_EQ(money.FilterValue("BillerName"), Value("  a5 "));
}

struct Box {
    std::string_view report, box, key;
    std::int16_t standard;
};

constexpr Box kBoxes[] = {
    {"Rpt10501", "ChkIncludeReceive", "IncludeR", 1},
    {"Rpt10501", "ChkIncludePay", "IncludeP", 1},
    {"Rpt10501", "ChkIncludePurchase", "IncludePurchase", 1},
    {"Rpt10501", "ChkIncludeSale", "IncludeSale", 1},
    {"Rpt10501", "chkIncludeBank", "IncludeBank", 1},
    {"Rpt10501", "chkIncludeXSFL", "IncludeXSFL", 1},
    {"Rpt10501", "chkIncludeCGFL", "IncludeCGFL", 1},
    {"Rpt10502", "chkNotShowBalZero", "NotShowBalZero", 1},
    {"Rpt10502", "chkNotShowBillZero", "NotShowBillZero", 1},
    {"Rpt10502", "chkIncludeOtherR", "IncludeOtherR", 1},
    {"Rpt10502", "chkIncludeWT", "IncludeWT", 0},
    {"Rpt10502", "chkIncludeFL", "IncludeFL", 1},
    {"Rpt10503", "chkNotShowBalZero", "NotShowBalZero", 0},
    {"Rpt10503", "chkOccurNotZero", "OccurNotZero", 0},
    {"Rpt10503", "chkNotShowZero", "NotShowZero", 0},
    {"Rpt10503", "chkIncludeOtherR", "IncludeOtherR", 1},
    {"Rpt10503", "chkMultiLevel", "MultiLevel", 0},
    {"Rpt10504", "chkIncludeOtherP", "IncludeOtherP", 1},
    {"Rpt10504", "chkIncludeGJ", "IncludeGJ", 0},
    {"Rpt10505", "chkIncludeOtherR", "IncludeOtherP", 1},  // the box kept the name of the receivable one
    {"Rpt10505", "chkIncludeGJ", "IncludeGJ", 0},
    {"Rpt10531", "chkIncludeWT", "IncludeWT", 0},
    {"Rpt10532", "chkIncludeOtherR", "IncludeOtherP", 1},
};

TEST(SchemeFields, ATickGoesUnderItsKeyAndTheDefaultsTakeItBack) {
    for (const Box& row : kBoxes) {
        SchemeUser user(row.report, 4);
        const std::int16_t turned = row.standard == 0 ? 1 : 0;
        user.Filter([&](Person& person) {
            EXPECT_EQ(person.Reads(row.box), ToText(row.standard)) << row.report << " " << row.box;
            EXPECT_TRUE(person.Check(row.box, turned));
        });
        EXPECT_EQ(user.FilterValue(row.key), Value(turned)) << row.report << " " << row.box;
        user.Filter([](Person& person) { person.schemeFrame().ShowDefaults(); });
        EXPECT_EQ(user.FilterValue(row.key), Value(row.standard)) << row.report << " " << row.box;
    }
}

TEST(SchemeFields, DefaultsLeaveTheCodesAndTheShortPanel) {
    SchemeUser user("Rpt10503");
    user.Show([](Person& person) {
        person.Text("txtItem(0)", "01");
        person.Text("txtItem(5)", "09");
        person.Date("DtpBDate", "2019-01-01");
        ControlOf<DatePicker>(person.form(), "BEGDate").SetValue(ToDate("2018-01-01"));
        ControlOf<TextBox>(person.form(), "txtItem(6)").SetText("short");
        person.schemeFrame().ShowDefaults();
        EXPECT_EQ(person.Reads("txtItem(0)"), "01");
        EXPECT_EQ(person.Reads("txtItem(5)"), "09");
        EXPECT_EQ(person.Reads("DtpBDate"), "2020-09-01");
        EXPECT_EQ(person.Reads("BEGDate"), "2018-01-01");
        EXPECT_EQ(person.Reads("txtItem(6)"), "short");
    });
}

TEST(SchemeFields, AFailingProfileLeavesTheFirstDayAndSetsTheOtherDefaults) {
    SchemeUser user("Rpt10503");
    user.host.platform.Component("QOREBCGLView.GLData.SystemProfile")
        .Raises("GetSystemProfile", Error(-1, "Server", "down"));
    user.Filter();
    EXPECT_EQ(user.FilterValue("BDate"), Value(ToDate("2020-09-15")));  // as the dialog was made
    EXPECT_EQ(user.FilterValue("IncludeOtherR"), Value(std::int16_t{1}));
}

TEST(SchemeFields, DatesAreAppliedWhereTheyAreDates) {
    const std::pair<Value, std::string_view> rows[] = {
        {Value(), "2020-09-15"},      {"", "2020-09-15"},
        {"2020-13-01", "2020-09-15"}, {Value::Null(), "2020-09-15"},
        {"44075", "2020-09-15"},      {44075, "2020-09-15"},
        {"2020-08-05", "2020-08-05"}, {ToDate("2020-08-06"), "2020-08-06"},
    };
    for (const auto& [saved, shown] : rows) {
        SchemeUser user("Rpt10503");
        user.Keep(10503, {{"BDate", saved}, {"EDate", saved}});
        user.Show([&](Person& person) {
            EXPECT_EQ(person.Reads("DtpBDate"), shown) << Shown(saved);
            EXPECT_EQ(person.Reads("DtpEDate"), shown) << Shown(saved);
        });
    }
}

TEST(SchemeFields, ASchemeWithoutKeysClearsTheBoxesAndLeavesTheDates) {
    SchemeUser user("Rpt10502");
    user.Keep(10501, {});
    user.Filter();
    EXPECT_EQ(user.FilterValue("BDate"), Value(ToDate("2020-09-15")));
    for (const char* key :
         {"NotShowBalZero", "NotShowBillZero", "IncludeOtherR", "CheckState", "IncludeFL"}) {
        EXPECT_EQ(user.FilterValue(key), Value(std::int16_t{0})) << key;
    }
}

TEST(SchemeFields, AValueThatAControlDoesNotTakeLeavesItAndTheOthersAreRead) {
    SchemeUser user("Rpt10502");
    user.Keep(10501, {{"NotShowBalZero", 7},
                      {"NotShowBillZero", "x"},
                      {"IncludeOtherR", true},
                      {"CheckState", 3},
                      {"BCustNumber", Value::Null()},
                      {"ECustNumber", 17},
                      {"IncludeFL", "1"}});
    user.Filter();
    EXPECT_EQ(user.FilterValue("NotShowBalZero"), Value(std::int16_t{0}));
    EXPECT_EQ(user.FilterValue("NotShowBillZero"), Value(std::int16_t{0}));
    EXPECT_EQ(user.FilterValue("IncludeOtherR"), Value(std::int16_t{0}));
    EXPECT_EQ(user.FilterValue("CheckState"), Value(std::int16_t{0}));
    EXPECT_EQ(user.FilterValue("BCustNumber"), Value(""));
    EXPECT_EQ(user.FilterValue("ECustNumber"), Value("17"));
    EXPECT_EQ(user.FilterValue("IncludeFL"), Value(std::int16_t{1}));
}

TEST(SchemeFields, EveryKeyThatIsReadBackComesBack) {
    for (const char* report : {"Rpt10501", "Rpt10502", "Rpt10503", "Rpt10504", "Rpt10505"}) {
        SchemeUser user(report);
        user.Filter([](Person& person) {
            for (Control* control : person.form().controls()) {
                if (!control->IsShown()) continue;
                if (control->kind() == Control::Kind::Check && control->name() != "chkIncludeWT") {
                    auto& box = static_cast<CheckBox&>(*control);
                    box.SetValue(1 - box.value());
                }
                if (control->kind() == Control::Kind::List) static_cast<DropDown&>(*control).SetListIndex(1);
                if (control->kind() == Control::Kind::Text) {
                    static_cast<TextBox&>(*control).SetText("1");
                }
            }
            person.Date("DtpBDate", "2019-03-04");
            person.Date("DtpEDate", "2019-05-06");
            person.schemeFrame().SaveScheme("all");
        });
        SchemeUser again = user.Another(report);
        again.Filter();
        EXPECT_EQ(Shown(again.report->Get("Filter")), Shown(user.report->Get("Filter"))) << report;
        EXPECT_EQ(again.FilterValue("BDate"), Value(ToDate("2019-03-04"))) << report;
        EXPECT_EQ(again.FilterValue("CheckState"), Value(std::int16_t{1})) << report;
    }
}

TEST(SchemeFields, AUserNumberBeyondSixteenBitsEndsTheDialogAndLeavesTheReportAsItWas) {
    SchemeUser user("Rpt10504");
    user.host.platform.session["PropsString"] = "UserID=40000;";
    user.Filter();
    EXPECT_TRUE(user.report->Get("Filter").IsNothing());
    EXPECT_EQ(Shown(user.report->Get("Result")), "{OK: False, Error: \"\"}");
}

}  // namespace
}  // namespace qor
