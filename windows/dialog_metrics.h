// How a dialog is measured: forms are laid out in twips, 1440 an inch, and drawn in the pixels of their
// monitor.
#pragma once

#include "platform/controls.h"
#include "windows/handles.h"

namespace qor::windows {

class DialogMetrics {
 public:
    /// For the monitor on which a window over `owner` comes up.
    explicit DialogMetrics(HWND owner);
    /// For a given resolution, as pictures are made.
    explicit DialogMetrics(int dotsPerInch);
    ~DialogMetrics();
    DialogMetrics(const DialogMetrics&) = delete;
    DialogMetrics& operator=(const DialogMetrics&) = delete;

    int Pixels(std::int32_t twips) const { return MulDiv(twips, dotsPerInch_, 1440); }
    int dotsPerInch() const { return dotsPerInch_; }
    /// 宋体, 9 points.
    HFONT font() const { return font_; }

 private:
    int dotsPerInch_;
    HFONT font_;
};

}  // namespace qor::windows
