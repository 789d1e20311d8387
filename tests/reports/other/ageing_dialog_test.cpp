#include "reports/other/ageing_dialog.h"

#include "dialogs/plain_dialog_fixture.h"
#include "support/grid_text.h"

namespace qor {
namespace {

using test::CellText;
using test::ControlOf;
using test::Entry;
using test::LockText;
using test::Log;
using test::Person;
using test::Shown;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kStored = "1至30天,30,0|31至60天,60,31|61至90天,90,61|91天以上,......,91";

class AgeingDialogTest : public test::PlainDialogTest {
 protected:
    AgeingDialogTest() {
        const Ref<Dictionary> profile = MakeRef<OrderedDictionary>();
        profile->Put("ZLFXB", "1");
        host.platform.userProfile["QOR/ARAP"] = profile;
    }
    /// Runs the filter and answers what the report made of it.
    std::string Open(std::function<void(Person&)> person) {
        Filter("Rpt10530", std::move(person));
        return Shown(report->Get("Result"));
    }
    static Grid& GridOf(Person& user) { return ControlOf<Grid>(user.form(), "grid"); }
};

constexpr const char* kConfirmed = "{OK: True, Error: \"\"}";
constexpr const char* kRefused = "{OK: False, Error: \"\"}";

TEST_F(AgeingDialogTest, ComesUpWithItsDefaults) {
    Open([](Person& user) {
        EXPECT_EQ(user.form().ClassName(), "frmFirter10530");
        EXPECT_EQ(user.form().caption(), "过滤");
        EXPECT_EQ(user.Reads("DtpEDate"), "2020-09-15");
        EXPECT_EQ(user.form().Find("DtpBDate"), nullptr);
        EXPECT_EQ(ControlOf<DropDown>(user.form(), "cmbClassType").items(),
                  (std::vector<std::string>{"客户", "供应商"}));
        EXPECT_EQ(user.Reads("cmbClassType"), "0");
        EXPECT_EQ(user.Reads("chkRPOher"), "1");
        EXPECT_EQ(CellText(GridOf(user)), std::string(kStored) + "|,,");
        EXPECT_EQ(LockText(GridOf(user), 1), "LLLLL");
    });
}

TEST_F(AgeingDialogTest, ShowsTheseCaptions) {
    Open([](Person& user) {
        struct Shown {
            const char* control;
            const char* caption;
        };
        for (const Shown& c :
             {Shown{"cmdOK", "确定(&O)"}, Shown{"cmdCacel", "取消(&E)"},
              Shown{"chkRPOher", "包括其他应收应付"}, Shown{"Frame1", "账龄分组"}, Shown{"lblTitile", "标题"},
              Shown{"lblDayNum", "天数"}, Shown{"cmdAddRow", "增加行"}, Shown{"cmdDelRow", "删除行"},
              Shown{"Label2", "截至日期:"}, Shown{"Label3", "核算项目:"}, Shown{"Label4", "往来单位代码:"},
              Shown{"Label5", "至:"}}) {
            EXPECT_EQ(user.Caption(c.control), c.caption) << c.control;
        }
    });
}

TEST_F(AgeingDialogTest, LowerApplicationTypesDoNotSeeTheBoxThatStaysChecked) {
    for (const std::int32_t appType : {0, 1, 2, 4}) {
        host.platform.Bag().Put("AppType", appType);
        Open([&](Person& user) {
            EXPECT_EQ(user.Sees("chkRPOher"), appType >= 2) << appType;
            user.Click("cmdOK");
        });
        EXPECT_EQ(Entry(*report, "Filter", "chkRPOher"), Value("1"));
    }
}

TEST_F(AgeingDialogTest, TheOneDateIsGuardedAsBothEndsOfTheRange) {
    host.platform.Component("QORMAppConnection.AppConnection").Answers("Execute", [](Arguments) -> Value {
        const auto period = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FStartDate", "FEndDate"});
        period->AddRow({"2020-01-01", "2020-01-31"});
        return period;
    });
    Open([](Person& user) {
        EXPECT_TRUE(user.Date("DtpEDate", "2019-12-31"));
        EXPECT_FALSE(user.Focus("txtItem(0)"));
        EXPECT_EQ(user.Reads("DtpEDate"), "2020-01-01");
    });
    EXPECT_THAT(Told(), ElementsAre("[截至日期]不能小于账套启用日期。 /  / 64"));
}

TEST_F(AgeingDialogTest, AnotherPartyEmptiesTheCodes) {
    Open([](Person& user) {
        user.Text("txtItem(0)", "01");
        user.Text("txtItem(1)", "09");
        user.Select("cmbClassType", 0);
        EXPECT_EQ(user.Reads("txtItem(0)") + user.Reads("txtItem(1)"), "0109");
        user.Select("cmbClassType", 1);
        EXPECT_EQ(user.Reads("txtItem(0)") + user.Reads("txtItem(1)"), "");
        user.Text("txtItem(0)", "08");
        user.Click("cmdOK");
    });
    EXPECT_EQ(Entry(*report, "Filter", "BSupplyNumber"), Value("08"));
    EXPECT_EQ(Entry(*report, "Filter", "cmbClassType"), Value("1"));
}

TEST_F(AgeingDialogTest, ThePickerOpensTheClassOfTheParty) {
    std::vector<std::string> asked;
    host.platform.Component("QOREBCGLView.GLView").Answers("ItemLookUp", [&](Arguments a) -> Value {
        asked.push_back(Shown(*a[0]) + " " + Shown(*a[1]));
        return test::Readable({{"ReturnObject", test::Readable({{"Number", "77"}})}});
    });
    const Log log = host.LogOf([&] {
        Open([](Person& user) {
            user.Text("txtItem(0)", "a");
            user.Click("cmdItem(0)");
            user.Select("cmbClassType", 1);
            user.Text("txtItem(1)", "b");
            user.Key("txtItem(1)", 118);
            user.Key("txtItem(1)", 119);
            EXPECT_EQ(user.Reads("txtItem(1)"), "77");
            user.Click("cmdOK");
        });
    });
    EXPECT_THAT(asked, ElementsAre("1 \"a\"", "8 \"b\"", "8 \"77\""));
    EXPECT_THAT(log, Not(Contains("create QORGLNameListLib2.GLNameList")));
}

TEST_F(AgeingDialogTest, AnotherActivationStartsNothingAnew) {
    Open([](Person& user) {
        user.Select("cmbClassType", 1);
        user.Text("txtItem(0)", "x");
        user.form().Activate();
        EXPECT_EQ(user.Reads("cmbClassType"), "1");
        EXPECT_EQ(user.Reads("txtItem(0)"), "x");
        EXPECT_EQ(ControlOf<DropDown>(user.form(), "cmbClassType").items().size(), 2u);
    });
}

// The grid under the user's hand.

TEST_F(AgeingDialogTest, ComingToTheGridRefreshesTheLocks) {
    Open([](Person& user) {
        Grid& grid = GridOf(user);
        EXPECT_EQ(LockText(grid, 2), ".....");
        user.Row("grid", 1);
        EXPECT_EQ(LockText(grid, 2), ".....L");
        EXPECT_EQ(LockText(grid, 1), "LLLLLL");
        user.Click("cmdAddRow");
        EXPECT_EQ(LockText(grid, 2), ".....L.");
        user.Row("grid", 1);
        EXPECT_EQ(LockText(grid, 2), ".....LL");
    });
}

TEST_F(AgeingDialogTest, TheUserReachesTheLimitsDownToTheFirstFreeRowOnly) {
    Open([](Person& user) {
        EXPECT_FALSE(user.Cell("grid", 1, 1, "x"));
        EXPECT_FALSE(user.Cell("grid", 1, 3, "5"));
        EXPECT_FALSE(user.Cell("grid", 6, 2, "200"));
        EXPECT_TRUE(user.Cell("grid", 4, 2, "120"));
        EXPECT_EQ(CellText(GridOf(user)),
                  "1至30天,30,0|31至60天,60,31|61至90天,90,61|91至120天,120,91|121天以上,......,121|,,|,,");
        user.Click("cmdOK");
    });
    EXPECT_EQ(Entry(*report, "Filter", "grid"),
              Value("1至30天,30,0|31至60天,60,31|61至90天,90,61|91至120天,120,91|121天以上,......,121"));
    EXPECT_EQ(As<Vector>(Entry(*report, "Filter", "Vect"))->Count(), 5);
}

TEST_F(AgeingDialogTest, WhatIsRefusedIsToldInABox) {
    Open([](Person& user) { EXPECT_TRUE(user.Cell("grid", 2, 2, "12.5")); });
    EXPECT_THAT(Told(), ElementsAre("天数需要输入整数 / 信息提示 / 64"));
}

TEST_F(AgeingDialogTest, DeletedRowsBringTheOpenGroupUpToTheFirstRow) {
    EXPECT_EQ(Open([](Person& user) {
                  for (int i = 0; i < 3; ++i) {
                      user.Row("grid", 1);
                      user.Click("cmdDelRow");
                  }
                  EXPECT_EQ(GridOf(user).GetText(2, 1), "......");
                  user.Click("cmdOK");
              }),
              kConfirmed);
    EXPECT_EQ(Entry(*report, "Filter", "grid"), Value("91天以上,......,91"));
    report->Call("Refresh");
    EXPECT_EQ(test::Columns(*report).size(), 4u);
}

// OK and Cancel.

TEST_F(AgeingDialogTest, ARefusedOkKeepsTheDialogOpenAndLeavesNothingBehind) {
    EXPECT_EQ(Open([](Person& user) {
                  user.Cell("grid", 2, 2, "abc");
                  user.Click("cmdOK");
                  EXPECT_TRUE(user.form().IsVisible());
                  const auto& dialog = dynamic_cast<FilterDialog&>(user.form());
                  EXPECT_EQ(test::Keys(dialog.Result()),
                            "EDate BSupplyNumber ESupplyNumber cmbClassType chkRPOher grid OK");
                  user.Cell("grid", 2, 2, "60");
                  user.Click("cmdOK");
                  EXPECT_FALSE(user.form().IsVisible());
              }),
              kConfirmed);
    EXPECT_THAT(Told(),
                ElementsAre("不能设置小于等于0的天数 / 信息提示 / 64",
                            "账龄分组条件错误,下面一行的天数不能小于等于上一行的天数 / 信息提示 / 64"));
    EXPECT_EQ(test::Keys(report->Get("Filter")),
              "EDate BSupplyNumber ESupplyNumber cmbClassType chkRPOher grid Vect UserID OK");
}

TEST_F(AgeingDialogTest, ACancelAfterARefusedOkLeavesTheFramesDictionaryWithOkFalse) {
    Ref<Dictionary> left;
    EXPECT_EQ(Open([&](Person& user) {
                  user.Cell("grid", 2, 2, "abc");
                  user.Click("cmdOK");
                  user.Click("cmdCacel");
                  left = dynamic_cast<FilterDialog&>(user.form()).Result();
              }),
              kRefused);
    EXPECT_EQ(left->Get("OK"), Value(false));
    EXPECT_TRUE(left->Lookup("grid"));
    EXPECT_FALSE(left->Lookup("Vect"));
    EXPECT_TRUE(report->Get("Filter").IsNothing());
}

TEST_F(AgeingDialogTest, ADialogLeftOpenIsCancelled) {
    EXPECT_EQ(Open([](Person&) {}), kRefused);
}

TEST_F(AgeingDialogTest, AUserNumberThatIsMissingEndsTheFilterWithEverythingAsItWas) {
    host.platform.session["PropsString"] = "UserName=demo;";
    EXPECT_EQ(Open([](Person& user) { user.Click("cmdOK"); }), kRefused);
    EXPECT_TRUE(report->Get("Filter").IsNothing());
}

// Schemes.

TEST_F(AgeingDialogTest, ASavedSchemeComesBackWithItsGroups) {
    host.schemes.Save(10530, "甲",
                      {{"EDate", "2020-08-31"},
                       {"cmbClassType", "0"},
                       {"BSupplyNumber", "01"},
                       {"ESupplyNumber", "09"},
                       {"chkRPOher", "0"},
                       {"grid", "1至9天,9,1|10天以上,......,10"}});
    Open([](Person& user) {
        EXPECT_EQ(user.Reads("DtpEDate"), "2020-08-31");
        EXPECT_EQ(user.Reads("txtItem(0)") + user.Reads("txtItem(1)"), "0109");
        EXPECT_EQ(user.Reads("chkRPOher"), "0");
        EXPECT_EQ(CellText(GridOf(user)), "1至9天,9,1|10天以上,......,10|,,|,,|,,");
        user.Click("cmdOK");
    });
    EXPECT_EQ(Entry(*report, "Filter", "grid"), Value("1至9天,9,1|10天以上,......,10"));
}

TEST_F(AgeingDialogTest, ASchemeOfSuppliersLosesTheCodesThatAreReadBeforeTheParty) {
    host.schemes.Save(
        10530, "甲",
        {{"EDate", "2020-08-31"}, {"BSupplyNumber", "01"}, {"ESupplyNumber", "09"}, {"cmbClassType", "1"}});
    Open([](Person& user) {
        EXPECT_EQ(user.Reads("txtItem(0)") + user.Reads("txtItem(1)"), "");
        EXPECT_EQ(user.Reads("cmbClassType"), "1");
    });
}

TEST_F(AgeingDialogTest, ABrokenSchemeIsReadAsFarAsItGoes) {
    host.schemes.Save(10530, "甲",
                      {{"EDate", "no date"},
                       {"BSupplyNumber", "01"},
                       {"cmbClassType", "9"},
                       {"chkRPOher", "x"},
                       {"grid", "1至9天,9"}});
    Open([](Person& user) {
        EXPECT_EQ(user.Reads("DtpEDate"), "2020-09-15");
        EXPECT_EQ(user.Reads("txtItem(0)"), "01");
        EXPECT_EQ(user.Reads("cmbClassType"), "0");
        EXPECT_EQ(user.Reads("chkRPOher"), "1");
        EXPECT_EQ(CellText(GridOf(user)), "1至9天,9,|,,|,,|,,|,,");
    });
    EXPECT_THAT(host.platform.windows().boxes, IsEmpty());
}

TEST_F(AgeingDialogTest, TheDefaultsLeaveTheGridAlone) {
    Open([](Person& user) {
        user.Cell("grid", 3, 2, "100");
        user.Text("txtItem(1)", "09");
        user.Check("chkRPOher", 0);
        user.Date("DtpEDate", "2020-09-10");
        const std::string cells = CellText(GridOf(user));
        user.frame().ShowDefaults();
        EXPECT_EQ(CellText(GridOf(user)), cells);
        EXPECT_EQ(user.Reads("txtItem(1)"), "");
        EXPECT_EQ(user.Reads("chkRPOher"), "1");
        EXPECT_EQ(user.Reads("DtpEDate"), "2020-09-15");
    });
}

TEST_F(AgeingDialogTest, ASavedSchemeHoldsTheGroupsAsText) {
    Open([](Person& user) { user.frame().SaveScheme("乙"); });
    const auto saved = host.schemes.Find(10530, "乙");
    ASSERT_TRUE(saved);
    EXPECT_THAT(*saved, ElementsAre(SchemeItem{"EDate", "2020-09-15"}, SchemeItem{"BSupplyNumber", ""},
                                    SchemeItem{"ESupplyNumber", ""}, SchemeItem{"cmbClassType", "0"},
                                    SchemeItem{"chkRPOher", "1"}, SchemeItem{"grid", kStored}));
}

}  // namespace
}  // namespace qor
