#include "dialogs/multi_level_group.h"

#include <gmock/gmock.h>

#include "support/person.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::ControlOf;
using test::RaisedBy;
using ::testing::ElementsAre;

constexpr SumWay kWays[] = {
    {"客户", "FCustNumber", 1},
    {"部门", "FDeptNumber", 2},
    {"业务员", "FEmpNumber", 3},
};

const std::string kPad = std::string(50, ' ') + "|";

Value Levels(Value deepest) {
    const auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"MaxLevel"});
    rows->AddRow({std::move(deepest)});
    return rows;
}

class GroupForm final : public Form {
 public:
    explicit GroupForm(test::TestProcess& test)
        : Form(test.platform.windows(), "frmGroup", {6540, 1200}),
          group(*this, frame, {0, 0, 6300, MultiLevelGroup::kHeight}, test.process.systemProfile, kWays) {}

    Frame frame{*this, "Frame1", "", {120, 120, 6300, 1200}};
    MultiLevelGroup group;
};

/// The group on a form, over a server on which every class has so many levels.
struct Group {
    explicit Group(Value deepest = 5) {
        Server().Answers("Execute", Levels(std::move(deepest)));
        form = MakeRef<GroupForm>(test);
        group().FillTotalList();
    }
    test::Script& Server() { return test.platform.Component("QORMAppConnection.AppConnection"); }
    MultiLevelGroup& group() { return form->group; }
    void Set(std::string_view beginLevel, std::string_view endLevel) {
        Box("txtMultiLevelBegin").SetText("1");
        Box("txtMultiLevelEnd").SetText(endLevel);
        Box("txtMultiLevelBegin").SetText(beginLevel);
    }
    TextBox& Box(std::string_view name) { return ControlOf<TextBox>(*form, name); }
    Spin& Arrows(std::string_view name) { return ControlOf<Spin>(*form, name); }
    DropDown& Total() { return ControlOf<DropDown>(*form, "cboTotal"); }
    std::string Both() { return group().begin() + "-" + group().end(); }

    test::TestProcess test;
    Ref<GroupForm> form;
};

struct Correction {
    std::string_view box, text, then;  // begin and end
};

// Both boxes begin with 2 and 4, of 5 levels.
constexpr Correction kCorrections[] = {
    {"txtMultiLevelBegin", "1", "1-4"},     {"txtMultiLevelBegin", "3", "3-4"},
    {"txtMultiLevelBegin", "4", "4-4"},     {"txtMultiLevelBegin", "5", "5-5"},
    {"txtMultiLevelBegin", "6", "5-5"},     {"txtMultiLevelBegin", "0", "1-4"},
    {"txtMultiLevelBegin", "-3", "1-4"},    {"txtMultiLevelBegin", "", "-4"},
    {"txtMultiLevelBegin", "x", "x-4"},     {"txtMultiLevelBegin", "99999999999", "99999999999-4"},
    {"txtMultiLevelBegin", "2.5", "2.5-4"}, {"txtMultiLevelBegin", "5.5", "5-5"},
    {"txtMultiLevelBegin", "05", "05-4"},   {"txtMultiLevelBegin", " 3", " 3-4"},
    {"txtMultiLevelEnd", "5", "2-5"},       {"txtMultiLevelEnd", "3", "2-3"},
    {"txtMultiLevelEnd", "2", "2-2"},       {"txtMultiLevelEnd", "1", "1-1"},
    {"txtMultiLevelEnd", "0", "1-1"},       {"txtMultiLevelEnd", "-1", "1-1"},
    {"txtMultiLevelEnd", "9", "2-5"},       {"txtMultiLevelEnd", "", "2-"},
    {"txtMultiLevelEnd", "x", "2-x"},       {"txtMultiLevelEnd", "02", "02-02"},
};

TEST(MultiLevelGroup, TheBoxThatIsChangedWinsAndStaysWithinTheLevels) {
    for (const Correction& row : kCorrections) {
        Group group;
        group.Set("2", "4");
        ASSERT_EQ(group.Both(), "2-4");
        group.Box(row.box).SetText(row.text);
        EXPECT_EQ(group.Both(), row.then) << row.box << " := \"" << row.text << "\"";
    }
}

// Levels of more than one digit compare as text.
constexpr Correction kTexts[] = {
    {"txtMultiLevelBegin", "10", "10-9"},  // 1 stands before 9
    {"txtMultiLevelBegin", "9", "9-9"},   {"txtMultiLevelBegin", "12", "12-9"},
    {"txtMultiLevelEnd", "10", "10-10"},  // 5 does not stand before 1
    {"txtMultiLevelEnd", "6", "5-6"},
};

