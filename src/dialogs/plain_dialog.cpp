#include "dialogs/plain_dialog.h"

#include "dialogs/check_states.h"
#include "dialogs/control_values.h"
#include "dialogs/date_range_guard.h"
#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::int32_t kEnter = 13, kApostrophe = 39, kF7 = 118, kF8 = 119;
constexpr std::int32_t kDateRow = layout::kFirstRow;

}  // namespace

PlainDialog::PlainDialog(Process& process, const PlainDialogDescription& description)
    : FilterDialog(process.platform.windows(), std::string(description.formName),
                   Size{layout::kFormWidth, 0}),
      process_(process),
      description_(description),
      frame_(process.platform.NewPlainFrame(*this)),
      Label1(
          description.hasBeginDate
              ? std::make_unique<Label>(*this, "Label1", "起始日期:", layout::LabelAt(kDateRow), &fraPeriod)
              : nullptr),
      DtpBDate(description.hasBeginDate
                   ? std::make_unique<DatePicker>(*this, "DtpBDate", process.platform.Today(),
                                                  layout::BoxAt(kDateRow), &fraPeriod)
                   : nullptr),
      Label2(std::make_unique<Label>(
          *this, "Label2", "截至日期:",
          description.hasBeginDate ? layout::WideLabelAt(kDateRow) : layout::LabelAt(kDateRow), &fraPeriod)),
      DtpEDate(std::make_unique<DatePicker>(
          *this, "DtpEDate", process.platform.Today(),
          description.hasBeginDate ? layout::HighBoxAt(kDateRow) : layout::BoxAt(kDateRow), &fraPeriod)),
      fraItem(
          *this, "fraItem", "",
          layout::GroupAt(layout::Below(fraPeriod.bounds()), layout::GroupHeight(RowsOf(description.items)))),
      items_(*this, fraItem, description.items, layout::kFirstRow),
      nameList_(process.platform) {
    SetCaption("过滤");
    cmdOK.onClick = [this] { Confirm(); };
    cmdCacel.onClick = [this] { Cancel(); };
    ConnectItems();
}

void PlainDialog::ConnectItems() {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        TextBox& box = items_.txtItem(i);
        if (Button* button = items_.cmdItem(i)) {
            button->onClick = [this, i] { Pick(i); };
            box.onKeyDown = LookupKeys(i);
        }
        if (!description_.hasNameList) continue;
        const std::int32_t listed = items_.row(i).nameListClass;
        box.onGotFocus = [this, i, listed] {
            if (listed != 0) {
                nameList_.Attach(items_.txtItem(i), listed);
            } else {
                nameList_.Detach();
            }
        };
        box.onLostFocus = [this] { nameList_.Detach(); };
    }
}

std::function<void(std::int32_t&)> PlainDialog::LookupKeys(std::size_t index) {
    return [this, index](std::int32_t& keyCode) {
        if (keyCode != kF7 && keyCode != kF8) return;
        lookupKey_ = keyCode;
        Pick(index);
    };
}

void PlainDialog::FinishLayout(const Frame& lastGroup) {
    const std::int32_t bottom = lastGroup.bounds().top + lastGroup.bounds().height;
    cmdOK.SetBounds(layout::ConfirmAt(bottom + layout::kMargin));
    cmdCacel.SetBounds(layout::CancelAt(bottom + layout::kMargin));
    for (Control* last : {static_cast<Control*>(&cmdOK), static_cast<Control*>(&cmdCacel)}) {
        MoveToEndOfTabOrder(*last);
    }
    SetSize({layout::kFormWidth, bottom + layout::kButtonRow});
}

void PlainDialog::OnLoad() {
    WritePadText();
    EarlyLoad();
    IgnoringErrors([this] { ResetResult(); });
    firstActivation_ = true;
    IgnoringErrors([this] { AttachGuard(); });
    if (!description_.hidesCheckStateForAppType1) return;
    IgnoringErrors([this] {
        if (process_.bag.GetAppType() != 1) return;
        Find("lblStatus")->SetVisible(false);
        Find("cmbCheckState")->SetVisible(false);
    });
}

void PlainDialog::AttachGuard() { AttachDateRange(process_, *DtpBDate, *DtpEDate, ToText(RptID())); }

