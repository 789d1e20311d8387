// Stage: what a script host needs beside the component to play a conversation: the server components that
// the conversation's file describes, reached by name and late bound like any others, the shell's bag, the
// user at the dialogs, and the transcript of what was seen from outside the component.
#pragma once

#include <optional>
#include <string>

#include "tests/windows/stage/dialog_user.h"
#include "viewer/scripted_components.h"
#include "viewer/shell_bag.h"
#include "windows/bridge.h"

namespace qor::stage {

class Stage final : public TableObject {
 public:
    Stage();
    ~Stage() override;

    /// The one of this process. Where no script has made one it opens the conversation that QOR_STAGE names,
    /// if any, and uses the dialogs as all of its steps say.
    static Stage& Current();

    std::string_view ClassName() const override { return "Stage"; }
    std::span<const Member> Members() const override;

    /// A server component of the conversation; nothing where it has none of that name.
    Ref<Object> CreateComponent(std::string_view name);
    /// Somebody made an object of the foundation library.
    void FoundationUsed() {
        if (!std::exchange(foundationUsed_, true)) transcript_.Add("foundation");
    }

    // What scripts call. Steps are counted from 0.
    void Open(const std::string& file);
    void Step(std::int32_t step);
    Value To(std::int32_t step);
    Value Argument(std::int32_t step, std::int32_t position);
    void Result(std::int32_t step, const Value& value);
    void Failed(std::int32_t step, std::int32_t number, const std::string& source, const std::string& text);
    Value Kept(const std::string& name) { return names_.Find(name); }
    void Drop(const std::string& name) { names_.Drop(name); }
    void Change(std::int32_t step);
    /// Drops all names, and writes the transcript, with whether the component could now be unloaded.
    void Close(const std::string& file);

 private:
    void UseAllDialogs();
    void Lay(const viewer::Json& step);
    void LayBag(const viewer::Json& bag);
    void ShowBag(IDispatch* bag);
    const viewer::Json& At(std::int32_t step) const { return file_["steps"][static_cast<std::size_t>(step)]; }

    viewer::Json file_;
    viewer::Json entries_ = viewer::Json::array();  // of all dialogs, where no script plays the steps
    viewer::Transcript transcript_;
    viewer::ObjectNames names_;
    viewer::Server server_;
    bool foundationUsed_ = false;
    DialogUser user_;
    Ref<viewer::ShellBag> bag_;
    windows::ComPtr<IDispatch> shownBag_;  // kept here: those who use the bag do not count on it
};

}  // namespace qor::stage
