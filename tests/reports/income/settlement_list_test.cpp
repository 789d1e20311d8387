#include "reports/income/settlement_list.h"

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
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;

struct Twin {
    std::string reportClass, name, dialog, component;
    std::string party, bill, other, pre, rebate;  // captions of the dialog
    std::int32_t partyClass;
    std::string beginParty, endParty;
    std::vector<std::string> orders;
    std::string all, uncheckedRest;  // captions of the amounts
    bool hasCheckState;
};

void PrintTo(const Twin& twin, std::ostream* out) { *out << twin.reportClass; }

const Twin kTwins[] = {
    {
        .reportClass = "Rpt10525",
        .name = "收款一览表",
        .dialog = "frmFilter10525",
        .component = "QORMArApRpt.Data10525",
        .party = "客户代码:",
        .bill = "包括销售单",
        .other = "包括其他应收",
        .pre = "包括预收单",
        .rebate = "包括销售返利单",
        .partyClass = 1,
        .beginParty = "BCustNumber",
        .endParty = "ECustNumber",
        .orders = {"日期", "客户代码", "部门代码", "业务员代码", "应收余额"},
        .all = "应收金额$",
        .uncheckedRest = "应收余额$",
        .hasCheckState = true,
    },
    {
        .reportClass = "Rpt10526",
        .name = "付款一览表",
        .dialog = "frmFilter10526",
        .component = "QORMArApRpt.Data10526",
        .party = "供应商代码:",
        .bill = "包括购货单",
        .other = "包括其他应付",
        .pre = "包括预付单",
        .rebate = "包括采购返利单",
        .partyClass = 8,
        .beginParty = "BSupplyNumber",
        .endParty = "ESupplyNumber",
        .orders = {"日期", "供应商代码", "部门代码", "业务员代码", "应付余额"},
        .all = "应付金额$",
        .uncheckedRest = "应付余额$",
        .hasCheckState = false,
    },
};

constexpr std::string_view kNoBillType = "box \"必须至少选择一种单据类型!\" \"信息提示\" 64";

class SettlementList : public test::PlainDialogTest, public testing::WithParamInterface<Twin> {
 protected:
    void Filter(std::function<void(Person&)> person) {
        PlainDialogTest::Filter(GetParam().reportClass, std::move(person));
    }
    void SchemeHolds(std::vector<SchemeItem> items) {
        host.schemes.Save(ToInt32(GetParam().reportClass.substr(3)), "常用", items);
    }
    std::string KeysOfDialog() const {
        return "BDate EDate " + GetParam().beginParty + " " + GetParam().endParty +
               " BDeptNumber EDeptNumber BEmpNumber EEmpNumber chkShowNonZero chkIncludeBill chkIncludeOther "
               "chkIncludePre chkIncludeRebate cboSortBy " +
               (GetParam().hasCheckState ? "cmbCheckState " : "") + "OptSortAsc OptSortDesc UserID OK";
    }
};

INSTANTIATE_TEST_SUITE_P(Twins, SettlementList, testing::ValuesIn(kTwins),
                         [](const auto& twin) { return twin.param.reportClass; });

TEST_P(SettlementList, SaysWhatItIs) {
    report = host.Create(GetParam().reportClass);
    EXPECT_EQ(Shown(report->Get("Property")), "{Name: \"" + GetParam().name + "\", RptProperty: int16(4)}");
    EXPECT_EQ(report->FindMember("GetDetailReport"), kNoMember);
    EXPECT_EQ(report->FindMember("AddDataRight"), kNoMember);
}

