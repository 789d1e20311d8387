// ControlWindow: the native window of one control. It shows what the model holds and hands the user's
// doing to the model through the verbs of User.
#pragma once

#include <commctrl.h>

#include <memory>

#include "platform/controls.h"
#include "windows/dialog_metrics.h"

namespace qor::windows {

class ControlWindow {
 public:
    virtual ~ControlWindow();
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    Control& control() const { return control_; }
    HWND handle() const { return window_; }

    /// Code changed the model.
    void Update(Change what);
    /// The user did something: a WM_COMMAND notification.
    virtual void Command(WORD notification) { (void)notification; }
    /// ... or a WM_NOTIFY one.
    virtual LRESULT Notify(const NMHDR& header) {
        (void)header;
        return 0;
    }

 protected:
    ControlWindow(Control& control, HWND parent, const DialogMetrics& metrics, const wchar_t* windowClass,
                  DWORD style, DWORD extendedStyle = 0);

    /// Shows the model's content.
    virtual void Show(Change what) = 0;
    void SetText(const std::string& text) const { SetWindowTextW(window_, Wide(text).c_str()); }
    const DialogMetrics& metrics() const { return metrics_; }
    bool isShowing() const { return showing_; }  // what the native window tells now was done by us

 private:
    void Place() const;

    Control& control_;
    const DialogMetrics& metrics_;
    HWND window_;
    bool showing_ = false;
};

/// The window of a control, a child of `parent`, showing what the model holds; null for kinds that are not
/// drawn.
std::unique_ptr<ControlWindow> MakeControlWindow(Control& control, HWND parent, const DialogMetrics& metrics);

}  // namespace qor::windows
