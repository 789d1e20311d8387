#include "windows/form_window.h"

#include <commctrl.h>

#include "windows/module.h"

namespace qor::windows {

namespace {

constexpr wchar_t kClassName[] = L"QORArApRptForm";
constexpr UINT kActivated = WM_APP + 1;  // the window has come up
constexpr UINT kShowFocus = WM_APP + 2;  // the model's focus is to be shown
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

void RegisterFormClass(WNDPROC procedure) {
    static const ATOM registered = [procedure] {
        INITCOMMONCONTROLSEX controls{
            sizeof controls, ICC_DATE_CLASSES | ICC_UPDOWN_CLASS | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
        InitCommonControlsEx(&controls);
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = procedure;
        windowClass.hInstance = ThisModule();
        windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        windowClass.lpszClassName = kClassName;
        return RegisterClassExW(&windowClass);
    }();
    (void)registered;
}

/// Centred over the owner, or on the screen where there is none.
POINT PlaceOver(HWND owner, int width, int height) {
    RECT area{};
    if (!owner || !GetWindowRect(owner, &area)) SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return {area.left + (area.right - area.left - width) / 2,
            area.top + (area.bottom - area.top - height) / 2};
}

}  // namespace

FormWindow::FormWindow(Form& form, HWND owner) : form_(form), metrics_(owner) {
    RegisterFormClass(&FormWindow::WindowProcedure);
    RECT area{0, 0, metrics_.Pixels(form.size().width), metrics_.Pixels(form.size().height)};
    AdjustWindowRectEx(&area, kStyle, FALSE, kExtendedStyle);
    const int width = area.right - area.left, height = area.bottom - area.top;
    const POINT place = PlaceOver(owner, width, height);
    window_ = CreateWindowExW(kExtendedStyle, kClassName, Wide(form.caption()).c_str(), kStyle, place.x,
                              place.y, width, height, owner, nullptr, ThisModule(), this);
    for (Control* control : form_.controls()) {
        auto made = MakeControlWindow(*control, window_, metrics_);
        if (!made) continue;
        SetWindowSubclass(made->handle(), &FormWindow::ControlProcedure, 1,
                          reinterpret_cast<DWORD_PTR>(this));
        controls_.push_back(std::move(made));
    }
    form_.SetView(this);
}

FormWindow::~FormWindow() { Close(); }

void FormWindow::Close() {
    form_.SetView(nullptr);
    for (const auto& control : controls_) {
        RemoveWindowSubclass(control->handle(), &FormWindow::ControlProcedure, 1);
    }
    controls_.clear();
    if (const HWND window = std::exchange(window_, nullptr)) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        DestroyWindow(window);
    }
}

void FormWindow::RethrowFailure() {
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void FormWindow::Guarded(const std::function<void()>& step) {
    try {
        step();
    } catch (...) {
        // No exception may pass a window procedure: it is kept and raised when the run has ended.
        if (!failure_) failure_ = std::current_exception();
        done_ = true;
        PostMessageW(window_, WM_NULL, 0, 0);
    }
}

void FormWindow::Run() {
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
    PostMessageW(window_, kActivated, 0, 0);
    MSG message;
    while (!done_) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));  // for the host's own loop
            Guarded([this] { form_.CancelByUser(); });
            break;
        }
        if (TranslateKey(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (form_.IsVisible()) Guarded([this] { form_.Hide(); });
}

HWND FormWindow::HandleOf(const Control& control) const {
    for (const auto& drawn : controls_) {
        if (&drawn->control() == &control) return drawn->handle();
    }
    return nullptr;
}

ControlWindow* FormWindow::Find(HWND window) const {
    for (const auto& drawn : controls_) {
        if (drawn->handle() == window) return drawn.get();
    }
    return nullptr;
}

void FormWindow::ControlChanged(Control& control, Change what) {
    for (const auto& drawn : controls_) {
        // Hiding or disabling a frame does the same to everything in it.
        const bool contained = what == Change::Visible || what == Change::Enabled;
        if (&drawn->control() == &control || contained) drawn->Update(what);
    }
}

void FormWindow::CaptionChanged() { SetWindowTextW(window_, Wide(form_.caption()).c_str()); }

void FormWindow::FocusMoved() { PostMessageW(window_, kShowFocus, 0, 0); }

void FormWindow::Closed() {
    done_ = true;
    PostMessageW(window_, WM_NULL, 0, 0);
}

void FormWindow::ShowFocus() {
    const HWND wanted = form_.focus() ? HandleOf(*form_.focus()) : nullptr;
    if (wanted && GetFocus() != wanted) SetFocus(wanted);
}

void FormWindow::TakeNativeFocus(HWND window) {
    ControlWindow* drawn = Find(window);
    if (!drawn || form_.focus() == &drawn->control() || !form_.IsVisible()) return;
    Guarded([&] {
        if (drawn->control().CanHaveFocus()) form_.MoveFocus(drawn->control());
    });
}

LRESULT CALLBACK FormWindow::ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                              UINT_PTR, DWORD_PTR self) {
    if (message == WM_SETFOCUS) {
        const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        reinterpret_cast<FormWindow*>(self)->TakeNativeFocus(window);
        return result;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

LRESULT CALLBACK FormWindow::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && self->window_ == window) return self->Handle(message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT FormWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case kActivated:
            Guarded([this] {
                form_.Activate();
                form_.TakeFirstFocus();
            });
            ShowFocus();
            return 0;
        case kShowFocus:
            ShowFocus();
            return 0;
        case WM_CLOSE:
            Guarded([this] { form_.CancelByUser(); });
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) PostMessageW(window_, kShowFocus, 0, 0);
            break;
        case WM_COMMAND:
            if (ControlWindow* drawn = Find(reinterpret_cast<HWND>(lParam))) {
                Guarded([&] { drawn->Command(HIWORD(wParam)); });
            }
            return 0;
        case WM_NOTIFY: {
            const auto* header = reinterpret_cast<const NMHDR*>(lParam);
            LRESULT result = 0;
            if (ControlWindow* drawn = Find(header->hwndFrom)) {
                Guarded([&] { result = drawn->Notify(*header); });
            }
            return result;
        }
        case WM_CTLCOLORSTATIC:
            SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
        default:
            break;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
}

}  // namespace qor::windows
