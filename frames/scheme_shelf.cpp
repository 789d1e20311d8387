#include "frames/scheme_shelf.h"

#include "platform/conversions.h"
#include "platform/error.h"

namespace qor {

namespace {

[[noreturn]] void Refuse(std::string description) {
    throw Error(static_cast<std::int32_t>(Automation::InvalidCall), std::string(kLibraryName),
                std::move(description));
}

[[noreturn]] void RefuseUnknown(std::string_view name) {
    Refuse("没有名为“" + std::string(name) + "”的过滤方案。");
}

/// Blanks around a name are never meant.
std::string_view RequireName(std::string_view name) {
    const std::string_view trimmed = Trimmed(name);
    if (trimmed.empty()) Refuse("请输入过滤方案的名称。");
    return trimmed;
}

}  // namespace

template <class Step>
void SchemeShelf::Telling(Step&& step) {
    try {
        step();
    } catch (const Error& error) {
        if (error.description() == told_) return;
        told_ = error.description();
        windows_.MessageBox(told_, "信息提示", kInformationIcon);
    }
}

void SchemeShelf::Open(std::int32_t rptID) {
    rptID_ = rptID;
    names_.clear();
    current_.clear();
}

std::int32_t SchemeShelf::OpenRptID() const {
    if (!rptID_) Raise(Automation::InvalidCall);
    return *rptID_;
}

void SchemeShelf::Refresh() {
    if (!rptID_) return;
    Telling([&] { names_ = store_.Names(*rptID_); });
}

std::optional<SavedScheme> SchemeShelf::TakeLastUsed() {
    std::optional<SavedScheme> scheme;
    Telling([&] {
        const std::string name = store_.LastUsed(OpenRptID());
        if (name.empty()) return;
        scheme = store_.Find(OpenRptID(), name);
        if (scheme) current_ = name;
    });
    return scheme;
}

void SchemeShelf::Save(std::string_view name, const SavedScheme& scheme) {
    const std::string_view wanted = RequireName(name);
    store_.Save(OpenRptID(), wanted, scheme);
    current_ = wanted;
    Refresh();
}

SavedScheme SchemeShelf::Load(std::string_view name) {
    const std::string_view wanted = RequireName(name);
    std::optional<SavedScheme> scheme = store_.Find(OpenRptID(), wanted);
    if (!scheme) RefuseUnknown(wanted);
    current_ = wanted;
    // The scheme is at hand; that it cannot be noted as the last one used must not keep it from the user.
    Telling([&] { store_.MarkUsed(OpenRptID(), wanted); });
    return *std::move(scheme);
}

void SchemeShelf::Delete(std::string_view name) {
    const std::string_view wanted = RequireName(name);
    if (!store_.Remove(OpenRptID(), wanted)) RefuseUnknown(wanted);
    if (current_ == wanted) current_.clear();
    Refresh();
}

}  // namespace qor