void PlainDialog::ResetResult() {
    const Ref<Dictionary> result = process_.platform.NewDictionary();
    result->Put("OK", false);
    SetResult(result);
}

void PlainDialog::OnActivate() {
    if (!firstActivation_) return;
    SetCaptions();
    FillLists();
    SetSchemeOptions();
    StartFrame();
    AdjustForAppType();
    firstActivation_ = false;
}

void PlainDialog::SetCaptions() {
    SetCaption(ResText("过滤"));
    cmdOK.SetCaption(ResText("确定(&O)"));
    cmdCacel.SetCaption(ResText("取消(&E)"));
}

void PlainDialog::SetSchemeOptions() {
    try {
        frame_->SetSchemeOption(1, false);
        frame_->SetSchemeOption(2, false);
    } catch (const Error& error) {
        windows().MessageBox(error.description(), "", kPlainBox);
    }
}

void PlainDialog::StartFrame() {
    std::int32_t number = RptID();
    frame_->InitScheme(number, description_.title);
}

void PlainDialog::FillLists() {
    if (Control* states = Find("cmbCheckState")) FillCheckStates(static_cast<DropDown&>(*states));
}

void PlainDialog::OnUnload() { nameList_.Detach(); }

void PlainDialog::OnKeyDown(std::int32_t& keyCode) {
    if (keyCode == kEnter) SendTab();
}

void PlainDialog::OnKeyPress(std::int32_t& character) {
    // The codes go into statements on the server, so no apostrophe can be typed.
    if (character == kEnter || character == kApostrophe) character = 0;
}

void PlainDialog::Pick(std::size_t index) {
    if (lookupKey_ == 0 || lookupKey_ == kF7 || lookupKey_ == kF8) {
        const Ref<Object> picked =
            process_.itemPicker.ItemLookup(ItemClassOf(index), items_.txtItem(index).text(), "", 1);
        if (picked) TakePicked(index, ObjectIn(picked->Get("ReturnObject")));
    }
    lookupKey_ = 0;
}

void PlainDialog::TakePicked(std::size_t index, Object& picked) {
    items_.txtItem(index).SetText(ToText(picked.Get("Number")));
}

void PlainDialog::Confirm() {
    PrepareConfirm();
    if (!CheckDateOrder() || !CheckConfirm()) return;
    TakeConditions();
    AddResultKeys(*Result());
    CloseConfirmed();
}

void PlainDialog::Cancel() { Hide(); }

bool PlainDialog::CheckDateOrder() {
    if (FormatIsoDate(DtpBDate->value()) <= FormatIsoDate(DtpEDate->value())) return true;
    ShowMessage(ResText("起始日期不能大于截止日期!"), ResText("信息提示："));
    DtpBDate->SetValue(DtpEDate->value());
    return false;
}

void PlainDialog::ShowMessage(std::string_view text, std::string_view title) {
    windows().MessageBox(text, title, kInformationIcon);
}

void PlainDialog::TakeConditions() {
    process_.session.ParsePropsString(process_.session.GetPropsString());
    SetResult(frame_->CurrentConditions());
}

std::string PlainDialog::SaveField(const Control& control) const { return ControlText(control); }

void PlainDialog::LoadField(Control& control, const Value& text) { SetControlText(control, text); }

void PlainDialog::OnPlainSave(std::string& scheme) {
    for (const PlainField& field : description_.fields) {
        frame_->SetSchemeItem(scheme, field.key, SaveField(*Find(field.control)));
    }
}

void PlainDialog::OnPlainLoad(const std::string& scheme) {
    for (const PlainField& field : description_.fields) {
        IgnoringErrors([&] {
            const Value saved = frame_->GetSchemeItem(scheme, field.key);
            const bool emptyState = field.key == "CheckState" && ToText(saved).empty();
            LoadField(*Find(field.control), emptyState ? Value("0") : saved);
        });
    }
}

void PlainDialog::OnPlainRefresh() {
    if (description_.takesSchemeHost) frame_->SchemeHost();
    frame_->RefreshSchemes();
}

void PlainDialog::OnPlainDefaults() {
    for (const PlainField& field : description_.fields) {
        IgnoringErrors([&] { SetToDefault(process_, *Find(field.control), field.standard); });
    }
    SetOwnDefaults();
}

}  // namespace qor
