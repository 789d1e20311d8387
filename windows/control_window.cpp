#include "windows/control_window.h"

#include <cwctype>

#include "platform/frame_owner.h"
#include "windows/frame_bar.h"
#include "windows/grid_window.h"
#include "windows/instance.h"
#include "windows/window_names.h"

namespace qor::windows {

Bounds PlaceInForm(const Control& control) {
    Bounds place = control.bounds();
    for (const Control* around = control.container(); around; around = around->container()) {
        place.left += around->bounds().left;
        place.top += around->bounds().top;
    }
    return place;
}

wchar_t MnemonicOf(std::string_view caption) {
    const std::wstring wide = Wide(caption);
    const std::size_t mark = wide.find(L'&');
    if (mark == std::wstring::npos || mark + 1 == wide.size()) return L'\0';
    return static_cast<wchar_t>(std::towlower(wide[mark + 1]));
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

bool TakeBoxCharacter(HWND box, WPARAM character) {
    constexpr WPARAM kControlA = 1, kControlBackspace = 127;
    if (character == kControlA) SendMessageW(box, EM_SETSEL, 0, -1);
    return character == kControlA || character == kControlBackspace;
}

ControlWindow::ControlWindow(Control& control, const FormSurface& surface, const wchar_t* windowClass,
                             DWORD style, DWORD extendedStyle)
    : control_(control),
      surface_(surface),
      window_(CreateWindowExW(extendedStyle, windowClass, L"", WS_CHILD | WS_CLIPSIBLINGS | style, 0, 0, 0, 0,
                              surface.window, nullptr, ThisInstance(), nullptr)) {
    NameWindow(window_, control.name());
}

ControlWindow::~ControlWindow() {
    UnnameWindow(window_);
    DestroyWindow(window_);
}

void ControlWindow::Place(const RECT& place) {
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::TakeFont() { Send(WM_SETFONT, reinterpret_cast<WPARAM>(surface_.metrics.font()), TRUE); }

void ControlWindow::TakeFocus(bool, bool) {
    if (GetFocus() != window_) SetFocus(window_);
}

void ControlWindow::Update(Change what) {
    const bool outer = std::exchange(showing_, true);
    switch (what) {
        case Change::Visible:
            ShowWindow(window_, control_.IsShown() ? SW_SHOWNA : SW_HIDE);
            break;
        case Change::Enabled:
            EnableWindow(window_, control_.IsUsable());
            break;
        case Change::Place:
            Place(surface_.metrics.Pixels(PlaceInForm(control_)));
            break;
        default:
            Show(what);
            break;
    }
    showing_ = outer;
}

void ControlWindow::UpdateAll() {
    TakeFont();
    for (const Change what :
         {Change::Place, Change::Range, Change::Items, Change::Enabled, Change::Visible}) {
        Update(what);
    }
}

namespace {

std::unique_ptr<ControlWindow> MakeWindow(Control& control, const FormSurface& surface) {
    switch (control.kind()) {
        case Control::Kind::Label:
            return MakeLabelWindow(static_cast<Label&>(control), surface);
        case Control::Kind::Frame:
            return MakeFrameWindow(static_cast<Frame&>(control), surface);
        case Control::Kind::Button:
            return MakeButtonWindow(static_cast<Button&>(control), surface);
        case Control::Kind::Check:
            return MakeCheckWindow(static_cast<CheckBox&>(control), surface);
        case Control::Kind::Option:
            return MakeOptionWindow(static_cast<OptionButton&>(control), surface);
        case Control::Kind::Text:
            return MakeTextWindow(static_cast<TextBox&>(control), surface);
        case Control::Kind::List:
            return MakeListWindow(static_cast<DropDown&>(control), surface);
        case Control::Kind::Date:
            return MakeDateWindow(static_cast<DatePicker&>(control), surface);
        case Control::Kind::Spin:
            return MakeSpinWindow(static_cast<Spin&>(control), surface);
        case Control::Kind::Progress:
            return MakeProgressWindow(static_cast<ProgressBar&>(control), surface);
        case Control::Kind::Grid:
            return MakeGridWindow(static_cast<Grid&>(control), surface);
        case Control::Kind::Inert:
            return MakeFrameBar(control, surface);
        case Control::Kind::Animation:
            break;  // no clip is ever opened
    }
    return nullptr;
}

}  // namespace

std::unique_ptr<ControlWindow> MakeControlWindow(Control& control, const FormSurface& surface) {
    std::unique_ptr<ControlWindow> made = MakeWindow(control, surface);
    if (made) made->UpdateAll();
    return made;
}

}  // namespace qor::windows
