#include "reports/other/age_groups.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/form.h"
#include "support/grid_text.h"
#include "support/raises.h"
#include "support/test_platform.h"

namespace qor {
namespace {

using test::CellText;
using test::LockText;
using test::RaisedBy;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kStored = "1至30天,30,0|31至60天,60,31|61至90天,90,61|91天以上,......,91";

class Sheet final : public Form {
 public:
    explicit Sheet(WindowSystem& windows) : Form(windows, "Sheet", {1000, 1000}) {}
    Grid grid{*this, "grid", AgeGroups::kColumns, AgeGroups::kStoredRows, {}};
};

/// A grid of age groups, and what the user was told.
struct Groups {
    /// `content` as a scheme keeps it.
    explicit Groups(std::string_view content = "") { groups.TextToGrid(content); }

    void Type(std::int32_t row, std::string_view text) {
        grid.SetText(AgeGroups::kLimit, row, text);
        groups.Edited(AgeGroups::kLimit, row);
    }

    test::TestPlatform platform;
    Ref<Sheet> form = MakeRef<Sheet>(platform.windows());
    Grid& grid = form->grid;
    std::vector<std::string> told;
    AgeGroups groups{grid, [this](std::string_view text) { told.emplace_back(text); }};
};

TEST(AgeGroups, ANewGridShowsTheStoredGroups) {
    const Groups sheet;
    EXPECT_EQ(sheet.groups.GridToText(), kStored);
    EXPECT_EQ(sheet.grid.MaxRows(), 5);
    EXPECT_TRUE(sheet.grid.IsColumnHidden(3));
    EXPECT_FALSE(sheet.grid.IsColumnHidden(1));
    EXPECT_FALSE(sheet.grid.IsColumnHidden(2));
}

struct Edit {
    const char* what;
    const char* before;  // "" for the stored groups
    std::int32_t row;
    const char* typed;
    const char* after;
    const char* told;
};

void PrintTo(const Edit& edit, std::ostream* out) { *out << edit.what; }

class AgeGroupsEdit : public testing::TestWithParam<Edit> {};

TEST_P(AgeGroupsEdit, KeepsTheChain) {
    const Edit& edit = GetParam();
    Groups sheet(edit.before);
    sheet.Type(edit.row, edit.typed);
    EXPECT_EQ(CellText(sheet.grid), edit.after);
    if (*edit.told) {
        EXPECT_THAT(sheet.told, ElementsAre(edit.told));
    } else {
        EXPECT_THAT(sheet.told, IsEmpty());
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Limits, AgeGroupsEdit, testing::Values(
    Edit{"a limit in the first row begins the chain at day 1", "", 1, "20",
         "1至20天,20,1|21至60天,60,21|61至90天,90,61|91天以上,......,91|,,|,,", ""},
    Edit{"a limit relabels its row and the next one only", "", 2, "45",
         "1至30天,30,0|31至45天,45,31|46至90天,90,46|91天以上,......,91|,,|,,", ""},
    Edit{"the row after the next keeps its first day", "", 1, "29",
         "1至29天,29,1|30至60天,60,30|61至90天,90,61|91天以上,......,91|,,|,,", ""},
    Edit{"a limit before the open group moves the open group's first day", "", 3, "100",
         "1至30天,30,0|31至60天,60,31|61至100天,100,61|101天以上,......,101|,,|,,", ""},
    Edit{"a limit in place of the open end pushes it one row down", "", 4, "120",
         "1至30天,30,0|31至60天,60,31|61至90天,90,61|91至120天,120,91|121天以上,......,121|,,", ""},
    Edit{"a limit in the last row of the grid makes room for the open end", "1至9天,9,1|a,20,10|b,30,21|c,40,31|d,......,41", 5, "50",
         "1至9天,9,1|a,20,10|b,30,21|c,40,31|41至50天,50,41|51天以上,......,51|,,", ""},
    Edit{"a limit below the open end begins at day 1, since that has no number", "", 5, "200",
         "1至30天,30,0|31至60天,60,31|61至90天,90,61|91天以上,......,91|1至200天,200,1|201天以上,......,201|,,", ""},
    Edit{"labels have plain numbers, the cell keeps what was typed", "", 2, "045天",
         "1至30天,30,0|31至45天,045天,31|46至90天,90,46|91天以上,......,91|,,|,,", ""},
    Edit{"1000000000 is the longest limit", "", 4, "1000000000",
         "1至30天,30,0|31至60天,60,31|61至90天,90,61|91至1000000000天,1000000000,91|1000000001天以上,......,1000000001|,,", ""}));

INSTANTIATE_TEST_SUITE_P(Refusals, AgeGroupsEdit, testing::Values(
    Edit{"a hyphen is told of before anything else", "", 2, "-45",
         "1至30天,30,0|31至60天,-45,31|61至90天,90,61|91天以上,......,91|,,", "不能“－”的字符"},
    Edit{"a longer limit empties the cell without a word", "", 2, "1000000001",
         "1至30天,30,0|31至60天,,31|61至90天,90,61|91天以上,......,91|,,", ""},
    Edit{"a longer limit need not be whole", "", 2, "1000000000.5",
         "1至30天,30,0|31至60天,,31|61至90天,90,61|91天以上,......,91|,,", ""},
    Edit{"a broken number is rounded to the even one and labels nothing", "", 2, "12.5",
         "1至30天,30,0|31至60天,12,31|61至90天,90,61|91天以上,......,91|,,", "天数需要输入整数"},
    Edit{"a broken number is rounded up to the even one", "", 2, "43.5",
         "1至30天,30,0|31至60天,44,31|61至90天,90,61|91天以上,......,91|,,", "天数需要输入整数"},
    Edit{"a small fraction is rounded away", "", 1, "0.4",
         "1至30天,0,0|31至60天,60,31|61至90天,90,61|91天以上,......,91|,,", "天数需要输入整数"},
    Edit{"a limit equal to the one before stays as typed", "", 2, "30",
         "1至30天,30,0|31至60天,30,31|61至90天,90,61|91天以上,......,91|,,", "天数设置错误，不能小于等于上一行的天数"},
    Edit{"a limit below the one before stays as typed", "", 3, "5",
         "1至30天,30,0|31至60天,60,31|61至90天,5,61|91天以上,......,91|,,", "天数设置错误，不能小于等于上一行的天数"},
    Edit{"zero", "", 1, "0",
         "1至30天,0,0|31至60天,60,31|61至90天,90,61|91天以上,......,91|,,", "不能设置小于等于0的天数"},
    Edit{"no number", "", 2, "abc",
         "1至30天,30,0|31至60天,abc,31|61至90天,90,61|91天以上,......,91|,,", "不能设置小于等于0的天数"},
    Edit{"an emptied cell", "", 2, "",
         "1至30天,30,0|31至60天,,31|61至90天,90,61|91天以上,......,91|,,", "不能设置小于等于0的天数"},
    Edit{"five dots are no open end", "", 2, ".....",
         "1至30天,30,0|31至60天,.....,31|61至90天,90,61|91天以上,......,91|,,", "不能设置小于等于0的天数"},
    Edit{"an open end in the first row", "", 1, "......",
         "1至30天,......,0|31至60天,60,31|61至90天,90,61|91天以上,......,91|,,", "第一行不能设置“......”"}));

INSTANTIATE_TEST_SUITE_P(OpenEnds, AgeGroupsEdit, testing::Values(
    Edit{"an open end is labelled and leaves the rows below alone", "", 2, "......",
         "1至30天,30,0|31天以上,......,31|61至90天,90,61|91天以上,......,91|,,|,,", ""},
    Edit{"an open end below an open end gets no label, and the grid grows behind it", "", 5, "......",
         "1至30天,30,0|31至60天,60,31|61至90天,90,61|91天以上,......,91|,......,|,,|,,", ""}));
// clang-format on

TEST(AgeGroups, AnEditInAnotherColumnOnlyMakesRoomAndRefreshesTheLocks) {
    Groups sheet;
    sheet.grid.SetText(AgeGroups::kLabel, 5, "x");
    sheet.groups.Edited(AgeGroups::kLabel, 5);
    EXPECT_EQ(sheet.grid.MaxRows(), 6);
    EXPECT_EQ(LockText(sheet.grid, 2), ".....L");
    sheet.groups.Edited(AgeGroups::kLabel, 1);
    EXPECT_EQ(sheet.grid.MaxRows(), 6);
    EXPECT_THAT(sheet.told, IsEmpty());
}

TEST(AgeGroups, ARefusedEditLeavesTheLocksAsTheyWere) {
    Groups sheet;
    sheet.Type(2, "abc");
    sheet.Type(2, "1000000001");
    EXPECT_EQ(LockText(sheet.grid, 2), ".....");
    EXPECT_EQ(sheet.grid.MaxRows(), 5);
}

TEST(AgeGroups, LimitsCanBeTypedDownToTheFirstFreeRow) {
    struct Case {
        const char* what;
        std::vector<const char*> limits;
        const char* locks;
    };
    for (const Case& c : {Case{"an empty grid", {}, "L"}, Case{"one empty row", {""}, ".L"},
                          Case{"two empty rows", {"", ""}, ".L"}, Case{"a hole", {"30", "", "90"}, "..L"},
                          Case{"the last row is free", {"30", "......", ""}, "...L"},
                          Case{"no row is free", {"30", "60", "......"}, "...L"},
                          Case{"many rows are free", {"30", "", "", "", ""}, "..LLL"}}) {
        Groups sheet;
        sheet.grid.SetMaxRows(0);
        sheet.grid.SetMaxRows(static_cast<std::int32_t>(c.limits.size()));
        for (std::size_t i = 0; i < c.limits.size(); ++i) {
            sheet.grid.SetText(AgeGroups::kLimit, static_cast<std::int32_t>(i) + 1, c.limits[i]);
        }
        sheet.groups.RefreshGridLocks();
        EXPECT_EQ(LockText(sheet.grid, AgeGroups::kLimit), c.locks) << c.what;
    }
}

TEST(AgeGroups, LabelsAreLockedInEveryRowAlsoInThoseToCome) {
    Groups sheet;
    sheet.groups.LockLabels();
    sheet.groups.AddRow();
    EXPECT_EQ(LockText(sheet.grid, AgeGroups::kLabel), "LLLLLL");
    EXPECT_EQ(LockText(sheet.grid, AgeGroups::kLimit), "......");
}

TEST(AgeGroups, TheCurrentRowIsDeletedAndTheOthersKeepTheirLabels) {
    Groups sheet;
    sheet.grid.SetActiveRow(2);
    sheet.groups.DeleteRow();
    EXPECT_EQ(sheet.groups.GridToText(), "1至30天,30,0|61至90天,90,61|91天以上,......,91");
    EXPECT_EQ(sheet.grid.MaxRows(), 4);
    for (int i = 0; i < 5; ++i) {
        sheet.groups.DeleteRow();
    }
    EXPECT_EQ(sheet.grid.MaxRows(), 0);
    EXPECT_EQ(sheet.groups.GridToText(), "");
}

TEST(AgeGroups, RowsWithoutALabelAreNotSaved) {
    Groups sheet;
    sheet.grid.SetText(AgeGroups::kLabel, 2, "");
    sheet.grid.SetText(AgeGroups::kLimit, 5, "......");
    EXPECT_EQ(sheet.groups.GridToText(), "1至30天,30,0|61至90天,90,61|91天以上,......,91");
}

TEST(AgeGroups, ASavedTextFillsTheGrid) {
    struct Case {
        const char* text;
        const char* cells;
    };
    for (const Case& c : {Case{"", "1至30天,30,0|31至60天,60,31|61至90天,90,61|91天以上,......,91|,,"},
                          Case{"1至9天,9,1|10天以上,......,10", "1至9天,9,1|10天以上,......,10|,,|,,|,,"},
                          Case{"a,1,1|b,2,2|c,3,3|d,4,4|e,5,5", "a,1,1|b,2,2|c,3,3|d,4,4|e,5,5"},
                          Case{"a,1,1|b,2,2|c,3,3|d,4,4|e,5,5|f,6,6", "a,1,1|b,2,2|c,3,3|d,4,4|e,5,5|f,6,6"},
                          Case{"a,1,1,more", "a,1,1|,,|,,|,,|,,"}, Case{",,", ",,|,,|,,|,,|,,"}}) {
        Groups sheet;
        sheet.groups.TextToGrid(c.text);
        EXPECT_EQ(CellText(sheet.grid), c.cells) << c.text;
    }
}

TEST(AgeGroups, ASavedTextComesBackAsItWas) {
    Groups sheet("1至9天,9,1|10天以上,......,10");
    const std::string saved = sheet.groups.GridToText();
    sheet.groups.TextToGrid(kStored);
    sheet.groups.TextToGrid(saved);
    EXPECT_EQ(sheet.groups.GridToText(), "1至9天,9,1|10天以上,......,10");
}

TEST(AgeGroups, ASavedRowOfTooFewItemsEndsTheFilling) {
    struct Case {
        const char* text;
        const char* cells;
    };
    for (const Case& c : {Case{"a,1|b,2,2", "a,1,|,,|,,|,,|,,"}, Case{"a", "a,,|,,|,,|,,|,,"},
                          Case{"a,1,1||c,3,3", "a,1,1|,,|,,|,,|,,"}}) {
        Groups sheet;
        EXPECT_EQ(RaisedBy([&] { sheet.groups.TextToGrid(c.text); }), Automation::SubscriptOutOfRange);
        EXPECT_EQ(CellText(sheet.grid), c.cells) << c.text;
    }
}

TEST(AgeGroups, FillingLeavesTheLocksAlone) {
    Groups sheet;
    sheet.groups.RefreshGridLocks();
    sheet.groups.TextToGrid("1至9天,9,1|10天以上,......,10");
    EXPECT_EQ(LockText(sheet.grid, 2), ".....L");
}

struct Check {
    const char* what;
    const char* content;
    const char* groups;  // caption, value and first day of each; "" where the chain is refused
    const char* told;
};

void PrintTo(const Check& check, std::ostream* out) { *out << check.what; }

class AgeGroupsCheck : public testing::TestWithParam<Check> {};

std::string ShownGroups(const Value& list) {
    std::string all;
    const Ref<Vector> groups = As<Vector>(list);
    for (std::int32_t i = 1; groups && i <= groups->Count(); ++i) {
        all += (i > 1 ? " " : "") + test::Shown(groups->Item(i));
    }
    return all;
}

TEST_P(AgeGroupsCheck, TurnsAWholeChainIntoAList) {
    const Check& check = GetParam();
    Groups sheet(check.content);
    const Ref<Dictionary> result = sheet.platform.NewDictionary();
    const bool accepted = *check.groups != '\0';
    EXPECT_EQ(sheet.groups.CheckGroups(sheet.platform, *result), accepted);
    EXPECT_EQ(ShownGroups(result->Get("Vect")), check.groups);
    EXPECT_EQ(result->Lookup("Vect"), accepted);
    EXPECT_EQ(result->Get("OK"), accepted ? Value() : Value(false));
    EXPECT_EQ(sheet.told, accepted ? std::vector<std::string>{} : std::vector<std::string>{check.told});
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Chains, AgeGroupsCheck, testing::Values(
    Check{"the stored groups", kStored,
          "{FCaption: \"1至30天\", FValue: double(29), FFirstValue: double(0)} "
          "{FCaption: \"31至60天\", FValue: double(59), FFirstValue: double(30)} "
          "{FCaption: \"61至90天\", FValue: double(89), FFirstValue: double(60)} "
          "{FCaption: \"91天以上\", FValue: \"MaxCol\", FFirstValue: double(90)}", ""},
    Check{"a first day of 1", "1至30天,30,1|31天以上,......,31",
          "{FCaption: \"1至30天\", FValue: double(29), FFirstValue: double(0)} "
          "{FCaption: \"31天以上\", FValue: \"MaxCol\", FFirstValue: double(30)}", ""},
    Check{"the open group alone", "91天以上,......,91",
          "{FCaption: \"91天以上\", FValue: \"MaxCol\", FFirstValue: double(90)}", ""},
    Check{"an emptied limit in the first row", "1至30天,,0|31天以上,......,31",
          "{FCaption: \"1至30天\", FValue: \"\", FFirstValue: double(0)} "
          "{FCaption: \"31天以上\", FValue: \"MaxCol\", FFirstValue: double(30)}", ""},
    Check{"texts that are no numbers", "a,x,y|b,......,",
          "{FCaption: \"a\", FValue: \"x\", FFirstValue: \"y\"} "
          "{FCaption: \"b\", FValue: \"MaxCol\", FFirstValue: \"\"}", ""},
    Check{"rows behind one without a label do not count", "a,......,1|,5,5|c,......,9",
          "{FCaption: \"a\", FValue: \"MaxCol\", FFirstValue: double(0)}", ""},
    Check{"an empty grid", ",,", "", "账龄分组条件错误，需要有“......”的格式。"},
    Check{"no open group", "1至30天,30,0|31至60天,60,31", "", "账龄分组条件错误，需要有“......”的格式。"},
    Check{"two open groups", "a,......,1|b,......,31", "", "账龄分组条件错误,只能出现1行的“......”"},
    Check{"a number behind the open group", "a,......,1|b,30,31", "", "账龄分组条件错误，“......”必须在最后一行。"},
    Check{"the limit of the row before", "a,30,1|b,30,31|c,......,61", "", "账龄分组条件错误,下面一行的天数不能小于等于上一行的天数"},
    Check{"an emptied limit behind another", "a,30,1|b,,31|c,......,61", "", "账龄分组条件错误,下面一行的天数不能小于等于上一行的天数"},
    Check{"a refused text behind a limit", "a,30,1|b,abc,31|c,......,61", "", "账龄分组条件错误,下面一行的天数不能小于等于上一行的天数"}));
// clang-format on

TEST(AgeGroups, ALimitBeyondAllIntegersIsAnError) {
    Groups sheet("a,9999999999,1|b,......,2");
    const Ref<Dictionary> result = sheet.platform.NewDictionary();
    EXPECT_EQ(RaisedBy([&] { sheet.groups.CheckGroups(sheet.platform, *result); }), Automation::Overflow);
}

}  // namespace
}  // namespace qor
