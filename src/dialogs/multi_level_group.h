// MultiLevelGroup: the group frmMultiLevel of the summary dialogs. It holds the way of summing and the range
// of category levels to sum over, and keeps the two level boxes within the levels that there are and in
// order.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "dialogs/layout.h"
#include "platform/controls.h"
#include "services/system_profile.h"

namespace qor {

/// One way of summing.
struct SumWay {
    std::string_view caption;
    std::string_view field;  // of the data set, which the server groups by
    std::int32_t itemClass;  // whose category levels there are
};

class MultiLevelGroup {
 public:
    static constexpr std::int32_t kHeight = layout::GroupHeight(2);

    /// `ways` must outlive the group.
    MultiLevelGroup(Form& form, Control& container, Bounds place, SystemProfile& server,
                    std::span<const SumWay> ways);

    /// Fills the list of the ways of summing and selects the first. Raises what the server raises.
    void FillTotalList();
    void SetVisible(bool visible) { frmMultiLevel.SetVisible(visible); }

    /// The field of the selected way. Raises 9 where none is selected.
    std::string GetGroupBy() const;
    /// The selected entry as it stands: caption, padding and field.
    std::string SumBy() const { return cboTotal.text(); }
    const std::string& begin() const { return txtMultiLevelBegin.text(); }
    const std::string& end() const { return txtMultiLevelEnd.text(); }
    std::int32_t maxLevel() const { return MaxLevel; }

 private:
    void TotalChosen();
    std::int32_t GetMaxLevel(std::int32_t classID);
    void BeginChanged();
    void EndChanged();
    /// Raises 13 where the box holds no number.
    void Clamp(TextBox& box, Spin& spin);
    bool BeginReachesEnd() const;

    SystemProfile& server_;
    std::span<const SumWay> ways_;
    std::int32_t MaxLevel = 1;  // the deepest level that the boxes may reach

    Frame frmMultiLevel;
    Label lblTotal;
    DropDown cboTotal;
    CheckBox chkShowTotalRow;
    Label lblMultiLevelBegin;
    TextBox txtMultiLevelBegin;
    Spin UpDownMultiLevelBegin;
    Label lblMultiLevelEnd;
    TextBox txtMultiLevelEnd;
    Spin UpDownMultiLevelEnd;
};

}  // namespace qor