TEST(MultiLevelGroup, BothBoxesAreComparedAsTexts) {
    for (const Correction& row : kTexts) {
        Group group(12);
        group.Set("5", "9");
        ASSERT_EQ(group.Both(), "5-9");
        group.Box(row.box).SetText(row.text);
        EXPECT_EQ(group.Both(), row.then) << row.box << " := \"" << row.text << "\"";
    }
}

TEST(MultiLevelGroup, TheListHoldsCaptionPaddingAndField) {
    Group group;
    EXPECT_THAT(group.Total().items(),
                ElementsAre("客户" + kPad + "FCustNumber", "部门" + kPad + "FDeptNumber",
                            "业务员" + kPad + "FEmpNumber"));
    EXPECT_EQ(group.Total().listIndex(), 0);
    EXPECT_EQ(group.group().SumBy(), "客户" + kPad + "FCustNumber");
}

TEST(MultiLevelGroup, FillingTwiceHoldsEachWayOnce) {
    Group group;
    group.group().FillTotalList();
    EXPECT_EQ(group.Total().items().size(), 3u);
}

TEST(MultiLevelGroup, GroupByIsTheFieldOfTheSelectedWay) {
    Group group;
    for (const SumWay& way : kWays) {
        group.Total().SetListIndex(static_cast<std::int32_t>(&way - kWays));
        EXPECT_EQ(group.group().GetGroupBy(), way.field);
    }
    group.Total().SetListIndex(-1);
    EXPECT_EQ(RaisedBy([&] { group.group().GetGroupBy(); }), Automation::SubscriptOutOfRange);
}

TEST(MultiLevelGroup, SelectingAWayAsksForTheLevelsOfItsClass) {
    Group group;
    group.test.platform.log().clear();
    group.Total().SetListIndex(2);
    EXPECT_THAT(
        group.test.platform.log(),
        ::testing::Contains(::testing::HasSubstr(
            "\"select (max(FLevel) - 1) as MaxLevel from t_Item, t_ItemClass where t_Item.FItemClassID = "
            "t_ItemClass.FItemClassID and t_ItemClass.FItemClassID=3\n\"")));
}

TEST(MultiLevelGroup, SelectingAWayPutsOneIntoBothBoxes) {
    Group group;
    group.Set("2", "4");
    group.Total().SetListIndex(0);
    EXPECT_EQ(group.Both(), "1-1");
}

TEST(MultiLevelGroup, NoSelectionHasOneLevel) {
    Group group;
    group.test.platform.log().clear();
    group.Total().SetListIndex(-1);
    EXPECT_EQ(group.group().maxLevel(), 1);
    EXPECT_TRUE(group.test.platform.log().empty());
}

TEST(MultiLevelGroup, TheDeepestLevelIsTheServersAndAtLeastOne) {
    const std::pair<Value, std::int32_t> rows[] = {
        {Levels(3), 3},
        {Levels(0), 1},
        {Levels(-1), 1},
        {Levels("4"), 4},
        {Levels(Value::Null()), 1},
        {Value::Nothing(), 1},
        {MakeRef<ColumnarRecordSet>(std::vector<std::string>{"MaxLevel"}), 1},
    };
    for (const auto& [answer, deepest] : rows) {
        Group group;
        group.Server().Answers("Execute", answer);
        group.Total().SetListIndex(1);
        EXPECT_EQ(group.group().maxLevel(), deepest);
        EXPECT_EQ(group.Arrows("UpDownMultiLevelBegin").max(), deepest);
        EXPECT_EQ(group.Arrows("UpDownMultiLevelEnd").max(), deepest);
    }
}

TEST(MultiLevelGroup, AFailingServerIsTheCallersAffair) {
    Group group;
    group.Server().Raises("Execute", Error(-7, "Server", "连接失败"));
    EXPECT_EQ(RaisedBy([&] { group.group().FillTotalList(); }), static_cast<Automation>(-7));
}

TEST(MultiLevelGroup, ArrowsWriteTheirNumberIntoTheBox) {
    Group group;
    group.Arrows("UpDownMultiLevelBegin").SetValue(3);
    EXPECT_EQ(group.Both(), "3-3");
    group.Arrows("UpDownMultiLevelEnd").SetValue(2);
    EXPECT_EQ(group.Both(), "2-2");
    group.Arrows("UpDownMultiLevelEnd").SetValue(99);
    EXPECT_EQ(group.Both(), "2-5");
    group.Arrows("UpDownMultiLevelBegin").SetValue(0);
    EXPECT_EQ(group.Both(), "1-5");
}

TEST(MultiLevelGroup, ArrowsGoOnFromWhatWasTyped) {
    Group group;
    group.Set("2", "4");
    EXPECT_EQ(group.Arrows("UpDownMultiLevelBegin").value(), 2);
    EXPECT_EQ(group.Arrows("UpDownMultiLevelEnd").value(), 4);
}

}  // namespace
}  // namespace qor
