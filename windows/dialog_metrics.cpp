#include "windows/dialog_metrics.h"

namespace qor::windows {

namespace {

/// A function that only later versions of the system have.
template <class Function>
Function UserFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

using DotsOfWindow = UINT(WINAPI*)(HWND);
using AdjustForDots = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
using ThreadContext = void*(WINAPI*)();
using SetThreadContext = void*(WINAPI*)(void* context);

/// Answers the context that the thread had; null where there is none to have.
void* SwitchThread(void* context) {
    static const auto set = UserFunction<SetThreadContext>("SetThreadDpiAwarenessContext");
    return set && context ? set(context) : nullptr;
}

HFONT MakeFont(int dotsPerInch) {
    return CreateFontW(-MulDiv(9, dotsPerInch, 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, GB2312_CHARSET,
                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE,
                       L"宋体");
}

}  // namespace

ThreadScale ThreadScale::Current() {
    static const auto context = UserFunction<ThreadContext>("GetThreadDpiAwarenessContext");
    return ThreadScale(context ? context() : nullptr);
}

ThreadScale::Taken::Taken(ThreadScale scale) : before_(SwitchThread(scale.context_)) {}

ThreadScale::Taken::~Taken() { SwitchThread(before_); }

int DialogMetrics::DotsPerInchOf(HWND window) {
    static const auto dotsOfWindow = UserFunction<DotsOfWindow>("GetDpiForWindow");
    if (dotsOfWindow && window) {
        if (const UINT dots = dotsOfWindow(window)) return static_cast<int>(dots);
    }
    const HDC context = GetDC(window);
    const int dots = GetDeviceCaps(context, LOGPIXELSX);
    ReleaseDC(window, context);
    return dots > 0 ? dots : 96;
}

DialogMetrics::DialogMetrics(int dotsPerInch) : dotsPerInch_(dotsPerInch), font_(MakeFont(dotsPerInch)) {}

DialogMetrics::~DialogMetrics() {
    DeleteObject(font_);
    if (oldFont_) DeleteObject(oldFont_);
}

void DialogMetrics::SetDotsPerInch(int dotsPerInch) {
    if (oldFont_) DeleteObject(oldFont_);
    oldFont_ = std::exchange(font_, MakeFont(dotsPerInch));
    dotsPerInch_ = dotsPerInch;
}

int DialogMetrics::lineHeight() const {
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, font_);
    TEXTMETRICW text{};
    GetTextMetricsW(screen, &text);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return text.tmHeight;
}

SIZE DialogMetrics::OuterSize(SIZE client, DWORD style, DWORD extendedStyle) const {
    static const auto adjustForDots = UserFunction<AdjustForDots>("AdjustWindowRectExForDpi");
    RECT area{0, 0, client.cx, client.cy};
    if (!adjustForDots ||
        !adjustForDots(&area, style, FALSE, extendedStyle, static_cast<UINT>(dotsPerInch_))) {
        AdjustWindowRectEx(&area, style, FALSE, extendedStyle);
    }
    return {area.right - area.left, area.bottom - area.top};
}

}  // namespace qor::windows
