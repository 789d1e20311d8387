// How a dialog is measured: forms are laid out in twips, 1440 an inch, and drawn in the pixels of their
// monitor.
#pragma once

#include "platform/controls.h"
#include "windows/handles.h"

namespace qor::windows {

/// How a thread sees the dots of a monitor: as they are, or as the system pretends for programs that do not
/// ask.
class ThreadScale {
 public:
    static ThreadScale Current();

    /// Lends it to the thread that it is made on.
    class Taken {
     public:
        explicit Taken(ThreadScale scale);
        Taken(const Taken&) = delete;
        Taken& operator=(const Taken&) = delete;
        ~Taken();

     private:
        void* before_;
    };

 private:
    explicit ThreadScale(void* context) : context_(context) {}
    void* context_;  // null where the system knows one scale alone
};

class DialogMetrics {
 public:
    /// For the monitor that a window stands on.
    explicit DialogMetrics(HWND window) : DialogMetrics(DotsPerInchOf(window)) {}
    explicit DialogMetrics(int dotsPerInch);
    ~DialogMetrics();
    DialogMetrics(const DialogMetrics&) = delete;
    DialogMetrics& operator=(const DialogMetrics&) = delete;

    static int DotsPerInchOf(HWND window);

    /// The window has come to another monitor. The old font goes with the next change or with this object,
    /// so that windows can be given the new one first.
    void SetDotsPerInch(int dotsPerInch);

    int dotsPerInch() const { return dotsPerInch_; }
    int Pixels(std::int32_t twips) const { return MulDiv(twips, dotsPerInch_, 1440); }
    /// The edges of a rectangle are rounded, not its size: what is flush in twips is flush in pixels.
    RECT Pixels(const Bounds& bounds) const {
        return {Pixels(bounds.left), Pixels(bounds.top), Pixels(bounds.left + bounds.width),
                Pixels(bounds.top + bounds.height)};
    }
    /// 宋体, 9 points.
    HFONT font() const { return font_; }
    /// The height of a line of it.
    int lineHeight() const;

    /// The outer size of a window with a client area of that many pixels.
    SIZE OuterSize(SIZE client, DWORD style, DWORD extendedStyle) const;

 private:
    int dotsPerInch_;
    HFONT font_;
    HFONT oldFont_ = nullptr;
};

}  // namespace qor::windows
