// NativePlay: the native windows with a person in them, played by a function that is called for each form
// when it has come up; a form that is still open afterwards is cancelled. Message boxes are true ones: they
// are read off the screen and answered.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "windows/form_window.h"
#include "windows/native_windows.h"

namespace qor::windows {

class NativePlay : public NativeWindows {
 public:
    struct Box {
        std::string text;
        std::string title;
        std::int32_t style;
    };

    std::function<void(Form&)> user;  // plays the person in a form that has come up
    std::function<void(HWND)> onBox;  // sees a message box before it is answered
    std::vector<Box> boxes;           // every message box, in the order of showing
    int pumps = 0;

    std::int32_t MessageBox(std::string_view text, std::string_view title, std::int32_t style) override;
    void Pump() override {
        ++pumps;
        NativeWindows::Pump();
    }

    /// Handles what waits.
    static void Settle();
    /// The window of a form that is shown on this thread; null for none.
    static FormWindow* WindowOf(const Form& form);

 private:
    void FormShown(FormWindow& window) override;
};

}  // namespace qor::windows
