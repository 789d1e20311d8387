// SchemeDialog: the base of the dialogs that sit on the scheme frame, which owns their buttons and their
// saved schemes. It owns the two panels, the whole one and the short one, and moves values between their
// controls and a scheme; a dialog adds its controls, its field tables and, where it deviates, a hook.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "dialogs/check_boxes.h"
#include "dialogs/field_default.h"
#include "dialogs/item_boxes.h"
#include "platform/frame_owner.h"
#include "process/process.h"
#include "report/filter_dialog.h"

namespace qor {

/// How the value under a filter key comes about.
enum class FieldSource : std::uint8_t {
    Control,  // what its control holds, see ControlValue; where a scheme has no such key, "" or 0 is read
    Trimmed,  // the text of its box without blanks at both ends
    Level,    // the text of its box; where a scheme has no such key, 0 is read
    Copy,     // what its control holds, once more or for the server alone; never read back
    UserID,   // who is logged in; never read back
    Own,      // what the dialog makes of its controls; never read back
};

/// One filter key: the control that holds it, the control's default, and how the value comes about. A key
/// may stand in two rows; the later value is put over the earlier.
struct SchemeField {
    std::string_view key;
    std::string_view control{};
    FieldDefault standard = FieldDefault::Leave;
    FieldSource source = FieldSource::Control;
};

/// A list above the code boxes that says whose codes they are.
struct PartyList {
    std::string_view label;
    std::string_view list;
    std::string_view caption;  // the label's
};

struct SchemeDialogDescription {
    std::string_view formName;                     // "frmFilter10503"
    std::span<const ItemBox> items;                // txtItem(0) and on, of the whole panel
    std::span<const ItemBox> commonItems;          // txtItem(6) and on, of the short panel
    std::span<const SchemeField> fields;           // in the order of writing and reading
    std::span<const SchemeField> commonFields;     // likewise, of the short panel
    std::span<const CheckBoxRow> checks;           // of Frame1
    std::span<const std::string_view> notInType1;  // the check boxes that application type 1 does not have
    std::string_view commonPanel = "PictureCommon";
    const PartyList* parties = nullptr;  // null where the codes are of one sort
    const PartyList* commonParties = nullptr;
    std::string_view statusFrame{};  // a frame of its own for the check states; "" for Frame1
    std::string_view statusCaption = "单据状态:";
    bool fitsAppTypeAtLoad = true;  // hides the check states, shows the rebates, by the application type
};

class SchemeDialog : public FilterDialog, public FrameOwner, protected SchemeFrameHost {
 public:
    SchemeFrame* schemeFrame() override { return frame_.get(); }
    void CancelByUser() override { frame_->Cancel(); }

 protected:
    SchemeDialog(Process& process, const SchemeDialogDescription& description);

    void OnLoad() override;
    bool BeforeShow() override { return frame_->BeginShow(); }
    void OnActivate() override;

    virtual void FillLists() {}         // at the end of Load: the lists beside the check states
    virtual void AdjustForAppType() {}  // at every activation
    virtual void SetOwnDefaults() {}    // behind the field table's
    virtual void PanelFilled();         // a scheme has come into the whole panel
    virtual void Confirmed() {}         // the user has confirmed; the scheme is about to be taken
    /// Whether the key is written at all, as things stand.
    virtual bool Writes(const SchemeField&) const { return true; }
    virtual Value OwnValue(std::string_view) const { return {}; }
    /// Reads one key of a scheme into its control.
    virtual void LoadField(const SchemeField& field, const Dictionary& scheme);
    /// The class that the picker button of a box opens; 0 for none.
    virtual std::int32_t ItemClassOf(std::size_t index) const {
        return ItemsWith(index).row(index).itemClass;
    }

    // The frame's events.
    void OnSchemeDefaults() override;
    void OnSchemeClosing(std::int16_t& cancel) override;
    void OnSchemeToPanel(Dictionary& scheme) override;
    void OnPanelToScheme(Dictionary& scheme) override { Write(description_.fields, scheme); }
    void OnSchemeToCommon(Dictionary& scheme) override;
    void OnCommonToScheme(Dictionary& scheme) override { Write(description_.commonFields, scheme); }
    void OnItemClassOf(Control& control, std::int32_t& itemClass) override;
    void ShowPanel(bool whole) override;
    void CloseDialog() override { Hide(); }

    /// A control that the dialog's tables name.
    template <class T>
    T& The(std::string_view name) const {
        return static_cast<T&>(*Find(name));
    }
    const ItemBoxes& ItemsWith(std::size_t index) const;

    /// The place of a further group of the whole panel, below those that are there.
    Bounds TakePlace(std::int32_t height);
    /// Gives the panels and the form their height; a dialog calls it when all its groups stand.
    void FinishLayout();

    Process& process_;
    const SchemeDialogDescription& description_;
    std::unique_ptr<SchemeFrame> frame_;
    std::int32_t groupsBottom_ = 0;  // twips from the top of the whole panel

    InertControl QORRptFilter{*this, "QORRptFilter", layout::GroupAt(layout::kBarTop, layout::kBarHeight),
                              true};

    Frame PictureCommon;
    Label lblFrom{*this, "lblFrom", "日期范围:", layout::LabelAt(layout::RowTop(0)), &PictureCommon};
    DropDown cmbDateType{*this, "cmbDateType", layout::BoxAt(layout::RowTop(0)), &PictureCommon};
    DatePicker BEGDate;
    Label lblTo{*this, "lblTo", "至", layout::HighLabelAt(layout::RowTop(1)), &PictureCommon};
    DatePicker ENDDate;
    std::unique_ptr<Label> commonPartyLabel_;
    std::unique_ptr<DropDown> commonPartyList_;
    ItemBoxes commonItems_;

    Frame PictureWhole{*this, "PictureWhole", "", layout::GroupAt(layout::kGroupsTop, 0)};
    Frame fraPeriod;
    Label Label1{*this, "Label1", "起始日期:", layout::LabelAt(layout::kFirstRow), &fraPeriod};
    DatePicker DtpBDate;
    Label Label2{*this, "Label2", "截至日期:", layout::WideLabelAt(layout::kFirstRow), &fraPeriod};
    DatePicker DtpEDate;
    Frame fraItem;
    std::unique_ptr<Label> partyLabel_;
    std::unique_ptr<DropDown> partyList_;
    ItemBoxes items_;
    Frame Frame1;
    CheckBoxes checks_;
    std::unique_ptr<Frame> statusFrame_;
    Label lblStatus;
    DropDown cmbCheckState;
    InertControl cmlISIC{*this, "cmlISIC", {}};

 private:
    void ConnectItems(ItemBoxes& boxes);
    CheckBox* FindCheck(std::string_view name) const { return static_cast<CheckBox*>(Find(name)); }
    Control& StatusContainer() { return statusFrame_ ? *statusFrame_ : Frame1; }
    std::int32_t StatusTop() const;
    Dictionary& ResultDictionary() const;
    void Write(std::span<const SchemeField> fields, Dictionary& scheme) const;
    void Read(std::span<const SchemeField> fields, const Dictionary& scheme);
    Value ValueOf(const SchemeField& field) const;
    void TakeAllCheckStates();
};

}  // namespace qor
