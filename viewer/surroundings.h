// Surroundings: the platform of a conversation. The shell's bag, the session, the server, the clock, the
// saved schemes and the user are what the conversation's file says.
#pragma once

#include <optional>

#include "frames/scheme_store.h"
#include "platform/platform.h"
#include "process/process.h"
#include "viewer/recording_windows.h"
#include "viewer/scripted_components.h"
#include "viewer/shell_bag.h"

namespace qor::viewer {

class Surroundings final : public Platform {
 public:
    /// Borrows all three.
    Surroundings(Transcript& transcript, UserScript& script, const ObjectNames& names);

    /// Sets up what a checked file says, laid over the defaults. Borrows it.
    void SetUp(const Json& file);
    /// Lays what a step says over what stands.
    void Change(const Json& step);
    /// Names the process for which report classes are created. Borrows it.
    void Serve(Process& process) { process_ = &process; }

    // Platform
    Ref<Object> CreateComponent(std::string_view name) override;
    WindowSystem& windows() override { return windows_; }
    Date Now() override { return server_.today; }
    std::int32_t ProcessNumber() override { return processNumber_; }
    Ref<Object> ProcessBag() override { return bag_; }
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost& form) override;
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost& form) override;

 private:
    Ref<Object> Create(std::string_view name);
    void LayBag(const Json& bag);
    void SetToday(const Json& day);
    void LoadSchemes(const Json& schemes);

    Transcript& transcript_;
    const ObjectNames& names_;
    RecordingWindows windows_;
    Server server_;
    MemorySchemeStore schemes_;
    Ref<ShellBag> bag_;  // nothing where the shell has made none
    std::int32_t processNumber_;
    Process* process_ = nullptr;
};

}  // namespace qor::viewer
