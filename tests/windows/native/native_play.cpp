#include "windows/native/native_play.h"

#include "windows/instance.h"

namespace qor::windows {

namespace {

constexpr UINT kBetweenLooks = 10;  // milliseconds

/// Reads the message box that stands on this thread's screen, and presses its first button.
class BoxAnswer {
 public:
    explicit BoxAnswer(const std::function<void(HWND)>& onBox)
        : onBox_(onBox),
          clock_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, ThisInstance(),
                                 nullptr)) {
        SetWindowLongPtrW(clock_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetTimer(clock_, 1, kBetweenLooks, &BoxAnswer::Look);
    }
    BoxAnswer(const BoxAnswer&) = delete;
    BoxAnswer& operator=(const BoxAnswer&) = delete;
    ~BoxAnswer() { DestroyWindow(clock_); }

    std::string text, title;

 private:
    static void CALLBACK Look(HWND clock, UINT, UINT_PTR, DWORD) {
        auto* self = reinterpret_cast<BoxAnswer*>(GetWindowLongPtrW(clock, GWLP_USERDATA));
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM answer) -> BOOL {
                wchar_t name[16] = {};
                GetClassNameW(window, name, 16);
                if (std::wstring_view(name) != L"#32770" || !IsWindowVisible(window)) return TRUE;
                reinterpret_cast<BoxAnswer*>(answer)->Answer(window);
                return FALSE;
            },
            reinterpret_cast<LPARAM>(self));
    }

    void Answer(HWND box) {
        KillTimer(clock_, 1);
        for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            wchar_t kind[16] = {};
            GetClassNameW(child, kind, 16);
            if (std::wstring_view(kind) == L"Static" && text.empty()) text = Narrow(TextOf(child));
        }
        title = Narrow(TextOf(box));
        if (onBox_) onBox_(box);
        const int button = GetDlgItem(box, IDYES) ? IDYES : IDOK;
        PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    }

    const std::function<void(HWND)>& onBox_;
    HWND clock_;
};

}  // namespace

std::int32_t NativePlay::MessageBox(std::string_view text, std::string_view title, std::int32_t style) {
    const BoxAnswer person(onBox);
    const std::int32_t answer = NativeWindows::MessageBox(text, title, style);
    boxes.push_back({person.text, person.title, style});
    return answer;
}

void NativePlay::Settle() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
}

FormWindow* NativePlay::WindowOf(const Form& form) {
    struct Search {
        const Form& form;
        FormWindow* found;
    } search{form, nullptr};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM wanted) -> BOOL {
            auto& looking = *reinterpret_cast<Search*>(wanted);
            FormWindow* shown = FormWindow::Of(window);
            if (shown && &shown->form() == &looking.form) looking.found = shown;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void NativePlay::FormShown(FormWindow& window) {
    Form& form = window.form();
    Settle();
    const auto play = user;  // which the person may change for a form that comes up over this one
    if (play && form.IsVisible()) play(form);
    if (form.IsVisible()) form.CancelByUser();
    if (form.IsVisible()) form.Unload();
}

}  // namespace qor::windows