TEST_P(SettlementList, NamesItsControls) {
    NoteFrames();
    Filter([this](Person& user) {
        EXPECT_EQ(user.form().ClassName(), GetParam().dialog);
        EXPECT_EQ(notes.at(2), "InitScheme " + GetParam().reportClass.substr(3) + " " + GetParam().name);
        EXPECT_EQ(user.Caption("Label4"), GetParam().party);
        EXPECT_EQ(user.Caption("Label3"), "部门代码:");
        EXPECT_EQ(user.Caption("Label7"), "业务员代码:");
        for (const std::string_view label : {"Label9", "Label8", "Label6"}) {
            EXPECT_EQ(user.Caption(label), "至: ") << label;
        }
        EXPECT_EQ(user.Caption("chkShowNonZero"), "已完全核销不显示");
        EXPECT_EQ(user.Caption("chkIncludeBill"), GetParam().bill);
        EXPECT_EQ(user.Caption("chkIncludeOther"), GetParam().other);
        EXPECT_EQ(user.Caption("chkIncludePre"), GetParam().pre);
        EXPECT_EQ(user.Caption("chkIncludeRebate"), GetParam().rebate);
        EXPECT_EQ(user.Caption("lblSort"), "排序：");
        EXPECT_EQ(user.Caption("OptSortAsc"), "升序");
        EXPECT_EQ(user.Caption("OptSortDesc"), "降序");
        EXPECT_THAT(test::ControlOf<DropDown>(user.form(), "cboSortBy").items(),
                    ElementsAreArray(GetParam().orders));
    });
}

TEST_P(SettlementList, OnlyTheReceiptListTellsBillsApartByTheirCheckState) {
    Filter([](Person& user) {
        EXPECT_EQ(user.form().Find("cmbCheckState") != nullptr, GetParam().hasCheckState);
        EXPECT_EQ(user.form().Find("lblStatus") != nullptr, GetParam().hasCheckState);
        if (!GetParam().hasCheckState) return;
        EXPECT_THAT(test::ControlOf<DropDown>(user.form(), "cmbCheckState").items(),
                    ElementsAre("已审核", "未审核", "全部"));
    });
}

TEST_P(SettlementList, PickerAndNameListServeTheSameClasses) {
    const std::string party = std::to_string(GetParam().partyClass);
    Filter([&](Person& user) {
        EXPECT_THAT(ItemClasses(user),
                    ElementsAre(party + " " + party, party + " " + party, "2 2", "2 2", "3 3", "3 3"));
    });
}

TEST_P(SettlementList, TheFilterHoldsTheDefaultsUnderEveryKeyInOrder) {
    Filter(ConfirmAtOnce);
    EXPECT_EQ(Keys(report->Get("Filter")), KeysOfDialog());
    const std::pair<std::string_view, Value> expected[] = {
        {"BDate", "2020-09-01"},
        {"EDate", "2020-09-15"},
        {GetParam().beginParty, ""},
        {"EEmpNumber", ""},
        {"chkShowNonZero", "1"},
        {"chkIncludeBill", "1"},
        {"chkIncludeOther", "1"},
        {"chkIncludePre", "0"},
        {"chkIncludeRebate", "1"},
        {"cboSortBy", "0"},
        {"OptSortAsc", "False"},
        {"OptSortDesc", "True"},
        {"UserID", 16},
        {"OK", true},
    };
    for (const auto& [key, value] : expected) {
        EXPECT_EQ(Entry(*report, "Filter", key), value) << key;
    }
    EXPECT_EQ(Entry(*report, "Filter", "cmbCheckState"), GetParam().hasCheckState ? Value("0") : Value());
}

// The sort order and the rebates.

TEST_P(SettlementList, TheSortOrderIsNeverSeenAndStillSaved) {
    for (const std::int32_t appType : {1, 2, 3, 4}) {
        host.platform.Bag().Put("AppType", appType);
        Filter([appType](Person& user) {
            for (const std::string_view control :
                 {"Frame2", "lblSort", "cboSortBy", "OptSortAsc", "OptSortDesc"}) {
                EXPECT_FALSE(user.Sees(control)) << control << " " << appType;
            }
        });
    }
    SchemeHolds(
        {{"chkIncludeBill", "1"}, {"cboSortBy", "3"}, {"OptSortAsc", "True"}, {"OptSortDesc", "False"}});
    Filter(ConfirmAtOnce);
    EXPECT_EQ(Entry(*report, "Filter", "cboSortBy"), Value("3"));
    EXPECT_EQ(Entry(*report, "Filter", "OptSortAsc"), Value("True"));
    EXPECT_EQ(Entry(*report, "Filter", "OptSortDesc"), Value("False"));
}

struct RebateCase {
    std::int32_t appType, industryType;
    bool shown;
};

