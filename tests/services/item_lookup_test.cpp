#include "services/item_lookup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/test_platform.h"

namespace qor {
namespace {

using test::Readable;
using test::TestProcess;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kView = "QOREBCGLView.GLView";
constexpr const char* kDataProfile = "QOREBCGLView.GLData.SystemProfile";
const Error kDown(-1, "Server", "down");

class ItemLookup : public testing::Test {
 protected:
    Ref<Object> Pick(std::int32_t itemClass, std::string_view search = "", std::string_view where = "") {
        test.platform.log().clear();
        return test.process.itemPicker.ItemLookup(itemClass, search, where, 1);
    }
    /// The user picks an item in every picker.
    void UserPicks(Ref<Object> item) {
        lookup = Readable({{"ReturnObject", item}});
        test.platform.Component(kView).Otherwise([this](Arguments) -> Value { return lookup; });
    }
    void DisplayDeleted(bool display) {
        test.platform.Component(kDataProfile).Answers("GetSystemProfile", display);
    }
    const std::vector<HeadlessWindows::Box>& boxes() { return test.platform.windows().boxes; }
    void ExpectOneBox(std::string_view text) {
        ASSERT_EQ(boxes().size(), 1U);
        EXPECT_EQ(boxes()[0].text, text);
        EXPECT_EQ(boxes()[0].title, "信息提示");
        EXPECT_EQ(boxes()[0].style, 64);
    }

