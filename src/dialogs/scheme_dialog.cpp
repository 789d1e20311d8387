#include "dialogs/scheme_dialog.h"

#include <algorithm>

#include "dialogs/check_states.h"
#include "dialogs/control_values.h"
#include "platform/conversions.h"

namespace qor {

namespace {

using layout::BoxAt, layout::GroupAt, layout::GroupHeight, layout::HighBoxAt, layout::LabelAt, layout::RowTop;

constexpr std::int32_t kDateRow = RowTop(0);
constexpr std::int32_t kCommonRows = 2;  // of the short panel, ahead of the codes
constexpr std::size_t kFirstCommonItem = 6;

std::int32_t PartyRows(const PartyList* parties) { return parties ? 1 : 0; }

std::int32_t ItemsHeight(const SchemeDialogDescription& description) {
    return GroupHeight(RowsOf(description.items) + PartyRows(description.parties));
}

std::int32_t CommonHeight(const SchemeDialogDescription& description) {
    return GroupHeight(kCommonRows + PartyRows(description.commonParties) + RowsOf(description.commonItems));
}

/// The check states stand below the check boxes, or in a frame of their own.
CheckBoxes::LastBox LastBoxOf(const SchemeDialogDescription& description) {
    return description.statusFrame.empty() ? CheckBoxes::LastBox::SharesNextRow : CheckBoxes::LastBox::OwnRow;
}

std::int32_t ChecksBottom(const SchemeDialogDescription& description) {
    return CheckBoxes::Bottom(description.checks.size(), LastBoxOf(description));
}

std::int32_t ChecksHeight(const SchemeDialogDescription& description) {
    const std::int32_t states = description.statusFrame.empty() ? layout::kRowHeight : 0;
    return ChecksBottom(description) + states + 60;
}

std::unique_ptr<Label> PartyLabel(Form& form, const PartyList* parties, std::int32_t top, Control& panel) {
    if (!parties) return nullptr;
    return std::make_unique<Label>(form, std::string(parties->label), parties->caption, LabelAt(top), &panel);
}

std::unique_ptr<DropDown> PartyDropDown(Form& form, const PartyList* parties, std::int32_t top,
                                        Control& panel) {
    if (!parties) return nullptr;
    return std::make_unique<DropDown>(form, std::string(parties->list), BoxAt(top), &panel);
}

}  // namespace

SchemeDialog::SchemeDialog(Process& process, const SchemeDialogDescription& description)
    : FilterDialog(process.platform.windows(), std::string(description.formName),
                   Size{layout::kFormWidth, 0}),
      process_(process),
      description_(description),
      frame_(process.platform.NewSchemeFrame(*this)),
      PictureCommon(*this, std::string(description.commonPanel), "",
                    GroupAt(layout::kGroupsTop, CommonHeight(description))),
      BEGDate(*this, "BEGDate", process.platform.Today(), BoxAt(RowTop(1)), &PictureCommon),
      ENDDate(*this, "ENDDate", process.platform.Today(), HighBoxAt(RowTop(1)), &PictureCommon),
      commonPartyLabel_(PartyLabel(*this, description.commonParties, RowTop(kCommonRows), PictureCommon)),
      commonPartyList_(PartyDropDown(*this, description.commonParties, RowTop(kCommonRows), PictureCommon)),
      commonItems_(*this, PictureCommon, description.commonItems,
                   RowTop(kCommonRows + PartyRows(description.commonParties)), kFirstCommonItem),
      fraPeriod(*this, "fraPeriod", "", TakePlace(GroupHeight(1)), &PictureWhole),
      DtpBDate(*this, "DtpBDate", process.platform.Today(), BoxAt(kDateRow), &fraPeriod),
      DtpEDate(*this, "DtpEDate", process.platform.Today(), HighBoxAt(kDateRow), &fraPeriod),
      fraItem(*this, "fraItem", "", TakePlace(ItemsHeight(description)), &PictureWhole),
      partyLabel_(PartyLabel(*this, description.parties, RowTop(0), fraItem)),
      partyList_(PartyDropDown(*this, description.parties, RowTop(0), fraItem)),
      items_(*this, fraItem, description.items, RowTop(PartyRows(description.parties))),
      Frame1(*this, "Frame1", "", TakePlace(ChecksHeight(description)), &PictureWhole),
      checks_(*this, Frame1, description.checks, LastBoxOf(description)),
      statusFrame_(description.statusFrame.empty()
                       ? nullptr
                       : std::make_unique<Frame>(*this, std::string(description.statusFrame), "",
                                                 TakePlace(GroupHeight(1)), &PictureWhole)),
      lblStatus(*this, "lblStatus", description.statusCaption, LabelAt(StatusTop()), &StatusContainer()),
      cmbCheckState(*this, "cmbCheckState", BoxAt(StatusTop()), &StatusContainer()) {
    SetCaption("过滤");
    PictureWhole.SetBorder(false);
    if (CheckBox* box = checks_.inNextRow()) TabBehind(*box, cmbCheckState);
    ConnectItems(commonItems_);
    ConnectItems(items_);
    if (CheckBox* box = FindCheck("chkIncludeWT")) {
        box->onClick = [this, box] {
            box->IsChecked() ? TakeAllCheckStates() : cmbCheckState.SetEnabled(true);
        };
    }
}

std::int32_t SchemeDialog::StatusTop() const { return statusFrame_ ? RowTop(0) : ChecksBottom(description_); }

Bounds SchemeDialog::TakePlace(std::int32_t height) {
    const std::int32_t top = groupsBottom_ == 0 ? 0 : groupsBottom_ + layout::kGroupGap;
    groupsBottom_ = top + height;
    return {0, top, layout::kGroupWidth, height};
}

void SchemeDialog::FinishLayout() {
    PictureWhole.SetBounds(GroupAt(layout::kGroupsTop, groupsBottom_));
    ShowPanel(true);
}

void SchemeDialog::ConnectItems(ItemBoxes& boxes) {
    for (std::size_t i = boxes.firstIndex(); i < boxes.firstIndex() + boxes.size(); ++i) {
        if (Button* button = boxes.cmdItem(i)) {
            button->onClick = [this, button, &box = boxes.txtItem(i)] { frame_->PickItem(*button, box); };
        }
    }
}

void SchemeDialog::OnLoad() {
    frame_->SetFrameRptID(RptID());
    if (Result()) {
        frame_->LoadScheme(Result());
    } else {
        SetResult(process_.platform.NewDictionary());
        Result()->Put("OK", false);
    }
    frame_->LinkFrameAutoFilter(autoFilter());

    SetCaption(ResText("过滤"));
    FillCheckStates(cmbCheckState);
    if (description_.fitsAppTypeAtLoad) {
        const std::int32_t appType = process_.bag.GetAppType();
        if (appType == 1) {
            lblStatus.SetVisible(false);
            cmbCheckState.SetVisible(false);
        }
        if (CheckBox* rebates = FindCheck("chkIncludeFL")) rebates->SetVisible(appType == 4);
    }
    FillLists();
    frame_->AttachDateTypes(cmbDateType, BEGDate, ENDDate,
                            [this] { return ToDate(process_.systemProfile.CurrentPeriodFirstDay()); });
}

void SchemeDialog::OnActivate() {
    if (process_.bag.GetAppType() == 1) {
        for (const std::string_view name : description_.notInType1) {
            The<CheckBox>(name).SetVisible(false);
            The<CheckBox>(name).SetValue(0);
        }
    }
    AdjustForAppType();
}

Dictionary& SchemeDialog::ResultDictionary() const {
    if (!Result()) Raise(Automation::ObjectNotSet);
    return *Result();
}

void SchemeDialog::OnSchemeClosing(std::int16_t& cancel) {
    IgnoringErrors([&] {
        ResultDictionary().Put("OK", false);
        if (cancel != 0) return;
        Confirmed();
        SetResult(frame_->CurrentScheme());
        ResultDictionary().Put("OK", true);
    });
}

Value SchemeDialog::ValueOf(const SchemeField& field) const {
    switch (field.source) {
        case FieldSource::Control:
        case FieldSource::Level:
        case FieldSource::Copy:
            return ControlValue(*Find(field.control));
        case FieldSource::Trimmed:
            return Trimmed(The<TextBox>(field.control).text());
        case FieldSource::UserID:
            process_.session.ParsePropsString(process_.session.GetPropsString());
            return std::int32_t{process_.session.GetUserID()};
        case FieldSource::Own:
            break;
    }
    return OwnValue(field.key);
}

void SchemeDialog::Write(std::span<const SchemeField> fields, Dictionary& scheme) const {
    for (const SchemeField& field : fields) {
        if (Writes(field)) scheme.Put(field.key, ValueOf(field));
    }
}

void SchemeDialog::Read(std::span<const SchemeField> fields, const Dictionary& scheme) {
    for (const SchemeField& field : fields) {
        if (field.source > FieldSource::Level) continue;
        IgnoringErrors([&] { LoadField(field, scheme); });
    }
}

void SchemeDialog::LoadField(const SchemeField& field, const Dictionary& scheme) {
    Control& control = *Find(field.control);
    if (control.kind() == Control::Kind::Date) {
        const Value date = scheme.Get(field.key);
        if (IsDate(date)) SetControlText(control, date);
        return;
    }
    const bool isText = control.kind() == Control::Kind::Text && field.source != FieldSource::Level;
    SetControlText(control, scheme.GetOr(field.key, isText ? Value("") : Value(0)));
}

void SchemeDialog::OnSchemeToPanel(Dictionary& scheme) {
    Read(description_.fields, scheme);
    PanelFilled();
}

void SchemeDialog::OnSchemeToCommon(Dictionary& scheme) {
    IgnoringErrors([this] { cmbDateType.SetListIndex(0); });
    Read(description_.commonFields, scheme);
}

void SchemeDialog::PanelFilled() {
    // The box may have been ticked before, and then its click has not overruled the state just read.
    if (const CheckBox* box = FindCheck("chkIncludeWT"); box && box->IsChecked()) TakeAllCheckStates();
}

void SchemeDialog::TakeAllCheckStates() {
    cmbCheckState.SetListIndex(kAllCheckStates);
    cmbCheckState.SetEnabled(false);
}

void SchemeDialog::OnSchemeDefaults() {
    for (const SchemeField& field : description_.fields) {
        if (field.standard == FieldDefault::Leave) continue;
        IgnoringErrors([&] { SetToDefault(process_, *Find(field.control), field.standard); });
    }
    SetOwnDefaults();
}

const ItemBoxes& SchemeDialog::ItemsWith(std::size_t index) const {
    return index < commonItems_.firstIndex() ? items_ : commonItems_;
}

void SchemeDialog::OnItemClassOf(Control& control, std::int32_t& itemClass) {
    for (const ItemBoxes* boxes : {&items_, &commonItems_}) {
        for (std::size_t i = boxes->firstIndex(); i < boxes->firstIndex() + boxes->size(); ++i) {
            if (boxes->cmdItem(i) != &control) continue;
            if (const std::int32_t opened = ItemClassOf(i); opened != 0) itemClass = opened;
        }
    }
}

void SchemeDialog::ShowPanel(bool whole) {
    PictureCommon.SetVisible(!whole);
    PictureWhole.SetVisible(whole);
    const std::int32_t height = (whole ? PictureWhole : PictureCommon).bounds().height;
    SetSize({layout::kFormWidth, layout::kGroupsTop + height + layout::kButtonRow});
    if (focus() && !focus()->IsShown()) QORRptFilter.SetFocus();
}

}  // namespace qor
