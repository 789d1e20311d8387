// ReportHost: a host viewer as a test plays it: a process on a test platform, with the library's own classes
// and both frames over schemes in memory. A report is created by name and reached late bound, and a person
// is played in the filter dialogs.
//
//     ReportHost host;
//     host.InDialog([](Form& dialog) { User(dialog).Click(ControlOf<Button>(dialog, "cmdOK")); });
//     const Ref<Object> report = host.Create("Rpt10522");
//     report->Call("ShowFilter");
//     EXPECT_EQ(Entry(*report, "Result", "OK"), Value(true));
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "frames/scheme_store.h"
#include "platform/user.h"
#include "support/test_platform.h"

namespace qor::test {

class ReportHost {
 public:
    ReportHost();

    TestPlatform platform;
    MemorySchemeStore schemes;
    Process process{platform};

    Ref<Object> Create(std::string_view reportClass);
    /// Plays the person in every filter dialog that opens from now on.
    void InDialog(std::function<void(Form&)> person);

    /// A run's share of the log: what `step` asks of the outside, without the session services.
    Log LogOf(const std::function<void()>& step);
};

/// A control of a form as what it is; fails where the form has none of that name and kind.
template <class T>
T& ControlOf(Form& form, std::string_view name) {
    if (auto* control = dynamic_cast<T*>(form.Find(name))) return *control;
    throw Error(0, "test", std::string(form.ClassName()) + " has no such control: " + std::string(name));
}

/// The value under a key of a dictionary that a property of an object holds.
Value Entry(Object& object, std::string_view property, std::string_view key);

/// A dictionary's keys in their order, a blank between them.
std::string Keys(const Value& dictionary);

/// The column table of a report, a line a column: caption, second line, type, field, visible, force-hidden.
Log Columns(Object& report);

}  // namespace qor::test
