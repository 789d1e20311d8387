#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/plain_dialog_fixture.h"

namespace qor {
namespace {

using test::Log;
using test::Person;
using test::PlainDialogTest;
using testing::Contains;
using testing::IsEmpty;

TEST_F(PlainDialogTest, SavesAndLoadsInTheOrderOfItsKeyTable) {
    NoteFrames();
    const Log keys{"DtpBDate",
                   "DtpEDate",
                   "BTypeIn",
                   "ETypeIn",
                   "BCustNumber",
                   "ECustNumber",
                   "BDeptNumber",
                   "EDeptNumber",
                   "BEmpNumber",
                   "EEmpNumber",
                   "chkForbiddenTypeInclude",
                   "CheckState"};
    const auto keysOf = [this](std::string_view verb) {
        Log found;
        for (const std::string& note : notes) {
            if (note.starts_with(verb))
                found.push_back(note.substr(verb.size(), note.find(' ', verb.size()) - verb.size()));
        }
        return found;
    };
    Filter([&](Person& user) {
        user.frame().SaveScheme("常用");
        EXPECT_EQ(keysOf("Set "), keys);
        user.frame().LoadScheme("常用");
        EXPECT_EQ(keysOf("Get "), keys);
    });
}

TEST_F(PlainDialogTest, TheLastUsedSchemeComesUp) {
    Filter([](Person& user) {
        user.Date("DtpBDate", "2020-09-03");
        user.Text("txtItem(0)", "01");
        user.Text("txtItem(7)", "99 甲");
        user.Check("chkForbiddenTypeInclude", 1);
        user.Select("cmbCheckState", 2);
        user.frame().SaveScheme("常用");
    });
    Filter([](Person& user) {
        EXPECT_EQ(user.Reads("DtpBDate"), "2020-09-03");
        EXPECT_EQ(user.Reads("txtItem(0)"), "01");
        EXPECT_EQ(user.Reads("txtItem(7)"), "99 甲");
        EXPECT_EQ(user.Reads("chkForbiddenTypeInclude"), "1");
        EXPECT_EQ(user.Reads("cmbCheckState"), "2");
    });
}

TEST_F(PlainDialogTest, AValueThatCannotBeAssignedIsSkipped) {
    host.schemes.Save(10522, "坏",
                      {{"DtpBDate", "someday"},
                       {"DtpEDate", "2020-09-10"},
                       {"chkForbiddenTypeInclude", "many"},
                       {"CheckState", "7"},
                       {"EEmpNumber", "09"}});
    Filter([this](Person& user) {
        EXPECT_EQ(user.Reads("DtpBDate"), "2020-09-15") << "the day that the dialog was made with";
        EXPECT_EQ(user.Reads("DtpEDate"), "2020-09-10");
        EXPECT_EQ(user.Reads("chkForbiddenTypeInclude"), "0");
        EXPECT_EQ(user.Reads("cmbCheckState"), "0");
        EXPECT_EQ(user.Reads("txtItem(7)"), "09") << "the items behind it are read";
        EXPECT_THAT(Lines("box "), IsEmpty());
    });
}

TEST_F(PlainDialogTest, AnEmptyCheckStateCountsAsTheFirst) {
    Filter([this](Person& user) {
        user.Select("cmbCheckState", 2);
        host.schemes.Save(10522, "旧", {{"CheckState", ""}});
        user.frame().LoadScheme("旧");
        EXPECT_EQ(user.Reads("cmbCheckState"), "0");
    });
}

TEST_F(PlainDialogTest, TheDefaultsAreThePeriodSoFar) {
    host.platform.now = ToDate("2021-02-09 17:30:00");
    Filter([](Person& user) {
        EXPECT_EQ(user.Reads("DtpBDate"), "2021-02-01");
        EXPECT_EQ(user.Reads("DtpEDate"), "2021-02-09");
        user.Text("txtItem(4)", "07");
        user.Check("chkForbiddenTypeInclude", 1);
        user.Select("cmbCheckState", 1);
        user.Date("DtpEDate", "2021-03-01");
        user.frame().ShowDefaults();
        EXPECT_EQ(user.Reads("DtpEDate"), "2021-02-09");
        EXPECT_EQ(user.Reads("txtItem(4)"), "");
        EXPECT_EQ(user.Reads("chkForbiddenTypeInclude"), "0");
        EXPECT_EQ(user.Reads("cmbCheckState"), "0");
    });
}

TEST_F(PlainDialogTest, ADefaultThatFailsIsSkipped) {
    host.platform.Component("QOREBCGLView.GLData.SystemProfile")
        .Raises("GetSystemProfile", Error(-1, "Server", "down"));
    host.platform.now = ToDate("2021-02-09");
    Filter([](Person& user) {
        user.Date("DtpBDate", "2021-01-05");
        user.Text("txtItem(4)", "07");
        user.frame().ShowDefaults();
        EXPECT_EQ(user.Reads("DtpBDate"), "2021-01-05");
        EXPECT_EQ(user.Reads("DtpEDate"), "2021-02-09");
        EXPECT_EQ(user.Reads("txtItem(4)"), "");
    });
}

TEST_F(PlainDialogTest, AChangedListOfSchemesIsTakenNotice) {
    NoteFrames();
    Filter([this](Person& user) {
        notes.clear();
        user.frame().SaveScheme("常用");
        ASSERT_GE(notes.size(), 2u);
        EXPECT_EQ(notes[notes.size() - 2], "SchemeHost");
        EXPECT_EQ(notes.back(), "RefreshSchemes");
    });
    host.platform.Component("QORMArApRpt.Data").Answers("GetData", [](Arguments) -> Value {
        auto matched = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FItemID"});
        matched->AddRow({1});
        return matched;
    });
    Filter("Rpt10527", [this](Person& user) {
        notes.clear();
        user.frame().SaveScheme("常用");
        EXPECT_THAT(notes, testing::Not(Contains("SchemeHost")));
        EXPECT_EQ(notes.back(), "RefreshSchemes");
    });
}

}  // namespace
}  // namespace qor
