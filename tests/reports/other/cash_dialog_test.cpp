#include "reports/other/cash_dialog.h"

#include "dialogs/plain_dialog_fixture.h"

namespace qor {
namespace {

using test::ControlOf;
using test::Entry;
using test::Log;
using test::Person;
using test::Shown;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kConfirmed = "{OK: True, Error: \"\"}";
constexpr const char* kRefused = "{OK: False, Error: \"\"}";

class CashDialogTest : public test::PlainDialogTest {
 protected:
    /// The first day of the account set's start period.
    void AccountSetStarts(std::string day) {
        host.platform.Component("QORMAppConnection.AppConnection")
            .Answers("Execute", [day](Arguments) -> Value {
                const auto period =
                    MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FStartDate", "FEndDate"});
                period->AddRow({day, day});
                return period;
            });
    }
    /// Runs the filter of a report and answers what the report made of it.
    std::string Open(const char* reportClass, std::function<void(Person&)> person) {
        Filter(reportClass, std::move(person));
        return Shown(report->Get("Result"));
    }
};

TEST_F(CashDialogTest, ShowTheseCaptions) {
    struct Caption {
        const char* control;
        const char* text;
    };
    const std::vector<Caption> both = {{"cmdOK", "确定(&O)"},
                                       {"cmdCacel", "取消(&E)"},
                                       {"Label1", "起始日期:"},
                                       {"Label2", "截至日期:"},
                                       {"chkNotShowBalZero", "余额为零不显示"},
                                       {"chkNotShowBillZero", "发生额为零不显示"},
                                       {"lblStatus", "单据状态："},
                                       {"chkIncludARAP", "包括其他应收应付"}};
    const auto expect = [](Person& user, const std::vector<Caption>& captions) {
        for (const Caption& caption : captions) {
            EXPECT_EQ(user.Caption(caption.control), caption.text) << caption.control;
        }
    };
    Open("Rpt10528", [&](Person& user) {
        EXPECT_EQ(user.form().ClassName(), "frmFilter10528");
        EXPECT_EQ(user.form().caption(), "过滤");
        expect(user, both);
        expect(user, {{"Label4", "结算账户:"},
                      {"Label9", "至: "},
                      {"Label7", "部门代码:"},
                      {"Label6", "至: "},
                      {"Label12", "经手人代码:"},
                      {"Label10", "至: "},
                      {"Label3", "制单人名称:"},
                      {"Label5", "（包含）"}});
    });
    Open("Rpt10529", [&](Person& user) {
        EXPECT_EQ(user.form().ClassName(), "frmFilter10529");
        expect(user, both);
        expect(user, {{"Label4", "账户代码:"}, {"Label9", "至: "}, {"Label3", "账户名称:"}});
    });
}

TEST_F(CashDialogTest, HaveTheirBoxesAndPickers) {
    Open("Rpt10528", [](Person& user) {
        EXPECT_NE(user.form().Find("txtItem(6)"), nullptr);
        EXPECT_EQ(user.form().Find("txtItem(7)"), nullptr);
        EXPECT_NE(user.form().Find("cmdItem(5)"), nullptr);
        EXPECT_EQ(user.form().Find("cmdItem(6)"), nullptr);
    });
    Open("Rpt10529", [](Person& user) {
        EXPECT_NE(user.form().Find("cmdItem(2)"), nullptr);
        EXPECT_EQ(user.form().Find("txtItem(3)"), nullptr);
    });
}

TEST_F(CashDialogTest, AreSetUpAtLoadBeforeAnythingIsShown) {
    for (const CashKind* kind : {&kCashJournal, &kCashLedger}) {
        const Ref<CashDialog> dialog = MakeRef<CashDialog>(host.process, *kind);
        dialog->Load();
        const auto& states = ControlOf<DropDown>(*dialog, "cmbCheckState");
        EXPECT_EQ(states.items(), (std::vector<std::string>{"已审核", "未审核", "全部"}));
        EXPECT_EQ(states.listIndex(), 0);
        EXPECT_EQ(Shown(dialog->Result()), "{OK: False}");
        dialog->Unload();
    }
}

TEST_F(CashDialogTest, StartTheirFrameAtEveryActivation) {
    NoteFrames();
    const auto starts = [this](const char* reportClass) {
        notes.clear();
        Open(reportClass, [](Person& user) { user.form().Activate(); });
        std::erase_if(notes, [](const std::string& note) { return note.starts_with("Set "); });
        return notes;
    };
    EXPECT_THAT(starts("Rpt10528"),
                ElementsAre("SchemeOption 1 False", "SchemeOption 2 False", "InitScheme 10528 现金银行日记账",
                            "InitScheme 10528 现金银行日记账"));
    EXPECT_THAT(starts("Rpt10529"),
                ElementsAre("SchemeOption 1 False", "SchemeOption 2 False", "InitScheme 10529 现金银行总账",
                            "InitScheme 10529 现金银行总账"));
}

TEST_F(CashDialogTest, RefreshTheirFrameWithoutItsHost) {
    NoteFrames();
    for (const char* reportClass : {"Rpt10528", "Rpt10529"}) {
        Open(reportClass, [this](Person& user) {
            notes.clear();
            user.frame().SaveScheme("甲");
            EXPECT_THAT(notes, testing::Contains("RefreshSchemes"));
            EXPECT_THAT(notes, testing::Not(testing::Contains("SchemeHost")));
        });
    }
}

TEST_F(CashDialogTest, AFrameWithoutTheOptionsIsToldAndSetUpAllTheSame) {
    NoteFrames(true);
    EXPECT_EQ(Open("Rpt10528", ConfirmAtOnce), kConfirmed);
    EXPECT_THAT(Told(), ElementsAre("没有这个选项 /  / 0"));
}

TEST_F(CashDialogTest, AnotherActivationLeavesWhatTheUserHasTyped) {
    Open("Rpt10528", [](Person& user) {
        user.Text("txtItem(6)", "王");
        user.Select("cmbCheckState", 2);
        user.form().Activate();
        EXPECT_EQ(user.Reads("txtItem(6)"), "王");
        EXPECT_EQ(user.Reads("cmbCheckState"), "2");
    });
}

// OK and Cancel.

TEST_F(CashDialogTest, UnloadThemselvesAtOkAndAtCancel) {
    for (const char* button : {"cmdOK", "cmdCacel"}) {
        Open("Rpt10528", [&](Person& user) {
            user.Click(button);
            EXPECT_FALSE(user.form().IsLoaded()) << button;
        });
    }
    EXPECT_EQ(Open("Rpt10529", [](Person& user) { user.Click("cmdCacel"); }), kRefused);
    EXPECT_TRUE(report->Get("Filter").IsNothing());
    EXPECT_EQ(Open("Rpt10529", [](Person&) {}), kRefused);
}

TEST_F(CashDialogTest, ABeginDateBeforeTheAccountSetsStartIsMovedUpAndOkIsAskedAgain) {
    AccountSetStarts("2020-05-01");
    for (const char* reportClass : {"Rpt10528", "Rpt10529"}) {
        host.platform.windows().boxes.clear();
        EXPECT_EQ(Open(reportClass,
                       [](Person& user) {
                           user.Date("DtpBDate", "2020-04-30");
                           user.Click("cmdOK");
                           EXPECT_TRUE(user.form().IsVisible());
                           EXPECT_EQ(user.Reads("DtpBDate"), "2020-05-01");
                           user.Click("cmdOK");
                       }),
                  kConfirmed);
        EXPECT_THAT(Told(), ElementsAre("起始日期不能小于系统启用日期! / 信息提示： / 64"));
        EXPECT_EQ(Entry(*report, "Filter", "BDate"), Value("2020-05-01"));
    }
}

TEST_F(CashDialogTest, TheStartIsCheckedAheadOfTheOrderOfTheDates) {
    AccountSetStarts("2020-09-20");
    EXPECT_EQ(Open("Rpt10528",
                   [](Person& user) {
                       user.Click("cmdOK");  // 09-01 to 09-15: before the start
                       user.Click("cmdOK");  // 09-20 to 09-15: the wrong way round
                       EXPECT_EQ(user.Reads("DtpBDate"), "2020-09-15");
                       user.Click("cmdOK");  // and before the start again
                       EXPECT_EQ(user.Reads("DtpBDate"), "2020-09-20");
                   }),
              kRefused);
    EXPECT_THAT(Told(), ElementsAre("起始日期不能小于系统启用日期! / 信息提示： / 64",
                                    "起始日期不能大于截止日期! / 信息提示： / 64",
                                    "起始日期不能小于系统启用日期! / 信息提示： / 64"));
}

TEST_F(CashDialogTest, TheTimeOfDayPlaysNoPart) {
    AccountSetStarts("2020-09-01 18:00:00");
    struct Range {
        const char* begin;
        const char* end;
    };
    for (const Range& range : {Range{"2020-09-01 06:00:00", "2020-09-15 18:00:00"},
                               Range{"2020-09-15 12:00:00", "2020-09-15 06:00:00"}}) {
        EXPECT_EQ(Open("Rpt10528",
                       [&](Person& user) {
                           ControlOf<DatePicker>(user.form(), "DtpBDate").SetValue(ToDate(range.begin));
                           ControlOf<DatePicker>(user.form(), "DtpEDate").SetValue(ToDate(range.end));
                           user.Click("cmdOK");
                       }),
                  kConfirmed)
            << range.begin;
        EXPECT_THAT(Told(), IsEmpty());
    }
}

TEST_F(CashDialogTest, AnAccountSetWithoutAStartSetsNoLimit) {
    EXPECT_EQ(Open("Rpt10528",
                   [](Person& user) {
                       user.Date("DtpBDate", "1990-01-01");
                       user.Click("cmdOK");
                   }),
              kConfirmed);
}

TEST_F(CashDialogTest, AStartThatCannotBeReadEndsTheFilterWithEverythingAsItWas) {
    host.platform.Component("QORMAppConnection.AppConnection")
        .Raises("Execute", Error(-7, "server", "no connection"));
    EXPECT_EQ(Open("Rpt10528", [](Person& user) { user.Click("cmdOK"); }), kRefused);
    EXPECT_TRUE(report->Get("Filter").IsNothing());
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(CashDialogTest, WhatTheUserSetsGoesIntoTheFilter) {
    EXPECT_EQ(Open("Rpt10528",
                   [](Person& user) {
                       for (int i = 0; i <= 6; ++i) {
                           user.Text("txtItem(" + std::to_string(i) + ")", std::to_string(i));
                       }
                       user.Check("chkNotShowBalZero", 1);
                       user.Check("chkNotShowBillZero", 1);
                       user.Check("chkIncludARAP", 1);
                       user.Select("cmbCheckState", 2);
                       user.Click("cmdOK");
                   }),
              kConfirmed);
    EXPECT_EQ(
        Shown(report->Get("Filter")),
        "{BDate: \"2020-09-01\", EDate: \"2020-09-15\", BAcctNumber: \"0\", EAcctNumber: \"1\", "
        "BDeptNumber: \"2\", EDeptNumber: \"3\", BEmpNumber: \"4\", EEmpNumber: \"5\", BillerName: \"6\", "
        "NotShowBalZero: \"1\", NotShowBillZero: \"1\", CheckState: int16(2), IncludARAP: \"1\", "
        "UserID: 16, OK: True, RptID: int16(10528)}");
}

// Pickers, type-ahead and schemes.

TEST_F(CashDialogTest, ThePickersOpenTheseClasses) {
    std::vector<std::string> asked;
    const auto answer = [&](Arguments a) -> Value {
        asked.push_back(Shown(*a[0]));
        return test::Readable({{"ReturnObject", test::Readable({{"Number", "77"}, {"Name", "零用金"}})}});
    };
    host.platform.Component("QOREBCGLView.GLView")
        .Answers("SubMesLookup", answer)
        .Answers("ItemLookUp", answer);
    Open("Rpt10528", [](Person& user) {
        for (int i = 0; i <= 5; ++i) {
            user.Click("cmdItem(" + std::to_string(i) + ")");
            EXPECT_EQ(user.Reads("txtItem(" + std::to_string(i) + ")"), "77") << i;
        }
        user.Key("txtItem(6)", 118);
        EXPECT_EQ(user.Reads("txtItem(6)"), "");
    });
    EXPECT_THAT(asked, ElementsAre("36", "36", "2", "2", "3", "3"));
    asked.clear();
    Open("Rpt10529", [](Person& user) {
        user.Click("cmdItem(0)");
        user.Key("txtItem(1)", 118);
        user.Key("txtItem(2)", 119);
        EXPECT_EQ(user.Reads("txtItem(0)") + user.Reads("txtItem(1)") + user.Reads("txtItem(2)"),
                  "7777零用金");
    });
    EXPECT_THAT(asked, ElementsAre("36", "36", "36"));
}

TEST_F(CashDialogTest, TheTypeAheadListServesDepartmentsAndEmployeesOfTheJournal) {
    const auto lists = [this](const char* reportClass, int boxes) {
        Log classes;
        for (const std::string& line : host.LogOf([&] {
                 Open(reportClass, [boxes](Person& user) {
                     for (int i = 0; i < boxes; ++i) {
                         user.Focus("txtItem(" + std::to_string(i) + ")");
                     }
                 });
             })) {
            if (line.starts_with("put QORGLNameListLib2.GLNameList.LookUpClassID")) classes.push_back(line);
        }
        return classes;
    };
    const std::string put = "put QORGLNameListLib2.GLNameList.LookUpClassID = ";
    EXPECT_THAT(lists("Rpt10528", 7), ElementsAre(put + "2", put + "2", put + "3", put + "3"));
    EXPECT_THAT(lists("Rpt10529", 3), IsEmpty());
}

TEST_F(CashDialogTest, ASavedSchemeComesBack) {
    host.schemes.Save(10529, "甲",
                      {{"BDate", "2020-08-01"},
                       {"EDate", "2020-08-31"},
                       {"AcctName", "零用金"},
                       {"NotShowBalZero", "1"},
                       {"CheckState", ""},
                       {"IncludARAP", "x"}});
    Open("Rpt10529", [](Person& user) {
        EXPECT_EQ(user.Reads("DtpBDate") + " " + user.Reads("DtpEDate"), "2020-08-01 2020-08-31");
        EXPECT_EQ(user.Reads("txtItem(2)"), "零用金");
        EXPECT_EQ(user.Reads("chkNotShowBalZero") + user.Reads("chkNotShowBillZero"), "10");
        EXPECT_EQ(user.Reads("cmbCheckState"), "0");
        EXPECT_EQ(user.Reads("chkIncludARAP"), "0");
    });
}

}  // namespace
}  // namespace qor
