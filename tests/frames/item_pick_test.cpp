#include <gmock/gmock.h>

#include "frames/date_types.h"
#include "frames/scheme_frame_fixture.h"

namespace qor {
namespace {

using test::Readable;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kPicker = "QOREBCGLView.GLView";

/// A lookup object whose choice has that number.
Value Chosen(const Value& number) { return Readable({{"ReturnObject", Readable({{"Number", number}})}}); }

class ItemForm : public Form {
 public:
    explicit ItemForm(WindowSystem& windows) : Form(windows, "frmFilter10502", {1000, 1000}) {}
    TextBox box{*this, "txtItem(0)", "01", {}};
    Button button{*this, "cmdItem(0)", "", {}};
    DropDown cmbDateType{*this, "cmbDateType", {}};
    DatePicker BEGDate{*this, "BEGDate", Date{43000}, {}};
    DatePicker ENDDate{*this, "ENDDate", Date{43001}, {}};
};

class ItemPick : public test::SchemeFrameTest {
 protected:
    ItemPick() { platform.Component(kPicker).Answers("ItemLookUp", Value::Nothing()); }
    void Pick() { dialog.frame.PickItem(items->button, items->box); }
    test::Script& Picker() { return platform.Component(kPicker); }
    std::size_t BoxesShown() { return platform.windows().boxes.size(); }

    Ref<ItemForm> items = MakeRef<ItemForm>(platform.windows());
};

TEST_F(ItemPick, AsksThePickerOfTheFormsClass) {
    form.itemClass = 14;
    Picker().Answers("ItemLookUp", Chosen("01.002"));
    Pick();
    EXPECT_THAT(form.events, ElementsAre("class of cmdItem(0)"));
    EXPECT_THAT(platform.log(), ElementsAre("create QOREBCGLView.GLView",
                                            "call QOREBCGLView.GLView.ItemLookUp(&14, &\"01\", &\"\", "
                                            "&{GetDataType: int16(1), Search: \"01\"})"));
    EXPECT_EQ(items->box.text(), "01.002");
}

TEST_F(ItemPick, MakesItsComponentOnce) {
    form.itemClass = 1;
    Pick();
    Pick();
    EXPECT_THAT(platform.log(), Contains("create QOREBCGLView.GLView").Times(1));
    EXPECT_EQ(platform.log().size(), 3u);
}

TEST_F(ItemPick, AnIndexWithoutAClassOpensNothing) {
    Pick();
    EXPECT_THAT(platform.log(), IsEmpty());
}

TEST_F(ItemPick, WithoutAChoiceTheBoxKeepsItsText) {
    form.itemClass = 1;
    for (const Value& answer :
         {Value(), Value::Nothing(), Value(Readable({{"ReturnObject", Value::Nothing()}}))}) {
        Picker().Answers("ItemLookUp", answer);
        Pick();
        EXPECT_EQ(items->box.text(), "01");
    }
    EXPECT_EQ(BoxesShown(), 0u);
}

TEST_F(ItemPick, AFailureNamesTheLikelyCause) {
    form.itemClass = 1;
    Picker().Raises("ItemLookUp", Error(5, "server", "no right"));
    Pick();
    ASSERT_EQ(BoxesShown(), 1u);
    EXPECT_EQ(platform.windows().boxes[0].text, "基础资料可能没有授权！");
    EXPECT_EQ(platform.windows().boxes[0].title, "信息提示");
    EXPECT_EQ(platform.windows().boxes[0].style, 64);
    EXPECT_EQ(items->box.text(), "01");

    Picker().Answers("ItemLookUp", Chosen(std::int32_t{7}));
    Pick();
    EXPECT_EQ(items->box.text(), "7");
}

TEST_F(ItemPick, AMissingComponentIsTriedAgainTheNextTime) {
    form.itemClass = 1;
    platform.Remove(kPicker);
    Pick();
    EXPECT_EQ(BoxesShown(), 1u);
    Picker().Answers("ItemLookUp", Chosen("01.003"));
    Pick();
    EXPECT_EQ(items->box.text(), "01.003");
}

TEST_F(ItemPick, TheListOfPeriodsReckonsFromTheClocksDay) {
    items->Load();
    dialog.frame.AttachDateTypes(items->cmbDateType, items->BEGDate, items->ENDDate,
                                 [] { return DateFromCalendar(2020, 8, 1).value(); });
    items->cmbDateType.SetListIndex(static_cast<int>(DateType::Today));
    EXPECT_EQ(FormatIsoDate(items->BEGDate.value()), "2020-09-15");
    items->cmbDateType.SetListIndex(static_cast<int>(DateType::ThisPeriod));
    EXPECT_EQ(FormatIsoDate(items->ENDDate.value()), "2020-08-31");
}

}  // namespace
}  // namespace qor
