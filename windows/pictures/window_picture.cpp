#include "windows/pictures/window_picture.h"

#include <objidl.h>
// gdiplus.h needs what objidl.h declares, and min and max without a namespace.
#include <algorithm>
#include <stdexcept>
using std::max;
using std::min;
#include <gdiplus.h>

namespace qor::windows {

namespace {

constexpr CLSID kPng = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

class Drawing {
 public:
    Drawing() {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&token_, &input, nullptr);
    }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;
    ~Drawing() { Gdiplus::GdiplusShutdown(token_); }

 private:
    ULONG_PTR token_ = 0;
};

}  // namespace

void TakePicture(HWND window, const std::filesystem::path& file) {
    RECT area{};
    GetWindowRect(window, &area);
    const int width = area.right - area.left, height = area.bottom - area.top;

    const HDC screen = GetDC(nullptr);
    const HDC aside = CreateCompatibleDC(screen);
    const HBITMAP picture = CreateCompatibleBitmap(screen, width, height);
    const HGDIOBJ before = SelectObject(aside, picture);
    BitBlt(aside, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    SelectObject(aside, before);
    DeleteDC(aside);
    ReleaseDC(nullptr, screen);

    Gdiplus::Status status = Gdiplus::Ok;
    {
        const Drawing drawing;
        Gdiplus::Bitmap bitmap(picture, nullptr);
        status = bitmap.Save(file.c_str(), &kPng, nullptr);
    }
    DeleteObject(picture);
    if (status != Gdiplus::Ok) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace qor::windows
