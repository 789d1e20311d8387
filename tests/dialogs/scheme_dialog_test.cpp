// The life of the scheme dialogs: loading, activation, the panels, the picker buttons and closing.
#include "dialogs/scheme_dialog.h"

#include <gmock/gmock.h>

#include "support/scheme_user.h"

namespace qor {
namespace {

using test::ControlOf;
using test::Person;
using test::SchemeUser;
using test::Shown;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::string_view kReports[] = {"Rpt10501", "Rpt10502", "Rpt10503", "Rpt10504",
                                         "Rpt10505", "Rpt10531", "Rpt10532"};

std::string FormOf(std::string_view report) { return "frmFilter" + std::string(report.substr(3)); }

TEST(SchemeDialog, ComesUpOnTheWholePanelWithTheFrameInFocus) {
    for (const std::string_view report : kReports) {
        SchemeUser user(report);
        user.Show([&](Person& person) {
            EXPECT_EQ(person.form().ClassName(), FormOf(report));
            EXPECT_EQ(person.form().caption(), "过滤");
            EXPECT_EQ(person.FocusedControl(), "QORRptFilter");
            EXPECT_FALSE(person.Sees("PictureCommon"));
            EXPECT_TRUE(person.Sees("DtpBDate"));
            EXPECT_THAT(ControlOf<DropDown>(person.form(), "cmbCheckState").items(),
                        ElementsAre("已审核", "未审核", "全部"));
            EXPECT_EQ(person.Reads("cmbCheckState"), "0");
        });
    }
}

TEST(SchemeDialog, NoTwoControlsShareAName) {
    for (const std::string_view report : kReports) {
        SchemeUser user(report);
        user.Show([&](Person& person) {
            for (Control* control : person.form().controls()) {
                EXPECT_EQ(person.form().Find(control->name()), control) << report << " " << control->name();
            }
        });
    }
}

bool Overlap(const Bounds& a, const Bounds& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

TEST(SchemeDialog, NothingOverlapsAndEverythingStandsInsideItsContainer) {
    for (const std::string_view report : kReports) {
        for (const bool whole : {true, false}) {
            SchemeUser user(report, 4);
            user.Show([&](Person& person) {
                if (person.form().Find("chkMultiLevel")) person.Check("chkMultiLevel", 1);
                person.schemeFrame().SwitchPanel(whole);
                const auto& controls = person.form().controls();
                for (Control* a : controls) {
                    if (!a->IsShown()) continue;
                    const auto [width, height] = a->container() ? Form::Size{a->container()->bounds().width,
                                                                             a->container()->bounds().height}
                                                                : person.form().size();
                    EXPECT_LE(a->bounds().left + a->bounds().width, width) << report << " " << a->name();
                    EXPECT_LE(a->bounds().top + a->bounds().height, height) << report << " " << a->name();
                    for (Control* b : controls) {
                        if (a == b || !b->IsShown() || a->container() != b->container()) continue;
                        EXPECT_FALSE(Overlap(a->bounds(), b->bounds()))
                            << report << " " << a->name() << " " << b->name();
                    }
                }
            });
        }
    }
}

// Under which number a report's dialog keeps its schemes until a host says otherwise.
TEST(SchemeDialog, SchemesAreThoseOfTheReportsIdentifier) {
    const std::pair<std::string_view, std::int32_t> rows[] = {
        {"Rpt10501", 10501}, {"Rpt10502", 10501}, {"Rpt10503", 10503}, {"Rpt10504", 10504},
        {"Rpt10505", 10503}, {"Rpt10531", 10531}, {"Rpt10532", 10503},
    };
    for (const auto& [report, identifier] : rows) {
        SchemeUser user(report);
        user.Keep(identifier, {{"BDate", "2001-02-03"}});
        user.Filter();
        EXPECT_EQ(user.FilterValue("BDate"), Value(ToDate("2001-02-03"))) << report;

        SchemeUser other = user.Another(report);
        other.Keep(777, {{"BDate", "2007-07-07"}});
        other.report->Put("ExtFirter", "777x");
        other.Filter();
        EXPECT_EQ(other.FilterValue("BDate"), Value(ToDate("2007-07-07"))) << report;
    }
}

TEST(SchemeDialog, AnIdentifierThatChangesAfterLoadChangesNothing) {
    SchemeUser user("Rpt10501");
    user.Keep(777, {{"AcctNumber", "other"}});
    user.Filter();
    user.report->Put("ExtFirter", 777);
    user.Filter();
    EXPECT_EQ(user.FilterValue("AcctNumber"), Value(""));
}

TEST(SchemeDialog, TheReportsThatHandTheirFilterOverBeginWithIt) {
    for (const std::string_view report : kReports) {
        const bool hands =
            report == "Rpt10502" || report == "Rpt10503" || report == "Rpt10504" || report == "Rpt10531";
        SchemeUser user(report);
        user.SetFilter({{"EEmpNumber", "handed"}, {"BDate", "2001-02-03"}});
        user.Filter();
        EXPECT_EQ(user.FilterValue("EEmpNumber"), Value(hands ? "handed" : "")) << report;
        EXPECT_EQ(user.FilterValue("BDate") == Value(ToDate("2001-02-03")), hands) << report;
    }
}

TEST(SchemeDialog, CancelWithoutAFilterLeavesTheReportWithoutOne) {
    for (const std::string_view report : kReports) {
        SchemeUser user(report);
        user.Show([](Person&) {});
        EXPECT_EQ(Shown(user.report->Get("Result")), "{OK: False, Error: \"\"}") << report;
        EXPECT_TRUE(user.report->Get("Filter").IsNothing()) << report;
    }
}

TEST(SchemeDialog, CancelWritesOkFalseIntoTheFilterThatWasHandedOver) {
    SchemeUser user("Rpt10503");
    user.Filter();
    const Value filter = user.report->Get("Filter");
    user.Show([](Person& person) { person.schemeFrame().Cancel(); });
    EXPECT_EQ(user.report->Get("Filter"), filter);
    EXPECT_EQ(user.FilterValue("OK"), Value(false));
    EXPECT_EQ(user.ResultValue("OK"), Value(false));
    EXPECT_EQ(user.ResultValue("Error"), Value(""));
}

TEST(SchemeDialog, AKeptDialogThatIsHandedNoFilterHasNoOutcome) {
    SchemeUser user("Rpt10504");
    user.Show([](Person&) {});
    user.Filter();
    EXPECT_EQ(user.ResultValue("OK"), Value(false));
    EXPECT_EQ(user.ResultValue("Error"), Value("过滤条件有误，请重新过滤！"));
    EXPECT_TRUE(user.report->Get("Filter").IsNothing());
    user.Filter();  // by a new dialog
    EXPECT_EQ(user.ResultValue("OK"), Value(true));
}

TEST(SchemeDialog, AKeptDialogStillHoldsItsValues) {
    SchemeUser user("Rpt10501");
    user.Filter([](Person& person) {
        person.Text("txtItem(5)", "王");
        person.Check("ChkIncludePay", 0);
    });
    const Value first = user.report->Get("Filter");
    user.Filter();
    EXPECT_EQ(user.FilterValue("BillerName"), Value("王"));
    EXPECT_EQ(user.FilterValue("IncludeP"), Value(std::int16_t{0}));
    EXPECT_NE(user.report->Get("Filter"), first);  // every confirmation has a dictionary of its own
}

TEST(SchemeDialog, ConfirmsAtOnceWhatItWasHanded) {
    SchemeUser user("Rpt10504");
    user.SetFilter(
        {{"NotShowBillZero", "0"}, {"BSupplyNumber", " 01"}, {"BDate", "2020-08-01"}, {"IncludeFL", 1}});
    ObjectIn(user.report->Get("Property")).Put("Value", "ShowFilter", -2);
    bool shown = false;
    user.Show([&](Person&) { shown = true; });
    EXPECT_FALSE(shown);
    EXPECT_EQ(
        Shown(user.report->Get("Filter")),
        "{BDate: #2020-08-01#, EDate: #2020-09-15#, BSupplyNumber: \" 01\", ESupplyNumber: \"\", "
        "BDeptNumber: \"\", EDeptNumber: \"\", BEmpNumber: \"\", EEmpNumber: \"\", NotShowBalZero: int16(0), "
        "NotShowBillZero: int16(0), IncludeOtherP: int16(0), IncludeGJ: int16(0), CheckState: int16(0), "
        "IncludeFL: int16(1), UserID: 16, OK: True}");
    EXPECT_EQ(user.ResultValue("OK"), Value(true));

    ObjectIn(user.report->Get("Property")).Put("Value", "ShowFilter", -1);
    user.Show([&](Person& person) {
        shown = true;
        EXPECT_EQ(person.Reads("txtItem(0)"), " 01");
    });
    EXPECT_TRUE(shown);
}

TEST(SchemeDialog, BeginBehindEndIsNobodysConcernHere) {
    SchemeUser user("Rpt10503");
    user.Filter([](Person& person) {
        person.Date("DtpBDate", "2020-12-31");
        person.Date("DtpEDate", "2019-12-31");
        person.Focus("txtItem(0)");
    });
    EXPECT_EQ(user.FilterValue("BDate"), Value(ToDate("2020-12-31")));
    EXPECT_EQ(user.FilterValue("EDate"), Value(ToDate("2019-12-31")));
    EXPECT_THAT(user.host.platform.windows().boxes, IsEmpty());
}

TEST(SchemeDialog, AServerThatFailsAtLoadLeavesTheReportAsItWas) {
    SchemeUser user("Rpt10503");
    test::Script& server = user.host.platform.Component("QORMAppConnection.AppConnection");
    server.Raises("Execute", Error(-1, "Server", "down"));
    bool shown = false;
    user.Show([&](Person&) { shown = true; });
    EXPECT_FALSE(shown);
    EXPECT_EQ(Shown(user.report->Get("Result")), "{OK: False, Error: \"\"}");
    server.Answers("Execute", Value::Nothing());
    user.Filter();
    EXPECT_EQ(user.ResultValue("OK"), Value(true));
}

// The check state and the rebates by application type.
TEST(SchemeDialog, TheCheckStateIsHiddenInApplicationType1AndWrittenAllTheSame) {
    for (const std::string_view report : kReports) {
        for (const std::int32_t appType : {1, 2, 4}) {
            SchemeUser user(report, appType);
            user.Filter([&](Person& person) {
                EXPECT_EQ(person.Sees("cmbCheckState"), appType != 1) << report;
                EXPECT_EQ(person.Sees("lblStatus"), appType != 1) << report;
                if (person.form().Find("chkIncludeFL")) {
                    EXPECT_EQ(person.Sees("chkIncludeFL"), appType == 4) << report;
                }
            });
            EXPECT_EQ(user.FilterValue("CheckState"), Value(std::int16_t{0})) << report;
        }
    }
}

TEST(SchemeDialog, AHiddenCheckStateKeepsWhatAHandedFilterSays) {
    SchemeUser user("Rpt10503", 1);
    user.SetFilter({{"CheckState", 1}});
    user.Filter();
    EXPECT_EQ(user.FilterValue("CheckState"), Value(std::int16_t{1}));
}

struct Absent {
    std::string_view report, box;
};

constexpr Absent kNotInType1[] = {
    {"Rpt10501", "chkIncludeBank"},   {"Rpt10502", "chkIncludeOtherR"}, {"Rpt10503", "chkIncludeOtherR"},
    {"Rpt10504", "chkIncludeGJ"},     {"Rpt10504", "chkIncludeOtherP"}, {"Rpt10505", "chkIncludeGJ"},
    {"Rpt10505", "chkIncludeOtherR"}, {"Rpt10531", "chkIncludeOtherR"}, {"Rpt10532", "chkIncludeGJ"},
    {"Rpt10532", "chkIncludeOtherR"},
};

TEST(SchemeDialog, EveryActivationHidesAndClearsWhatApplicationType1DoesNotHave) {
    for (const Absent& row : kNotInType1) {
        SchemeUser user(row.report, 1);
        user.Show([&](Person& person) {
            EXPECT_FALSE(person.Sees(row.box)) << row.report << " " << row.box;
            EXPECT_EQ(person.Reads(row.box), "0") << row.report << " " << row.box;
            person.schemeFrame().ShowDefaults();
            ControlOf<CheckBox>(person.form(), row.box).SetValue(1);  // as a scheme can, unseen
            person.form().Activate();
            EXPECT_EQ(person.Reads(row.box), "0") << row.report << " " << row.box;
        });
        SchemeUser other(row.report, 2);
        other.Show(
            [&](Person& person) { EXPECT_TRUE(person.Sees(row.box)) << row.report << " " << row.box; });
    }
}

// The short panel.
TEST(SchemeDialog, TheShortPanelTakesTheValuesOverAndGivesThemBack) {
    for (const std::string_view report : kReports) {
        const bool hasRange = report != "Rpt10501";
        SchemeUser user(report);
        user.Filter([&](Person& person) {
            EXPECT_EQ(person.form().Find("txtItem(7)") != nullptr, hasRange) << report;
            person.Text("txtItem(0)", " 01 ");
            if (hasRange) person.Text("txtItem(1)", "02");
            person.Date("DtpBDate", "2020-01-02");
            person.schemeFrame().SwitchPanel(false);
            EXPECT_TRUE(person.Sees("txtItem(6)"));
            EXPECT_FALSE(person.Sees("txtItem(0)"));
            EXPECT_EQ(person.Reads("txtItem(6)"), " 01 ");
            if (hasRange) {
                EXPECT_EQ(person.Reads("txtItem(7)"), "02");
            }
            EXPECT_EQ(person.Reads("BEGDate"), "2020-01-02");
            EXPECT_EQ(person.Reads("ENDDate"), "2020-09-15");
            EXPECT_EQ(person.Reads("cmbDateType"), "0");
            person.Text("txtItem(6)", " 05 ");
            if (hasRange) person.Text("txtItem(7)", " 06");
            person.Date("BEGDate", "2020-03-04");
        });
        const bool supplies = report == "Rpt10504" || report == "Rpt10505" || report == "Rpt10532";
        const std::string party = !hasRange ? "AcctNumber" : supplies ? "BSupplyNumber" : "BCustNumber";
        EXPECT_EQ(user.FilterValue(party), Value(" 05 ")) << report;
        if (hasRange) {
            EXPECT_EQ(user.FilterValue(supplies ? "ESupplyNumber" : "ECustNumber"), Value(" 06")) << report;
        }
        EXPECT_EQ(user.FilterValue("BDate"), Value(ToDate("2020-03-04"))) << report;
    }
}

TEST(SchemeDialog, TheFocusDoesNotStayOnAPanelThatIsGone) {
    SchemeUser user("Rpt10502");
    user.Show([](Person& person) {
        person.Focus("txtItem(3)");
        person.schemeFrame().SwitchPanel(false);
        EXPECT_EQ(person.FocusedControl(), "QORRptFilter");
    });
}

TEST(SchemeDialog, APeriodOfTheShortPanelSetsBothDates) {
    SchemeUser user("Rpt10502");
    user.Filter([](Person& person) {
        person.schemeFrame().SwitchPanel(false);
        person.Select("cmbDateType", 8);
    });
    EXPECT_EQ(user.FilterValue("BDate"), Value(ToDate("2020-08-01")));
    EXPECT_EQ(user.FilterValue("EDate"), Value(ToDate("2020-08-31")));
}

// The classes that the picker buttons open, by index; 0 opens nothing.
TEST(SchemeDialog, ThePickerButtonsOpenTheClassOfTheirBox) {
    const std::pair<std::string_view, std::vector<std::int32_t>> rows[] = {
        {"Rpt10501", {14, 2, 2, 3, 3, 0, 14}},  {"Rpt10502", {1, 1, 2, 2, 3, 3, 1, 1}},
        {"Rpt10503", {1, 1, 2, 2, 3, 3, 1, 1}}, {"Rpt10504", {8, 8, 2, 2, 3, 3, 8, 8}},
        {"Rpt10505", {8, 8, 2, 2, 3, 3, 8, 8}}, {"Rpt10531", {1, 1, 2, 2, 3, 3, 1, 1}},
        {"Rpt10532", {8, 8, 2, 2, 3, 3, 8, 8}},
    };
    for (const auto& [report, classes] : rows) {
        SchemeUser user(report);
        test::Script& picker = user.host.platform.Component("QOREBCGLView.GLView");
        user.Show([&](Person& person) {
            for (std::size_t i = 0; i < classes.size(); ++i) {
                std::int32_t asked = 0;
                picker.Answers("ItemLookUp", [&](Arguments a) -> Value {
                    asked = ToInt32(*a[0]);
                    return test::Readable({{"ReturnObject", test::Readable({{"Number", "picked"}})}});
                });
                const std::string index = "(" + std::to_string(i) + ")";
                ControlOf<Button>(person.form(), "cmdItem" + index).Click();
                EXPECT_EQ(asked, classes[i]) << report << " " << i;
                EXPECT_EQ(person.Reads("txtItem" + index), classes[i] ? "picked" : "") << report << " " << i;
            }
        });
    }
}

// Bills of consigned goods have no check state: they go with all states.
constexpr std::string_view kConsigning[] = {"Rpt10502", "Rpt10503", "Rpt10531"};

TEST(SchemeDialog, TickingConsignedGoodsTakesAllStatesAndLocksTheList) {
    for (const std::string_view report : kConsigning) {
        SchemeUser user(report);
        user.Show([&](Person& person) {
            person.Select("cmbCheckState", 1);
            person.Check("chkIncludeWT", 1);
            EXPECT_EQ(person.Reads("cmbCheckState"), "2") << report;
            EXPECT_FALSE(person.Select("cmbCheckState", 0)) << report;
            person.Check("chkIncludeWT", 0);
            EXPECT_EQ(person.Reads("cmbCheckState"), "2") << report;
            EXPECT_TRUE(person.Select("cmbCheckState", 0)) << report;
        });
    }
}

TEST(SchemeDialog, ASchemeWithConsignedGoodsOverrulesItsCheckState) {
    for (const std::string_view report : kConsigning) {
        SchemeUser user(report);
        user.SetFilter({{"IncludeWT", 1}, {"CheckState", 0}});
        user.Filter([&](Person& person) {
            EXPECT_EQ(person.Reads("cmbCheckState"), "2") << report;
            EXPECT_FALSE(person.Any("cmbCheckState").enabled()) << report;
            person.schemeFrame().SaveScheme("consigned");
            // The box stays ticked, so that it does not click when the scheme comes back.
            person.schemeFrame().LoadSavedScheme("consigned");
            EXPECT_EQ(person.Reads("cmbCheckState"), "2") << report;
            person.schemeFrame().ShowDefaults();
            EXPECT_EQ(person.Reads("cmbCheckState"), "0") << report;
            EXPECT_TRUE(person.Any("cmbCheckState").enabled()) << report;
        });
    }
}

}  // namespace
}  // namespace qor