constexpr RebateCase kRebateCases[] = {
    {1, 0, false}, {2, 0, false}, {3, 0, false}, {4, 0, true}, {4, 1, false}, {5, 0, false},
};

TEST_P(SettlementList, TheRebateBoxIsShownInOneTradeOnlyAndIsCheckedInEvery) {
    for (const RebateCase& row : kRebateCases) {
        host.platform.Bag().Put("AppType", row.appType);
        host.platform.Bag().Put("IndustryType", row.industryType);
        Filter([&row](Person& user) {
            EXPECT_EQ(user.Sees("chkIncludeRebate"), row.shown) << row.appType << " " << row.industryType;
            user.Click("cmdOK");
        });
        EXPECT_EQ(Entry(*report, "Filter", "chkIncludeRebate"), Value("1"));
    }
}

TEST_P(SettlementList, ASchemeTurnsTheRebatesOffAndTheDefaultsDoNotBringThemBack) {
    SchemeHolds({{"chkIncludeRebate", "0"}});
    Filter([](Person& user) {
        EXPECT_EQ(user.Reads("chkIncludeRebate"), "0");
        user.frame().ShowDefaults();
        EXPECT_EQ(user.Reads("chkIncludeRebate"), "0");
        user.Click("cmdOK");
    });
    EXPECT_EQ(Entry(*report, "Filter", "chkIncludeRebate"), Value("0"));
}

TEST_P(SettlementList, ApplicationType1TakesTheOtherBillsAway) {
    for (const std::int32_t appType : {1, 2, 3, 4}) {
        host.platform.Bag().Put("AppType", appType);
        Filter([appType](Person& user) {
            EXPECT_EQ(user.Sees("chkIncludeOther"), appType != 1) << appType;
            EXPECT_EQ(user.Reads("chkIncludeOther"), appType == 1 ? "0" : "1") << appType;
            if (GetParam().hasCheckState) {
                EXPECT_TRUE(user.Sees("cmbCheckState")) << appType;
            }
        });
    }
}

// At least one bill type.

struct BillTypes {
    std::int16_t bill, other, pre;
    bool accepted;
};

constexpr BillTypes kBillTypes[] = {
    {0, 0, 0, false}, {1, 0, 0, true}, {0, 1, 0, true}, {0, 0, 1, true}, {1, 1, 1, true},
};

TEST_P(SettlementList, OneBillTypeMustBeChecked) {
    for (const BillTypes& row : kBillTypes) {
        Filter([&](Person& user) {
            host.platform.log().clear();
            user.Check("chkIncludeBill", row.bill);
            user.Check("chkIncludeOther", row.other);
            user.Check("chkIncludePre", row.pre);
            EXPECT_EQ(user.Reads("chkIncludeRebate"), "1") << "rebates are no bill type";
            user.Click("cmdOK");
            EXPECT_EQ(user.form().IsVisible(), !row.accepted);
            EXPECT_EQ(Lines("box "), row.accepted ? Log{} : Log{std::string(kNoBillType)});
            EXPECT_EQ(ResultOf(user) == "{OK: False}", !row.accepted);
        });
        EXPECT_EQ(Entry(*report, "Result", "OK"), Value(row.accepted));
    }
}

TEST_P(SettlementList, AWrongDateOrderIsToldAlone) {
    SchemeHolds({{"BDate", "2020-09-20"},
                 {"EDate", "2020-09-10"},
                 {"chkIncludeBill", "0"},
                 {"chkIncludeOther", "0"},
                 {"chkIncludePre", "0"}});
    Filter([this](Person& user) {
        user.Click("cmdOK");
        EXPECT_THAT(Lines("box "), ElementsAre("box \"起始日期不能大于截止日期!\" \"信息提示：\" 64"));
        host.platform.log().clear();
        user.Click("cmdOK");
        EXPECT_THAT(Lines("box "), ElementsAre(kNoBillType));
        EXPECT_TRUE(user.form().IsVisible());
    });
}

