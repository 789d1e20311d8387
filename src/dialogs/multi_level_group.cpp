#include "dialogs/multi_level_group.h"

#include <algorithm>

#include "services/texts.h"

namespace qor {

namespace {

constexpr std::int32_t kTotalRow = layout::RowTop(0), kLevelRow = layout::RowTop(1);

/// Keeps an entry's field beyond the visible width of the list.
std::string Entry(const SumWay& way) {
    return std::string(ResText(way.caption)) + std::string(50, ' ') + "|" + std::string(way.field);
}

}  // namespace

MultiLevelGroup::MultiLevelGroup(Form& form, Control& container, Bounds place, SystemProfile& server,
                                 std::span<const SumWay> ways)
    : server_(server),
      ways_(ways),
      frmMultiLevel(form, "frmMultiLevel", "", place, &container),
      lblTotal(form, "lblTotal", "汇总依据:", layout::LabelAt(kTotalRow), &frmMultiLevel),
      cboTotal(form, "cboTotal", layout::BoxAt(kTotalRow), &frmMultiLevel),
      chkShowTotalRow(form, "chkShowTotalRow", "仅显示汇总行", 0, layout::HighCheckAt(kTotalRow),
                      &frmMultiLevel),
      lblMultiLevelBegin(form, "lblMultiLevelBegin", "类别级别:", layout::LabelAt(kLevelRow), &frmMultiLevel),
      txtMultiLevelBegin(form, "txtMultiLevelBegin", "1", layout::NarrowBox(layout::BoxAt(kLevelRow)),
                         &frmMultiLevel),
      UpDownMultiLevelBegin(form, "UpDownMultiLevelBegin", layout::ArrowsOf(layout::BoxAt(kLevelRow)),
                            &frmMultiLevel),
      lblMultiLevelEnd(form, "lblMultiLevelEnd", "至:", layout::HighLabelAt(kLevelRow), &frmMultiLevel),
      txtMultiLevelEnd(form, "txtMultiLevelEnd", "1", layout::NarrowBox(layout::HighBoxAt(kLevelRow)),
                       &frmMultiLevel),
      UpDownMultiLevelEnd(form, "UpDownMultiLevelEnd", layout::ArrowsOf(layout::HighBoxAt(kLevelRow)),
                          &frmMultiLevel) {
    cboTotal.onClick = [this] { TotalChosen(); };
    // A box that holds no number, as while it is being typed anew, is left alone.
    txtMultiLevelBegin.onChange = [this] { IgnoringErrors([this] { BeginChanged(); }); };
    txtMultiLevelEnd.onChange = [this] { IgnoringErrors([this] { EndChanged(); }); };
    UpDownMultiLevelBegin.onChange = [this] {
        txtMultiLevelBegin.SetText(ToText(UpDownMultiLevelBegin.value()));
    };
    UpDownMultiLevelEnd.onChange = [this] { txtMultiLevelEnd.SetText(ToText(UpDownMultiLevelEnd.value())); };
}

void MultiLevelGroup::FillTotalList() {
    cboTotal.Clear();
    for (const SumWay& way : ways_) {
        cboTotal.AddItem(Entry(way));
    }
    cboTotal.SetListIndex(0);
}

void MultiLevelGroup::TotalChosen() {
    txtMultiLevelBegin.SetText("1");
    txtMultiLevelEnd.SetText("1");
    const std::string chosen = cboTotal.text();
    const auto way = std::ranges::find_if(ways_, [&](const SumWay& w) { return Entry(w) == chosen; });
    MaxLevel = way == ways_.end() ? 1 : GetMaxLevel(way->itemClass);
    UpDownMultiLevelBegin.SetRange(1, MaxLevel);
    UpDownMultiLevelEnd.SetRange(1, MaxLevel);
}

std::int32_t MultiLevelGroup::GetMaxLevel(std::int32_t classID) {
    const Ref<RecordSet> rows = server_.ExecuteSql(
        "select (max(FLevel) - 1) as MaxLevel from t_Item, t_ItemClass where t_Item.FItemClassID = "
        "t_ItemClass.FItemClassID and t_ItemClass.FItemClassID=" +
        ToText(classID) + "\n");
    if (!rows || rows->Eof()) return 1;
    // A class without items has no deepest level: the server answers Null.
    return std::max(1, ToInt32(FieldOr(*rows, "MaxLevel", 1)));
}

void MultiLevelGroup::BeginChanged() {
    Clamp(txtMultiLevelBegin, UpDownMultiLevelBegin);
    if (BeginReachesEnd()) txtMultiLevelEnd.SetText(txtMultiLevelBegin.text());
}

void MultiLevelGroup::EndChanged() {
    Clamp(txtMultiLevelEnd, UpDownMultiLevelEnd);
    if (BeginReachesEnd()) txtMultiLevelBegin.SetText(txtMultiLevelEnd.text());
}

/// The texts are compared, not the numbers: level 9 reaches level 10.
bool MultiLevelGroup::BeginReachesEnd() const { return txtMultiLevelBegin.text() >= txtMultiLevelEnd.text(); }

void MultiLevelGroup::Clamp(TextBox& box, Spin& spin) {
    const std::int32_t level = ToInt32(box.text());
    if (level > MaxLevel) {
        box.SetText(ToText(MaxLevel));
    } else if (level < 1) {
        box.SetText("1");
    } else if (ToText(level) == box.text()) {
        spin.SetValue(level);  // the arrows go on from what was typed
    }
}

std::string MultiLevelGroup::GetGroupBy() const {
    const std::string chosen = cboTotal.text();
    const std::size_t bar = chosen.find('|');
    if (bar == std::string::npos) Raise(Automation::SubscriptOutOfRange);
    return chosen.substr(bar + 1, chosen.find('|', bar + 1) - (bar + 1));
}

}  // namespace qor
