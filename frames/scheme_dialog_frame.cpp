#include "frames/scheme_dialog_frame.h"

#include "frames/date_types.h"
#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::int32_t kConfirmAtOnce = -2;
constexpr std::int16_t kDataTypeOfPickers = 1;

SavedScheme FromDictionary(const Dictionary& dictionary) {
    SavedScheme scheme;
    for (std::size_t i = 0; i < dictionary.Count(); ++i) {
        std::string key = dictionary.KeyAt(i);
        Value value = dictionary.Get(key);
        scheme.push_back({std::move(key), std::move(value)});
    }
    return scheme;
}

void FillFrom(const SavedScheme& scheme, Dictionary& dictionary) {
    for (const SchemeItem& item : scheme) {
        dictionary.Put(item.key, item.value);
    }
}

}  // namespace

void SchemeDialogFrame::AttachDateTypes(DropDown& types, DatePicker& begin, DatePicker& end,
                                        std::function<Date()> periodStart) {
    KeepDatesInStep(
        types, begin, end, [this] { return platform_.Today(); }, std::move(periodStart));
}

bool SchemeDialogFrame::BeginShow() {
    if (!started_) Start();
    if (!autoFilter_ || *autoFilter_ != kConfirmAtOnce) {
        shelf_.Refresh();
        return true;
    }
    Confirm();
    return false;
}

void SchemeDialogFrame::Start() {
    started_ = true;
    shelf_.Open(rptID_);
    form_.ShowPanel(true);
    if (handed_) return form_.OnSchemeToPanel(*handed_);
    if (const std::optional<SavedScheme> scheme = shelf_.TakeLastUsed()) {
        ShowSaved(*scheme);
    } else {
        form_.OnSchemeDefaults();
    }
}

void SchemeDialogFrame::GatherInto(Dictionary& scheme) {
    form_.OnPanelToScheme(scheme);
    if (!whole_) form_.OnCommonToScheme(scheme);
}

Ref<Dictionary> SchemeDialogFrame::SchemeOnScreen() {
    Ref<Dictionary> scheme = platform_.NewDictionary();
    GatherInto(*scheme);
    return scheme;
}

void SchemeDialogFrame::CarryToCommon() {
    const auto scheme = MakeRef<OrderedDictionary>();
    form_.OnPanelToScheme(*scheme);
    form_.OnSchemeToCommon(*scheme);
}

void SchemeDialogFrame::CarryToWhole() {
    const auto scheme = MakeRef<OrderedDictionary>();
    GatherInto(*scheme);
    form_.OnSchemeToPanel(*scheme);
}

void SchemeDialogFrame::ShowSaved(const SavedScheme& scheme) {
    const auto dictionary = MakeRef<OrderedDictionary>();
    FillFrom(scheme, *dictionary);
    ShowScheme(*dictionary);
}

void SchemeDialogFrame::TellClosing(bool isCancelled) {
    std::int16_t cancel = isCancelled ? 1 : 0;
    form_.OnSchemeClosing(cancel);
}

void SchemeDialogFrame::Confirm() {
    currentScheme_ = SchemeOnScreen();
    TellClosing(false);
    form_.CloseDialog();
}

void SchemeDialogFrame::Cancel() {
    TellClosing(true);
    form_.CloseDialog();
}

void SchemeDialogFrame::SwitchPanel(bool whole) {
    if (whole == whole_) return;
    whole ? CarryToWhole() : CarryToCommon();
    whole_ = whole;
    form_.ShowPanel(whole);
}

void SchemeDialogFrame::ShowDefaults() {
    if (!whole_) CarryToWhole();
    form_.OnSchemeDefaults();
    if (!whole_) CarryToCommon();
    shelf_.ForgetCurrent();
}

void SchemeDialogFrame::SaveScheme(std::string_view name) {
    const auto scheme = MakeRef<OrderedDictionary>();
    GatherInto(*scheme);
    shelf_.Save(name, FromDictionary(*scheme));
}

void SchemeDialogFrame::LoadSavedScheme(std::string_view name) { ShowSaved(shelf_.Load(name)); }

void SchemeDialogFrame::ShowScheme(Dictionary& scheme) {
    form_.OnSchemeToPanel(scheme);
    if (!whole_) CarryToCommon();
}

void SchemeDialogFrame::PickItem(Control& button, TextBox& box) {
    std::int32_t itemClass = 0;
    form_.OnItemClassOf(button, itemClass);
    if (itemClass == 0) return;
    const bool opened = IgnoringErrors([&] { OpenPicker(itemClass, box); });
    if (!opened) platform_.windows().MessageBox("基础资料可能没有授权！", "信息提示", kInformationIcon);
}

void SchemeDialogFrame::OpenPicker(std::int32_t itemClass, TextBox& box) {
    if (!glView_) glView_ = platform_.CreateComponent("QOREBCGLView.GLView");
    const Ref<Dictionary> request = platform_.NewDictionary();
    request->Put("GetDataType", kDataTypeOfPickers);
    request->Put("Search", box.text());

    Value classNumber = itemClass, search = box.text(), condition = "", options = request;
    const Value answer = glView_->Call("ItemLookUp", Argument::ByRef(classNumber), Argument::ByRef(search),
                                       Argument::ByRef(condition), Argument::ByRef(options));
    if (!answer.IsObject() || answer.IsNothing()) return;
    const Value chosen = answer.object()->Get("ReturnObject");
    if (!chosen.IsObject() || chosen.IsNothing()) return;
    box.SetText(ToText(chosen.object()->Get("Number")));
}

}  // namespace qor
