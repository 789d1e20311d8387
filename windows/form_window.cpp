#include "windows/form_window.h"

#include <ranges>
#include <utility>

#include "windows/drop_down.h"
#include "windows/instance.h"
#include "windows/window_names.h"

namespace qor::windows {

namespace {

constexpr wchar_t kClassName[] = L"QORArApRptForm";
constexpr UINT kActivated = WM_APP + 1;  // the window has come up
constexpr UINT kShowFocus = WM_APP + 2;  // the model's focus is to be shown
constexpr UINT kDotsChanged = 0x02E0;    // the window has come to a monitor of another resolution
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

void LoadCommonControls() {
    INITCOMMONCONTROLSEX controls{
        sizeof controls, ICC_DATE_CLASSES | ICC_UPDOWN_CLASS | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
}

MONITORINFO MonitorOf(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return monitor;
}

/// Where something of that length begins that is to begin at `wanted` and to lie in a range.
LONG Within(LONG wanted, LONG length, LONG from, LONG to) {
    return std::max(from, std::min(wanted, to - length));
}

}  // namespace

FormWindow::FormWindow(WindowSystem& windows, Form& form, HWND owner)
    : form_(form), metrics_(96), surface_{nullptr, metrics_, windows} {
    Make(owner);
    for (Control* control : form_.controls()) {
        auto made = MakeControlWindow(*control, surface_);
        if (!made) continue;
        for (HWND window : made->FocusWindows()) {
            SetWindowSubclass(window, &FormWindow::ControlProcedure, 1, reinterpret_cast<DWORD_PTR>(this));
        }
        controls_.push_back(std::move(made));
    }
    JoinControls();
    form_.SetView(this);
}

void FormWindow::JoinControls() {
    for (const auto& one : controls_) {
        for (const auto& other : controls_) {
            one->Join(*other);
        }
    }
    // Frames lie under what stands in them, the inner ones over the outer.
    for (const auto& drawn : std::views::reverse(controls_)) {
        if (drawn->control().kind() != Control::Kind::Frame) continue;
        SetWindowPos(drawn->handle(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
}

void FormWindow::Make(HWND owner) {
    static const bool loaded = (LoadCommonControls(), true);
    static const WindowClass registered(kClassName, &FormWindow::WindowProcedure, 0,
                                        GetSysColorBrush(COLOR_BTNFACE));
    (void)loaded;
    CreateWindowExW(kExtendedStyle, kClassName, Wide(form_.caption()).c_str(), kStyle, 0, 0, 0, 0, owner,
                    nullptr, ThisInstance(), this);
    if (!handle()) Raise(Automation::CannotCreate);  // the system has no windows left
    NameWindow(handle(), form_.ClassName());
    PlaceOver(owner);
}

SIZE FormWindow::OuterSize() const {
    const SIZE client{metrics_.Pixels(form_.size().width), metrics_.Pixels(form_.size().height)};
    return metrics_.OuterSize(client, kStyle, kExtendedStyle);
}

/// Centred over the owner, or on the screen where there is none, and wholly on its monitor.
void FormWindow::PlaceOver(HWND owner) {
    const MONITORINFO screen = MonitorOf(owner);
    RECT area{};
    if (!owner || IsIconic(owner) || !GetWindowRect(owner, &area)) area = screen.rcWork;
    // The window has to be on the monitor before its resolution can be asked. The corner of the owner may be
    // on another one: that of a maximised window is.
    SetWindowPos(handle(), nullptr, screen.rcWork.left, screen.rcWork.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    metrics_.SetDotsPerInch(DialogMetrics::DotsPerInchOf(handle()));

    const SIZE size = OuterSize();
    SetWindowPos(handle(), nullptr,
                 Within(area.left + (area.right - area.left - size.cx) / 2, size.cx, screen.rcWork.left,
                        screen.rcWork.right),
                 Within(area.top + (area.bottom - area.top - size.cy) / 2, size.cy, screen.rcWork.top,
                        screen.rcWork.bottom),
                 size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    FitClientArea();
}

/// Not every version of the system scales the frame of a window with its monitor.
void FormWindow::FitClientArea() {
    const SIZE wanted{metrics_.Pixels(form_.size().width), metrics_.Pixels(form_.size().height)};
    RECT client{}, frame{};
    GetClientRect(handle(), &client);
    GetWindowRect(handle(), &frame);
    if (client.right == wanted.cx && client.bottom == wanted.cy) return;
    SetWindowPos(handle(), nullptr, 0, 0, frame.right - frame.left + wanted.cx - client.right,
                 frame.bottom - frame.top + wanted.cy - client.bottom,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::MoveToMonitorOf(int dotsPerInch, const RECT& place) {
    metrics_.SetDotsPerInch(dotsPerInch);
    const SIZE size = OuterSize();
    SetWindowPos(handle(), nullptr, place.left, place.top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    FitClientArea();
    for (const auto& drawn : controls_) {
        drawn->UpdateAll();
    }
}

FormWindow::~FormWindow() { Close(); }

void FormWindow::Close() {
    form_.SetView(nullptr);
    for (const auto& control : controls_) {
        for (HWND window : control->FocusWindows()) {
            RemoveWindowSubclass(window, &FormWindow::ControlProcedure, 1);
        }
    }
    const HWND window = std::exchange(surface_.window, nullptr);
    // A control that goes with the keyboard in it still tells so: nobody here is to hear it.
    if (window) SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    controls_.clear();
    if (window) {
        UnnameWindow(window);
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
        Closed();
    }
}

void FormWindow::ShowIdle() {
    SetWindowLongPtrW(handle(), GWL_EXSTYLE, GetWindowLongPtrW(handle(), GWL_EXSTYLE) | WS_EX_NOACTIVATE);
    // Right over its owner: a box or another program that stands in front of that stays there.
    constexpr UINT kInPlace = SWP_NOACTIVATE | SWP_NOOWNERZORDER | SWP_NOMOVE | SWP_NOSIZE;
    const HWND owner = GetWindow(handle(), GW_OWNER);
    HWND above = owner ? GetWindow(owner, GW_HWNDPREV) : nullptr;
    if (above == handle()) above = GetWindow(above, GW_HWNDPREV);
    SetWindowPos(handle(), above ? above : HWND_TOP, 0, 0, 0, 0, kInPlace);
    SetWindowPos(handle(), nullptr, 0, 0, 0, 0, kInPlace | SWP_NOZORDER | SWP_SHOWWINDOW);
    SendMessageW(handle(), WM_NCACTIVATE, TRUE, 0);  // it looks like the window in front, as it is
    UpdateWindow(handle());
}

void FormWindow::Run() {
    ShowWindow(handle(), SW_SHOW);
    UpdateWindow(handle());
    PostMessageW(handle(), kActivated, 0, 0);
    MSG message;
    while (!done_) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
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
    const ControlWindow* drawn = WindowOf(&control);
    return drawn ? drawn->handle() : nullptr;
}

ControlWindow* FormWindow::WindowOf(const Control* control) const {
    for (const auto& drawn : controls_) {
        if (&drawn->control() == control) return drawn.get();
    }
    return nullptr;
}

ControlWindow* FormWindow::Find(HWND window) const {
    if (!window) return nullptr;
    for (const auto& drawn : controls_) {
        if (drawn->Holds(window)) return drawn.get();
    }
    return nullptr;
}

void FormWindow::ControlChanged(Control& control, Change what) {
    for (const auto& drawn : controls_) {
        // What happens to a frame happens to everything in it.
        const bool contained = what == Change::Visible || what == Change::Enabled || what == Change::Place;
        if (&drawn->control() == &control || (contained && control.kind() == Control::Kind::Frame)) {
            drawn->Update(what);
        }
    }
}

void FormWindow::SizeChanged() {
    const SIZE size = OuterSize();
    SetWindowPos(handle(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    FitClientArea();
    // A form that has grown keeps its buttons on the monitor.
    RECT frame{};
    GetWindowRect(handle(), &frame);
    const RECT screen = MonitorOf(handle()).rcWork;
    SetWindowPos(handle(), nullptr, frame.left,
                 Within(frame.top, frame.bottom - frame.top, screen.top, screen.bottom), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    for (const auto& drawn : controls_) {
        if (drawn->control().kind() != Control::Kind::Inert) continue;
        drawn->Update(Change::Items);
        drawn->Update(Change::Place);
    }
}

void FormWindow::CaptionChanged() { SetWindowTextW(handle(), Wide(form_.caption()).c_str()); }

void FormWindow::FocusMoved() { PostMessageW(handle(), kShowFocus, 0, 0); }

void FormWindow::Closed() {
    done_ = true;
    PostMessageW(handle(), WM_NULL, 0, 0);  // also without a window: the loop waits for something
}

void FormWindow::ShowFocus() {
    if (!IsWindowEnabled(handle())) return;  // a box or a form over this one has the keyboard
    const Arrival arrival = std::exchange(arrival_, Arrival::Other);
    if (ControlWindow* wanted = WindowOf(form_.focus())) {
        wanted->TakeFocus(arrival != Arrival::Other, arrival == Arrival::BackTab);
    }
}

void FormWindow::TakeNativeFocus(HWND window) {
    ControlWindow* drawn = Find(window);
    if (!drawn || !form_.IsVisible()) return;
    for (const auto& one : controls_) {
        one->KeyboardAt(window);
    }
    if (form_.focus() == &drawn->control()) return;
    Guarded([&] {
        if (ControlWindow* left = WindowOf(form_.focus())) left->FinishTyping();
        if (drawn->control().CanHaveFocus() && form_.MoveFocus(drawn->control())) return;
        FocusMoved();  // back to where it is
    });
}

bool FormWindow::MayAct(ControlWindow& drawn) const {
    return !drawn.control().TakesFocus() || drawn.MovesFocus() || form_.focus() == &drawn.control();
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
        auto* made = static_cast<FormWindow*>(creation->lpCreateParams);
        made->surface_.window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self) return self->Handle(message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

FormWindow* FormWindow::Of(HWND window) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (std::wstring_view(name) != kClassName) return nullptr;
    return reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

void FormWindow::ComeUp() {
    activating_ = true;
    if (!form_.WorksWhenActivated()) Guarded([this] { form_.Activate(); });
    activating_ = false;
    Guarded([this] { form_.TakeFirstFocus(); });
    for (const auto& drawn : controls_) {
        if (drawn->control().kind() == Control::Kind::Inert) drawn->Update(Change::Items);
    }
    ShowFocus();
    if (onShown && !done_) Guarded([this] { std::exchange(onShown, nullptr)(*this); });
}

LRESULT FormWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case kActivated:
            ComeUp();
            return 0;
        case kShowFocus:
            ShowFocus();
            return 0;
        case kDotsChanged:
            MoveToMonitorOf(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return 0;
        case WM_CLOSE:
            if (!activating_) Guarded([this] { form_.CancelByUser(); });
            return 0;
        case WM_DESTROY:  // its owner went and takes it along
            if (!done_) Guarded([this] { form_.CancelByUser(); });
            break;
        case WM_NCDESTROY: {
            const HWND window = std::exchange(surface_.window, nullptr);
            Closed();
            return DefWindowProcW(window, message, wParam, lParam);
        }
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) PostMessageW(handle(), kShowFocus, 0, 0);
            break;
        case WM_COMMAND:
            if (ControlWindow* drawn = Find(reinterpret_cast<HWND>(lParam))) {
                Guarded([&] {
                    if (MayAct(*drawn)) {
                        drawn->Command(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
                    } else {
                        drawn->UpdateAll();
                    }
                });
            }
            return 0;
        case WM_NOTIFY: {
            const auto* header = reinterpret_cast<const NMHDR*>(lParam);
            LRESULT result = 0;
            ControlWindow* drawn = Find(header->hwndFrom);
            if (drawn && MayAct(*drawn)) {
                Guarded([&] { result = drawn->Notify(*header); });
            } else if (drawn && header->code == static_cast<UINT>(DTN_DATETIMECHANGE)) {
                drawn->UpdateAll();
            }
            return result;
        }
        case WM_DRAWITEM:
            DrawEntry(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), metrics_);
            return TRUE;
        case WM_CTLCOLORSTATIC:
            SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
        case WM_CTLCOLOREDIT: {
            const ControlWindow* drawn = Find(reinterpret_cast<HWND>(lParam));
            if (const HBRUSH background = drawn ? drawn->Background() : nullptr) {
                SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
                return reinterpret_cast<LRESULT>(background);
            }
            break;
        }
        default:
            break;
    }
    return DefWindowProcW(handle(), message, wParam, lParam);
}

}  // namespace qor::windows
