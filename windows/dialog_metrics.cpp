#include "windows/dialog_metrics.h"

namespace qor::windows {

namespace {

int DotsPerInchOf(HWND window) {
    const HDC context = GetDC(window);
    const int dots = GetDeviceCaps(context, LOGPIXELSX);
    ReleaseDC(window, context);
    return dots > 0 ? dots : 96;
}

}  // namespace

DialogMetrics::DialogMetrics(HWND owner) : DialogMetrics(DotsPerInchOf(owner)) {}

DialogMetrics::DialogMetrics(int dotsPerInch)
    : dotsPerInch_(dotsPerInch),
      font_(CreateFontW(-MulDiv(9, dotsPerInch, 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, GB2312_CHARSET,
                        OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE,
                        L"宋体")) {}

DialogMetrics::~DialogMetrics() { DeleteObject(font_); }

}  // namespace qor::windows
