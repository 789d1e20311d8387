// TestPlatform: surroundings in memory for tests of everything above the platform. A fresh one is a machine
// on which every run succeeds: a logged-in user 16, an empty process bag, and every server component of the
// system with an answer that says nothing special. A test changes what it is about and reads the log.
//
//     TestProcess test;
//     test.platform.Component("QOREBSBase.SecurityInfo").Answers("NeedAutorized", true);
//     EXPECT_TRUE(test.process.dataRights.NeedAuthrize());
//     EXPECT_THAT(test.platform.log(), Contains("call QOREBSBase.SecurityInfo.NeedAutorized(\"...\")"));
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/platform.h"
#include "process/process.h"
#include "support/played_windows.h"
#include "support/scripted_object.h"

namespace qor::test {

/// The windows that a person is played in, which also log what they are asked for: "box "text" "title" 64",
/// "pump", "pointer".
class LoggedWindows final : public PlayedWindows {
 public:
    explicit LoggedWindows(std::shared_ptr<Log> log) : log_(std::move(log)) {}
    std::int32_t MessageBox(std::string_view text, std::string_view title, std::int32_t style) override;
    void Pump() override;
    void SetDefaultPointer() override { log_->push_back("pointer default"); }

 private:
    std::shared_ptr<Log> log_;
};

class TestPlatform final : public Platform {
 public:
    TestPlatform();

    /// The answers of a component, which exists from now on.
    Script& Component(std::string_view name);
    /// The component does not exist any longer.
    void Remove(std::string_view name);
    /// Everything that was asked of the outside, in order: "create X", "call X.M(...)", "read X.M",
    /// "put X.M = ...", "release X", and what the windows did.
    Log& log() { return *log_; }

    /// The host's bag where it is the usual dictionary.
    Dictionary& Bag() { return *As<Dictionary>(bag); }

    std::map<std::string, Value, std::less<>> session;  // what the session services answer, by key
    Ref<Object> bag;                                    // nothing: the shell has made none
    Date now;
    std::int32_t processNumber = 4711;
    /// The user profile's dictionaries by "product/section".
    std::map<std::string, Ref<Dictionary>, std::less<>> userProfile;

    // What a test brings itself; without it a frame or a class of the library cannot be created.
    std::function<std::unique_ptr<PlainFrame>(PlainFrameHost&)> makePlainFrame;
    std::function<std::unique_ptr<SchemeFrame>(SchemeFrameHost&)> makeSchemeFrame;
    std::function<Ref<Object>(std::string_view)> makeClass;  // by full name; asked for what is no component

    Ref<Object> CreateComponent(std::string_view name) override;
    LoggedWindows& windows() override { return windows_; }
    Date Now() override { return now; }
    std::int32_t ProcessNumber() override { return processNumber; }
    Ref<Object> ProcessBag() override { return bag; }
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost& form) override;
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost& form) override;

 private:
    void ScriptSession();
    void ScriptProfiles();
    void ScriptUserProfile();

    std::shared_ptr<Log> log_ = std::make_shared<Log>();
    LoggedWindows windows_{log_};
    std::map<std::string, std::shared_ptr<Script>, std::less<>> components_;
    Ref<Dictionary> loadedProfile_;
};

/// A process on a test platform.
struct TestProcess {
    TestPlatform platform;
    Process process{platform};
};

}  // namespace qor::test
