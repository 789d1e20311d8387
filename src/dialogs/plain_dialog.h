// PlainDialog: the base of the dialogs that sit on the plain frame. It owns the date range, the code boxes,
// the keys, OK and Cancel; a dialog adds its controls, its field table and, where it deviates, a hook.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "dialogs/field_default.h"
#include "dialogs/item_boxes.h"
#include "dialogs/name_list.h"
#include "platform/frame_owner.h"
#include "process/process.h"
#include "report/filter_dialog.h"

namespace qor {

/// One filter key: the control that holds it, and the control's default.
struct PlainField {
    std::string_view key;
    std::string_view control;
    FieldDefault standard;
};

struct PlainDialogDescription {
    std::string_view formName;  // "frmFilter10522"
    std::string_view title;     // the frame's display name, the report's title
    std::span<const ItemBox> items;
    std::span<const PlainField> fields;  // in the order of saving and loading
    bool hasBeginDate = true;
    bool hasNameList = true;
    bool hidesCheckStateForAppType1 = false;
    bool takesSchemeHost = true;  // when the list of schemes has changed
};

class PlainDialog : public FilterDialog, public FrameOwner, protected PlainFrameHost {
 public:
    PlainFrame* plainFrame() override { return frame_.get(); }
    void CancelByUser() override { Cancel(); }

 protected:
    PlainDialog(Process& process, const PlainDialogDescription& description);

    // The order of the dialog's life, step by step; the defaults are those of most dialogs.
    void OnLoad() override;
    void OnActivate() override;
    void OnUnload() override;
    void OnKeyDown(std::int32_t& keyCode) override;
    void OnKeyPress(std::int32_t& character) override;

    virtual void EarlyLoad() {}                   // ahead of everything that ignores errors
    virtual void AttachGuard();                   // the date-range guard
    virtual void FillLists();                     // at first activation, behind the captions
    virtual void AdjustForAppType() {}            // at first activation, behind the frame's first scheme
    virtual void PrepareConfirm() {}              // at OK, ahead of all checks
    virtual bool CheckConfirm() { return true; }  // at OK, behind the date order; false keeps the dialog open
    /// At OK, behind the frame's keys: the dialog's own, in their order.
    virtual void AddResultKeys(Dictionary& result) = 0;
    /// The class that the picker button of a box opens.
    virtual std::int32_t ItemClassOf(std::size_t index) const { return items_.row(index).itemClass; }
    /// Puts what the picker answered into its box.
    virtual void TakePicked(std::size_t index, Object& picked);
    virtual void SetOwnDefaults() {}  // behind the field table's
    // A dialog with a control of a kind of its own says here what that control holds.
    virtual std::string SaveField(const Control& control) const;
    virtual void LoadField(Control& control, const Value& text);

    // Steps that a deviating dialog calls in its own order.
    virtual void Confirm();
    virtual void Cancel();
    virtual void CloseConfirmed() { Hide(); }
    void WritePadText() { padText_ = std::string(50, ' ') + "|"; }
    void ResetResult();
    void SetCaptions();
    void SetSchemeOptions();
    void StartFrame();
    bool CheckDateOrder();
    /// Shows one of the dialog's messages with the information icon.
    void ShowMessage(std::string_view text, std::string_view title);
    void TakeConditions();
    void Pick(std::size_t index);
    /// A box's key handler that opens the picker of a code box on F7 and F8.
    std::function<void(std::int32_t&)> LookupKeys(std::size_t index);

    // The frame's events.
    void OnPlainNotify(const Value&) override {}
    void OnPlainSave(std::string& scheme) override;
    void OnPlainLoad(const std::string& scheme) override;
    void OnPlainRefresh() override;
    void OnPlainDefaults() override;

    // Common values of AddResultKeys.
    Value UserID() const { return std::int32_t{process_.session.GetUserID()}; }

    /// Places the buttons below the last group and puts them last in the tab order; gives the form its
    /// height.
    void FinishLayout(const Frame& lastGroup);
    /// The place of a group below the frame of the code boxes.
    Bounds GroupBelowItems(std::int32_t height) const {
        return layout::GroupAt(layout::Below(fraItem.bounds()), height);
    }

    Process& process_;
    const PlainDialogDescription& description_;
    std::unique_ptr<PlainFrame> frame_;

    InertControl QORRptFilter1{*this, "QORRptFilter1", layout::GroupAt(layout::kBarTop, layout::kBarHeight),
                               true};
    Frame fraPeriod{*this, "fraPeriod", "", layout::GroupAt(layout::kGroupsTop, layout::GroupHeight(1))};
    std::unique_ptr<Label> Label1;
    std::unique_ptr<DatePicker> DtpBDate;  // absent where the report has one date
    std::unique_ptr<Label> Label2;
    std::unique_ptr<DatePicker> DtpEDate;
    Frame fraItem;
    ItemBoxes items_;
    Button cmdOK{*this, "cmdOK", "确定(&O)", {}};
    Button cmdCacel{*this, "cmdCacel", "取消(&E)", {}};
    InertControl cmlISIC{*this, "cmlISIC", {}};

 private:
    void ConnectItems();

    bool firstActivation_ = false;
    std::int32_t lookupKey_ = 0;
    std::string padText_;  // 50 blanks and a bar; written at Load, read nowhere
    NameList nameList_;
};

}  // namespace qor
