#include "services/texts.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::string_view kBuiltInLanguage = "chs";

/// The first place of `piece` in `text`, compared without regard to case.
std::size_t FindIgnoringCase(std::string_view text, std::string_view piece) {
    for (std::size_t at = 0; at + piece.size() <= text.size(); ++at) {
        if (EqualsIgnoringCase(text.substr(at, piece.size()), piece)) return at;
    }
    return std::string_view::npos;
}

}  // namespace

std::string Texts::GetSessionValue(std::string_view key) {
    if (EqualsIgnoringCase(key, "LANGUAGE")) return std::string(kBuiltInLanguage);
    std::string properties = session_.GetPropsString();
    if (!properties.ends_with(';')) properties += ';';

    const std::string searched = std::string(key) + "=";
    const std::size_t at = FindIgnoringCase(properties, searched);
    if (at == std::string::npos) return "";
    const std::size_t begin = at + searched.size();
    const std::size_t end = properties.find(';', at);
    return end < begin ? "" : properties.substr(begin, end - begin);
}

void Texts::LoadFormResources(Object* form, Ref<Dictionary>& options, std::string_view section) {
    Value language = language_.empty() ? GetSessionValue("LANGUAGE") : language_;
    if (EqualsIgnoringCase(language.text(), kBuiltInLanguage)) return;

    const Ref<Object> loader = platform_.CreateComponent("QORFrmRes.FrmResLoader");
    if (!options) {
        options = platform_.NewDictionary();
        options->Put("NeedMLColumnHeaders", true);
    }
    Value formVariable = Ref<Object>(form);
    Value sectionVariable = section;
    Value optionsVariable = options;
    loader->Call("LoadFrmResStrings", Argument::ByRef(formVariable), Argument::ByRef(language), "",
                 Argument::ByRef(sectionVariable), Argument::ByRef(optionsVariable));
    options = As<Dictionary>(optionsVariable);
}

}  // namespace qor