TEST_P(SettlementList, ItsDatesKnowNoAccountStart) {
    host.platform.Component("QORMAppConnection.AppConnection").Answers("Execute", [](Arguments) -> Value {
        auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FStartDate", "FEndDate"});
        rows->AddRow({ToDate("2020-03-01"), ToDate("2020-03-31")});
        return rows;
    });
    Filter([](Person& user) {
        user.Date("DtpBDate", "1999-01-01");
        EXPECT_TRUE(user.Click("cmdOK"));
    });
    EXPECT_EQ(Entry(*report, "Filter", "BDate"), Value("1999-01-01"));
}

TEST(ReceiptList, AnEmptyCheckStateInASchemeLeavesTheList) {
    test::ReportHost host;
    std::string state;
    host.InDialog([&](Form& form) {
        Person user(form);
        user.Select("cmbCheckState", 2);
        host.schemes.Save(10525, "旧", {{"cmbCheckState", ""}});
        user.frame().LoadScheme("旧");
        state = user.Reads("cmbCheckState");
    });
    host.Create("Rpt10525")->Call("ShowFilter");
    EXPECT_EQ(state, "2");
}

TEST(ReceiptList, TheCheckStateTravelsAsText) {
    test::ReportHost host;
    host.InDialog([](Form& form) {
        Person user(form);
        user.Select("cmbCheckState", 2);
        user.Click("cmdOK");
    });
    const Ref<Object> report = host.Create("Rpt10525");
    report->Call("ShowFilter");
    EXPECT_EQ(Entry(*report, "Filter", "cmbCheckState"), Value("2"));
}

// The run.

TEST_P(SettlementList, TheColumnsNeverChange) {
    const Log columns{
        R"("单据日期$" "" "0" "FDate" int16(1) False)",
        R"("单据编号$" "" "1" "FBillNo" int16(1) False)",
        R"("单据类型$" "" "1" "FBillType" int16(1) False)",
        "\"" + GetParam().all + R"(" "" "6" "FAllAmount" int16(1) False)",
        R"("已核销金额$" "" "6" "FCheckAmount" int16(1) False)",
        "\"" + GetParam().uncheckedRest + R"(" "" "6" "FUnCheckAmount" int16(1) False)",
        R"("部门代码$" "" "1" "FDeptNumber" int16(0) False)",
        R"("部门名称$" "" "1" "FDeptName" int16(1) False)",
        R"("业务员代码$" "" "1" "FEmpNumber" int16(0) False)",
        R"("业务员名称$" "" "1" "FEmpName" int16(1) False)",
        R"("摘要$" "" "1" "FExplanation" int16(1) False)",
    };
    for (const std::int32_t appType : {1, 2, 4}) {
        host.platform.Bag().Put("AppType", appType);
        Run(GetParam().reportClass, ConfirmAtOnce);
        EXPECT_EQ(Columns(*report), columns) << appType;
    }
}

TEST_P(SettlementList, AsksItsOwnComponent) {
    Filter(ConfirmAtOnce);
    ExpectUsualFetch(GetParam().component, "GetRptData(\"UserID=16;UserName=demo;\", &{BDate: ");
    EXPECT_EQ(Keys(report->Get("Filter")), KeysOfDialog() + " DataRightWhere bLongNumber");
}

TEST_P(SettlementList, TheUsersRightsLimitTheParties) {
    host.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
    host.platform.Bag().Put("AuthrizeItemClassList", std::to_string(GetParam().partyClass));
    Run(GetParam().reportClass, ConfirmAtOnce);
    EXPECT_EQ(Entry(*report, "Filter", "DataRightWhere"),
              Value(" (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) "));
}

TEST_P(SettlementList, TheTitleHasTheDatesUnderTheirFilterKeys) {
    Run(GetParam().reportClass, ConfirmAtOnce);
    EXPECT_EQ(Shown(Entry(*report, "Result", "RptTitleObject")),
              "{ShowDateDiff: \"BDate,2020-09-01|EDate,2020-09-15\"}");
    Log captions;
    const Ref<Vector> title = As<Vector>(report->Get("Title"));
    for (std::int32_t i = 1; i <= title->Count(); ++i) {
        captions.push_back(ObjectIn(title->Item(i)).Get("Value", "FCaption").text());
    }
    EXPECT_THAT(captions, Contains("业务员代码[全部]"));
}

}  // namespace
}  // namespace qor
