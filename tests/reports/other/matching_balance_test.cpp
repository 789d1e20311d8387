#include "reports/other/matching_balance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/plain_dialog_fixture.h"

namespace qor {
namespace {

using test::Columns;
using test::Entry;
using test::Keys;
using test::Log;
using test::Person;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kReport = "Rpt10527";

constexpr std::string_view kKeysOfDialog =
    "BDate EDate BSupplyNumber ESupplyNumber BDeptNumber EDeptNumber BEmpNumber EEmpNumber BCustNumber "
    "ECustNumber chkIncludeGJ chkIncludeOtherPay chkIncludeOtherReceive chkIncludeHX chkNotShowBalZero "
    "chkNotShowBillZero ChkShowDetail CheckState UserID OK";

constexpr std::string_view kBoxes[] = {
    "chkIncludeGJ",      "chkIncludeOtherPay", "chkIncludeOtherReceive", "chkIncludeHX",
    "chkNotShowBalZero", "chkNotShowBillZero", "ChkShowDetail",
};

const Log kBillColumns{
    R"("日期$" "" "1" "FDate" int16(1) False)",
    R"("单据类型$" "" "1" "FBillTypeName" int16(1) False)",
    R"("单据编号$" "" "1" "FBillNo" int16(1) False)",
};

const Log kGoodsColumns{
    R"("商品名称$" "" "1" "FItemName" int16(1) False)", R"("商品编码$" "" "1" "FItemNumber" int16(1) False)",
    R"("规格型号$" "" "1" "FModel" int16(1) False)",    R"("基本单位$" "" "1" "FUnitName" int16(0) False)",
    R"("基本单位数量$" "" "2" "FQty" int16(0) False)",  R"("基本单位单价$" "" "4" "FPrice" int16(0) False)",
    R"("单位$" "" "1" "FShowUnitName" int16(1) False)", R"("数量$" "" "2" "FShowQty" int16(1) False)",
    R"("单价$" "" "4" "FShowPrice" int16(1) False)",
};

const Log kBalanceColumns{
    R"("摘要$" "" "1" "FExplanation" int16(1) False)",
    R"("预收金额$" "" "6" "FRecPreAmount" int16(1) False)",
    R"("应收金额$" "" "6" "FRecAmount" int16(1) False)",
    R"("收款金额$" "" "6" "FRecRealAmount" int16(1) False)",
    R"("预付金额$" "" "6" "FPayPreAmount" int16(1) False)",
    R"("应付金额$" "" "6" "FPayAmount" int16(1) False)",
    R"("付款金额$" "" "6" "FPayRealAmount" int16(1) False)",
    R"("期末应收$" "" "6" "FRecBalanceAmount" int16(1) False)",
    R"("期末应付$" "" "6" "FPayBalanceAmount" int16(1) False)",
    R"("部门$" "" "1" "FDeptName" int16(1) False)",
    R"("业务员$" "" "1" "FEmpName" int16(1) False)",
};

Log ColumnsWith(std::string_view voucherForceHidden, bool goods) {
    Log columns = kBillColumns;
    columns.push_back(R"("凭证字号$" "" "1" "FVchNumber" int16(1) )" + std::string(voucherForceHidden));
    if (goods) columns.insert(columns.end(), kGoodsColumns.begin(), kGoodsColumns.end());
    columns.insert(columns.end(), kBalanceColumns.begin(), kBalanceColumns.end());
    return columns;
}

class MatchingBalance : public test::PlainDialogTest {
 protected:
    MatchingBalance() { PartiesAreMatched(true); }
    void PartiesAreMatched(bool matched) {
        host.platform.Component("QORMArApRpt.Data").Answers("GetData", [matched](Arguments) -> Value {
            auto parties = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FItemID"});
            if (matched) parties->AddRow({1});
            return parties;
        });
    }
    void Filter(std::function<void(Person&)> person) { PlainDialogTest::Filter(kReport, std::move(person)); }
    void Run() { PlainDialogTest::Run(kReport, ConfirmAtOnce); }
    void SchemeHolds(std::vector<SchemeItem> items) { host.schemes.Save(10527, "常用", items); }
};

TEST_F(MatchingBalance, SaysWhatItIs) {
    report = host.Create(kReport);
    EXPECT_EQ(Shown(report->Get("Property")), "{Name: \"往来匹配余额表\", RptProperty: int16(1)}");
    EXPECT_EQ(report->FindMember("GetDetailReport"), kNoMember);
    EXPECT_EQ(report->FindMember("AddDataRight"), kNoMember);
}

// The gate.

TEST_F(MatchingBalance, WithoutAMatchedPartyTheDialogDoesNotOpen) {
    PartiesAreMatched(false);
    report = host.Create(kReport);
    bool opened = false;
    host.InDialog([&](Form&) { opened = true; });
    EXPECT_THAT(host.LogOf([this] { report->Call("ShowFilter"); }),
                ElementsAre("create QORMArApRpt.Data",
                            "call QORMArApRpt.Data.GetData(\"UserID=16;UserName=demo;\", "
                            "&\"select * from t_Organization where FMatchSupplyID<>0\")",
                            "release QORMArApRpt.Data",
                            "box \"没有客户供应商的匹配信息，请先在往来单位中进行设置!\" \"曜石提示\" 64"));
    EXPECT_FALSE(opened);
    EXPECT_EQ(Shown(report->Get("Result")), "{OK: False, Error: \"\"}");
    EXPECT_THAT(host.LogOf([this] { report->Call("GetReportData"); }), IsEmpty());
}

TEST_F(MatchingBalance, TheGateRunsAtEveryShowFilter) {
    PartiesAreMatched(false);
    report = host.Create(kReport);
    report->Call("ShowFilter");
    PartiesAreMatched(true);
    bool opened = false;
    host.InDialog([&](Form&) { opened = true; });
    report->Call("ShowFilter");
    EXPECT_TRUE(opened);
}

TEST_F(MatchingBalance, AClosedGateLeavesAnEarlierFilterAsItWas) {
    Run();
    const std::string result = Shown(report->Get("Result"));
    PartiesAreMatched(false);
    report->Call("ShowFilter");
    EXPECT_EQ(Shown(report->Get("Result")), result);
    EXPECT_FALSE(report->Get("Filter").IsNothing());
}

TEST_F(MatchingBalance, AFailingGateIsPassedOverInSilence) {
    const auto nothingHappens = [this](std::string_view why) {
        report = host.Create(kReport);
        bool opened = false;
        host.InDialog([&](Form&) { opened = true; });
        report->Call("ShowFilter");
        EXPECT_FALSE(opened) << why;
        EXPECT_EQ(Shown(report->Get("Result")), "{OK: False, Error: \"\"}") << why;
        EXPECT_THAT(Lines("box "), IsEmpty()) << why;
    };
    host.platform.Component("QORMArApRpt.Data").Raises("GetData", Error(-1, "Server", "down"));
    nothingHappens("a failing call");
    host.platform.Component("QORMArApRpt.Data").Answers("GetData", Value::Nothing());
    nothingHappens("no record set");
    host.platform.Remove("QORMArApRpt.Data");
    nothingHappens("no server");
}

// The dialog.

TEST_F(MatchingBalance, NamesItsControls) {
    NoteFrames();
    Filter([this](Person& user) {
        EXPECT_EQ(user.form().ClassName(), "frmFilter10527");
        EXPECT_EQ(notes.at(2), "InitScheme 10527 往来匹配余额表");
        EXPECT_EQ(user.Caption("Label4"), "供应商代码:");
        EXPECT_EQ(user.Caption("Label3"), "部门代码:");
        EXPECT_EQ(user.Caption("Label7"), "业务员代码:");
        EXPECT_EQ(user.Caption("Label12"), "客户代码:");
        EXPECT_EQ(user.Caption("lblStatus"), "单据状态:");
        const std::string_view captions[] = {"包括估价业务",  "包括其他应付",   "包括其他应收",
                                             "包括核销单",    "余额为零不显示", "发生额为零不显示",
                                             "包括货品明细项"};
        for (std::size_t i = 0; i < std::size(kBoxes); ++i) {
            EXPECT_EQ(user.Caption(kBoxes[i]), captions[i]);
        }
    });
}

TEST_F(MatchingBalance, PickersGoByTheLastDigitOfTheirLongClassNumbers) {
    Filter([this](Person& user) {
        EXPECT_THAT(ItemClasses(user), ElementsAre("8 8", "8 8", "2 2", "2 2", "3 3", "3 3", "1 1", "1 1"));
    });
}

TEST_F(MatchingBalance, TheDefaultsCheckEverything) {
    Filter([](Person& user) {
        for (const std::string_view box : kBoxes) {
            EXPECT_EQ(user.Reads(box), "1") << box;
            user.Check(box, 0);
        }
        user.frame().ShowDefaults();
        for (const std::string_view box : kBoxes) {
            EXPECT_EQ(user.Reads(box), "1") << box;
        }
        EXPECT_EQ(user.Reads("cmbCheckState"), "0");
        EXPECT_EQ(user.Reads("DtpBDate"), "2020-09-01");
        EXPECT_EQ(user.Reads("DtpEDate"), "2020-09-15");
    });
}

TEST_F(MatchingBalance, TheFilterHoldsEveryKeyInOrder) {
    Filter(ConfirmAtOnce);
    EXPECT_EQ(Keys(report->Get("Filter")), kKeysOfDialog);
    EXPECT_EQ(Entry(*report, "Filter", "ChkShowDetail"), Value("1"));
    EXPECT_EQ(Entry(*report, "Filter", "CheckState"), Value(std::int16_t{0}));
    EXPECT_EQ(Entry(*report, "Filter", "UserID"), Value(16));
    EXPECT_EQ(Entry(*report, "Filter", "OK"), Value(true));
}

TEST_F(MatchingBalance, ApplicationType1ClosesTheGapOfTheHiddenBoxes) {
    host.platform.Bag().Put("AppType", 1);
    SchemeHolds({{"chkIncludeGJ", "0"}});
    Filter([](Person& user) {
        for (const std::string_view box : {"chkIncludeGJ", "chkIncludeOtherReceive", "chkIncludeOtherPay"}) {
            EXPECT_FALSE(user.Sees(box)) << box;
            EXPECT_EQ(user.Reads(box), "0") << box;
        }
        EXPECT_EQ(user.Any("chkIncludeHX").bounds().top, 105);
        EXPECT_EQ(user.Any("ChkShowDetail").bounds().left, 120);
        EXPECT_EQ(user.Any("ChkShowDetail").bounds().top, 480);
        EXPECT_EQ(user.Any("lblStatus").bounds().top, 855);
        EXPECT_EQ(user.Any("cmbCheckState").bounds().top, 810);
        EXPECT_TRUE(user.Sees("cmbCheckState"));
    });
}

TEST_F(MatchingBalance, OtherApplicationTypesLeaveTheLayout) {
    for (const std::int32_t appType : {2, 3, 4}) {
        host.platform.Bag().Put("AppType", appType);
        Filter([](Person& user) {
            for (const std::string_view box : kBoxes) {
                EXPECT_TRUE(user.Sees(box)) << box;
            }
            EXPECT_NE(user.Any("chkIncludeHX").bounds().top, 105);
            EXPECT_NE(user.Any("ChkShowDetail").bounds().left, 120);
        });
    }
}

TEST_F(MatchingBalance, AHiddenBoxThatASchemeOrTheDefaultsSetStaysHidden) {
    host.platform.Bag().Put("AppType", 1);
    Filter([](Person& user) {
        EXPECT_EQ(user.Reads("chkIncludeGJ"), "1") << "the defaults come after Load";
        EXPECT_FALSE(user.Sees("chkIncludeGJ"));
    });
    SchemeHolds({{"chkIncludeOtherPay", "1"}});
    Filter([](Person& user) {
        EXPECT_EQ(user.Reads("chkIncludeOtherPay"), "1");
        EXPECT_EQ(user.Reads("chkIncludeGJ"), "0");
        EXPECT_FALSE(user.Sees("chkIncludeOtherPay"));
    });
}

TEST_F(MatchingBalance, NoControlCoversAnother) {
    for (const std::int32_t appType : {1, 2}) {
        host.platform.Bag().Put("AppType", appType);
        Filter([](Person& user) {
            std::vector<Control*> inside;
            for (Control* control : user.form().controls()) {
                if (control->IsShown() && control->container() == &user.Any("Frame1"))
                    inside.push_back(control);
            }
            ASSERT_GE(inside.size(), 6u);
            for (Control* a : inside) {
                const Bounds& x = a->bounds();
                EXPECT_LE(x.top + x.height, user.Any("Frame1").bounds().height) << a->name();
                for (Control* b : inside) {
                    const Bounds& y = b->bounds();
                    const bool apart = x.left + x.width <= y.left || y.left + y.width <= x.left ||
                                       x.top + x.height <= y.top || y.top + y.height <= x.top;
                    EXPECT_TRUE(a == b || apart) << a->name() << " and " << b->name();
                }
            }
        });
    }
}

TEST_F(MatchingBalance, ItsDatesKnowNoLowerLimit) {
    Filter([](Person& user) {
        user.Date("DtpBDate", "1999-01-01");
        EXPECT_TRUE(user.Click("cmdOK"));
    });
    EXPECT_EQ(Entry(*report, "Filter", "BDate"), Value("1999-01-01"));
}

// The run.

TEST_F(MatchingBalance, TheGoodsColumnsFollowTheFilter) {
    Run();
    EXPECT_EQ(Columns(*report), ColumnsWith("False", true));
    const struct {
        Value showDetail;
        bool goods;
    } cases[] = {{"0", false}, {"1", true},      {"1.0", true}, {"11", false},
                 {"", false},  {Value(), false}, {1, true}};
    for (const auto& row : cases) {
        report->Get("Filter").object()->Put("Value", "ChkShowDetail", row.showDetail);
        report->Call("Refresh");
        EXPECT_EQ(Columns(*report), ColumnsWith("False", row.goods)) << Shown(row.showDetail);
    }
}

TEST_F(MatchingBalance, WithoutTheLedgerTheVoucherIsForcedHidden) {
    host.platform.Bag().Put("GLAndICUnite", false);
    Run();
    EXPECT_EQ(Columns(*report), ColumnsWith("True", true));
}

TEST_F(MatchingBalance, TheFetchTalksToTheServerInThisOrder) {
    Filter(ConfirmAtOnce);
    ExpectUsualFetch("QORMArApRpt.Data", "GetRpt10527Data(\"UserID=16;UserName=demo;\", &{BDate: ");
    EXPECT_EQ(Keys(report->Get("Filter")), std::string(kKeysOfDialog) + " DataRightWhere bLongNumber");
}

TEST_F(MatchingBalance, BothSidesAreLimitedByTheUsersRights) {
    host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
    const std::string supplier = " (CharIndex('16',ts.FRightUserID)>0 OR ISNULL(ts.FItemID,0)=0) ";
    const std::string customer = " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";
    const auto clauseFor = [this](std::string_view classes) {
        host.platform.Bag().Put("AuthrizeItemClassList", std::string(classes));
        Run();
        return Entry(*report, "Filter", "DataRightWhere");
    };
    EXPECT_EQ(clauseFor("1,8"), Value(supplier + " And " + customer));
    EXPECT_EQ(clauseFor("8"), Value(supplier));
    EXPECT_EQ(clauseFor("1"), Value(customer));
}

TEST_F(MatchingBalance, TheTitleHasTheDatesUnderTheirFilterKeys) {
    Run();
    EXPECT_EQ(Shown(Entry(*report, "Result", "RptTitleObject")),
              "{ShowDateDiff: \"BDate,2020-09-01|EDate,2020-09-15\"}");
    EXPECT_EQ(As<Vector>(report->Get("Title"))->Count(), 4);
}

}  // namespace
}  // namespace qor
