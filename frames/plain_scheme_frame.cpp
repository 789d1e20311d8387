#include "frames/plain_scheme_frame.h"

#include "frames/scheme_text.h"
#include "platform/conversions.h"

namespace qor {

namespace {

std::size_t OptionPlace(std::int16_t index) {
    if (index < 1 || index > 2) Raise(Automation::SubscriptOutOfRange);
    return static_cast<std::size_t>(index - 1);
}

}  // namespace

void PlainSchemeFrame::InitScheme(std::int32_t& rptID, std::string_view title) {
    title_ = title;
    if (shelf_.IsOpenFor(rptID)) return;
    shelf_.Open(rptID);
    if (const std::optional<SavedScheme> scheme = shelf_.TakeLastUsed()) {
        Show(*scheme);
    } else {
        form_.OnPlainDefaults();
    }
    shelf_.Refresh();
}

void PlainSchemeFrame::SetSchemeOption(std::int16_t index, bool value) {
    options_[OptionPlace(index)] = value;
}

bool PlainSchemeFrame::SchemeOption(std::int16_t index) const { return options_[OptionPlace(index)]; }

Value PlainSchemeFrame::GetSchemeItem(const std::string& scheme, std::string_view key) {
    return FindInSchemeText(scheme, key);
}

void PlainSchemeFrame::SetSchemeItem(std::string& scheme, std::string_view key, std::string_view value) {
    PutIntoSchemeText(scheme, key, value);
}

SavedScheme PlainSchemeFrame::SchemeOnScreen() {
    std::string scheme;
    form_.OnPlainSave(scheme);
    return ParseSchemeText(scheme);
}

Ref<Dictionary> PlainSchemeFrame::CurrentConditions() {
    Ref<Dictionary> conditions = platform_.NewDictionary();
    for (SchemeItem& item : SchemeOnScreen()) {
        conditions->Put(item.key, std::move(item.value));
    }
    return conditions;
}

void PlainSchemeFrame::Show(const SavedScheme& scheme) {
    form_.OnPlainLoad(MakeSchemeText(scheme));
    form_.OnPlainNotify(shelf_.current());
}

void PlainSchemeFrame::ShowScheme(const Dictionary& conditions) {
    std::string scheme;
    for (std::size_t i = 0; i < conditions.Count(); ++i) {
        const std::string key = conditions.KeyAt(i);
        PutIntoSchemeText(scheme, key, ToText(conditions.Get(key)));
    }
    form_.OnPlainLoad(scheme);
}

void PlainSchemeFrame::SaveScheme(std::string_view name) {
    shelf_.Save(name, SchemeOnScreen());
    form_.OnPlainRefresh();
}

void PlainSchemeFrame::LoadScheme(std::string_view name) { Show(shelf_.Load(name)); }

void PlainSchemeFrame::DeleteScheme(std::string_view name) {
    shelf_.Delete(name);
    form_.OnPlainRefresh();
}

void PlainSchemeFrame::ShowDefaults() {
    shelf_.ForgetCurrent();
    form_.OnPlainDefaults();
}

}  // namespace qor