    TestProcess test;
    Ref<Object> lookup;
};

TEST_F(ItemLookup, GoesToThePickerOfTheClass) {
    const struct {
        std::int32_t itemClass;
        const char* call;  // "" for none
    } rows[] = {
        {1, "ItemLookUp(&1,"},
        {2, "ItemLookUp(&2,"},
        {3, "ItemLookUp(&3,"},
        {4, "ItemLookUp(&4,"},
        {5, "ItemLookUp(&5,"},
        {8, "ItemLookUp(&8,"},
        {10, "ItemLookUp(&10,"},
        {1121, "ItemLookUp(&1121,"},
        {1122, "ItemLookUp(&1122,"},
        {2014, "ItemLookUp(&2014,"},
        {104031, "ItemLookUp(&1,"},
        {104032, "ItemLookUp(&2,"},
        {104033, "ItemLookUp(&3,"},
        {104034, "ItemLookUp(&4,"},
        {104038, "ItemLookUp(&8,"},
        {1040301, "ItemLookUp(&1,"},
        {1040308, "ItemLookUp(&8,"},
        {12, "CurrencyLookup(&\"search\")"},
        {13, "AccountLookup(&\"search\")"},
        {130, "SettTypeLookup(&\"search\")"},
        {20, "SubMesLookup(&20, &\"search\")"},
        {129, "SubMesLookup(&129, &\"search\")"},
        {131, "SubMesLookup(&131, &\"search\")"},
        {999, "SubMesLookup(&999, &\"search\")"},
        {-1, ""},
        {0, ""},
        {6, ""},
        {9, ""},
        {11, ""},
        {14, ""},
        {19, ""},
        {1000, ""},
        {1120, ""},
        {1123, ""},
        {104035, ""},
        {104037, ""},
        {1040302, ""},
    };
    for (const auto& row : rows) {
        EXPECT_FALSE(Pick(row.itemClass, "search"));
        const std::string last = test.platform.log().empty() ? "" : test.platform.log().back();
        if (*row.call) {
            EXPECT_THAT(last, HasSubstr(std::string("QOREBCGLView.GLView.") + row.call)) << row.itemClass;
        } else {
            EXPECT_EQ(last, "") << row.itemClass;
        }
    }
    EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(ItemLookup, OfAnItemAsksTheProfileRenewsTheCachesAndOpensThePicker) {
    Pick(1, "010", "");
    EXPECT_THAT(
        test.platform.log(),
        ElementsAre(
            "create QOREBCGLView.GLData", "read QOREBCGLView.GLData.SystemProfile",
            "call QOREBCGLView.GLData.SystemProfile.GetSystemProfile(\"Base\", \"DisplayDeleted\", int16(1))",
            "call QOREBCGLView.GLData.Refresh()", "create QOREBCGLView.GLView",
            "call QOREBCGLView.GLView.ItemLookUp(&1, &\"010\", &\"\", &{GetDataType: int16(1), Search: "
            "\"010\"})"));
    Pick(8, "", "");
    EXPECT_THAT(
        test.platform.log(),
        ElementsAre(
            "call QOREBCGLView.GLData.SystemProfile.GetSystemProfile(\"Base\", \"DisplayDeleted\", int16(1))",
            "call QOREBCGLView.GLData.Refresh()",
            "call QOREBCGLView.GLView.ItemLookUp(&8, &\"\", &\"\", &{GetDataType: int16(1), Search: \"\"})"));
}

TEST_F(ItemLookup, LeavesDeletedItemsOutUnlessTheyAreDisplayed) {
    const struct {
        const char* where;
        bool displayDeleted;
        const char* condition;
    } rows[] = {
        {"", true, ""},
        {"", false, " t1.FDeleted=0 "},
        {"a=1", true, "a=1 And  1=1 "},
        {"a=1", false, "a=1 And  t1.FDeleted=0 "},
    };
    for (const auto& row : rows) {
        DisplayDeleted(row.displayDeleted);
        Pick(1, "x", row.where);
        EXPECT_THAT(test.platform.log().back(),
                    HasSubstr("(&1, &\"x\", &\"" + std::string(row.condition) + "\", "));
    }
}

TEST_F(ItemLookup, OfOtherClassesGoesStraightToThePicker) {
    for (const std::int32_t itemClass : {12, 13, 130, 500}) {
        TestProcess fresh;
        fresh.process.itemPicker.ItemLookup(itemClass, "", "", 1);
        ASSERT_EQ(fresh.platform.log().size(), 2U) << itemClass;
        EXPECT_EQ(fresh.platform.log()[0], "create QOREBCGLView.GLView");
    }
}

TEST_F(ItemLookup, OfAUnitHandsTheConditionOverAsANumber) {
    Pick(7, "pc", "12");
    EXPECT_EQ(test.platform.log().back(), "call QOREBCGLView.GLView.UnitLookup(12, &\"pc\")");
    EXPECT_THAT(boxes(), IsEmpty());
    for (const char* where : {"", "a=1"}) {
        test.platform.windows().boxes.clear();
        EXPECT_FALSE(Pick(7, "pc", where));
        ExpectOneBox("基础资料可能没有授权！");
    }
}

TEST_F(ItemLookup, AnswersTheLookupOfAChosenItem) {
    UserPicks(Readable({{"Number", "01.001"}}));
    for (const std::int32_t itemClass : {1, 104031, 12, 130, 500}) {
        EXPECT_EQ(Pick(itemClass), lookup) << itemClass;
    }
    EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(ItemLookup, AnswersNothingWhereTheUserCancels) {
    UserPicks(nullptr);
    for (const std::int32_t itemClass : {1, 13, 500}) {
        EXPECT_FALSE(Pick(itemClass)) << itemClass;
    }
    EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(ItemLookup, RefusesAnAccountThatIsNoDetailAccount) {
    for (const Value& detail : {Value(false), Value(0), Value("False"), Value()}) {
        test.platform.windows().boxes.clear();
        UserPicks(Readable({{"Number", "1001"}, {"Detail", detail}}));
        EXPECT_FALSE(Pick(13));
        ExpectOneBox("不能选择非明细科目 ");
    }
    test.platform.windows().boxes.clear();
    for (const Value& detail : {Value(true), Value(1), Value::Null()}) {
        UserPicks(Readable({{"Number", "1001"}, {"Detail", detail}}));
        EXPECT_EQ(Pick(13), lookup);
    }
    UserPicks(Readable({{"Number", "1001"}, {"Detail", false}}));
    EXPECT_EQ(Pick(500), lookup);
    EXPECT_THAT(boxes(), IsEmpty());
}

TEST_F(ItemLookup, TellsEveryErrorAsAMissingRight) {
    const struct {
        const char* component;
        const char* member;
        std::int32_t itemClass;
    } rows[] = {
        {kView, "ItemLookUp", 1},
        {kView, "UnitLookup", 7},
        {kView, "CurrencyLookup", 12},
        {kView, "AccountLookup", 13},
        {kView, "SettTypeLookup", 130},
        {kView, "SubMesLookup", 20},
        {"QOREBCGLView.GLData", "Refresh", 1},
        {kDataProfile, "GetSystemProfile", 1},
    };
    for (const auto& row : rows) {
        TestProcess failing;
        failing.platform.Component(row.component).Raises(row.member, kDown);
        EXPECT_FALSE(failing.process.itemPicker.ItemLookup(row.itemClass, "", "1", 1));
        ASSERT_EQ(failing.platform.windows().boxes.size(), 1U) << row.member;
        EXPECT_EQ(failing.platform.windows().boxes[0].text, "基础资料可能没有授权！");
    }
    test.platform.Remove(kView);
    EXPECT_FALSE(Pick(1));
    ExpectOneBox("基础资料可能没有授权！");
}

TEST_F(ItemLookup, TellsAnAnswerThatIsNoLookupAsAMissingRight) {
    const Value noLookups[] = {Value(), Value("01"), Readable({{"Number", "01"}}),
                               Readable({{"ReturnObject", Value()}})};
    for (const Value& answer : noLookups) {
        test.platform.windows().boxes.clear();
        test.platform.Component(kView).Otherwise([answer](Arguments) { return answer; });
        EXPECT_FALSE(Pick(1));
        ExpectOneBox("基础资料可能没有授权！");
    }
    test.platform.windows().boxes.clear();
    UserPicks(Readable({{"Number", "1001"}}));
    EXPECT_FALSE(Pick(13));
    ExpectOneBox("基础资料可能没有授权！");
}

}  // namespace
}  // namespace qor
