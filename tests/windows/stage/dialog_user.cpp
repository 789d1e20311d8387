#include "tests/windows/stage/dialog_user.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/conversions.h"
#include "viewer/json_values.h"
#include "windows/window_names.h"

namespace qor::stage {

namespace {

using viewer::Json;
using windows::Narrow;
using windows::Wide;

DialogUser* working_ = nullptr;

std::wstring ClassOf(HWND window) {
    wchar_t name[64];
    return {name, static_cast<std::size_t>(GetClassNameW(window, name, 64))};
}

std::string TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return Narrow(text);
}

/// The first window below `parent` that `fits`.
template <class Fits>
HWND FindChild(HWND parent, Fits fits) {
    struct Search {
        Fits& fits;
        HWND found = nullptr;
    } search{fits};
    EnumChildWindows(
        parent,
        [](HWND window, LPARAM data) -> BOOL {
            auto& looking = *reinterpret_cast<Search*>(data);
            if (!looking.fits(window)) return TRUE;
            looking.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND Named(HWND form, const std::string& name) {
    return FindChild(form, [&](HWND window) { return windows::NameOfWindow(window) == name; });
}

void Notify(HWND window, WORD notification) {
    const auto id = static_cast<WORD>(GetWindowLongPtrW(window, GWLP_ID));
    SendMessageW(GetParent(window), WM_COMMAND, MAKEWPARAM(id, notification),
                 reinterpret_cast<LPARAM>(window));
}

void SetText(HWND box, const Json& action) {
    SetWindowTextW(box, Wide(action["to"].get_ref<const std::string&>()).c_str());
}

void Press(HWND button, const Json&) { SendMessageW(button, BM_CLICK, 0, 0); }

void Check(HWND box, const Json& action) {
    if (SendMessageW(box, BM_GETCHECK, 0, 0) != action["to"].get<LRESULT>()) Press(box, action);
}

void Select(HWND list, const Json& action) {
    SendMessageW(list, CB_SETCURSEL, action["to"].get<WPARAM>(), 0);
    Notify(list, CBN_SELCHANGE);
}

void SetDate(HWND picker, const Json& action) {
    NMDATETIMECHANGE change{};
    change.nmhdr = {picker, static_cast<UINT_PTR>(GetWindowLongPtrW(picker, GWLP_ID)),
                    static_cast<UINT>(DTN_DATETIMECHANGE)};
    change.dwFlags = GDT_VALID;
    VariantTimeToSystemTime(viewer::ReadDate(action["to"], {}, false).serial, &change.st);
    SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&change.st));
    SendMessageW(GetParent(picker), WM_NOTIFY, change.nmhdr.idFrom, reinterpret_cast<LPARAM>(&change));
}

void Spin(HWND spin, const Json& action) {
    NMUPDOWN change{};
    change.hdr = {spin, static_cast<UINT_PTR>(GetWindowLongPtrW(spin, GWLP_ID)),
                  static_cast<UINT>(UDN_DELTAPOS)};
    change.iPos = static_cast<int>(SendMessageW(spin, UDM_GETPOS32, 0, 0));
    change.iDelta = action["to"].get<int>() - change.iPos;
    SendMessageW(GetParent(spin), WM_NOTIFY, change.hdr.idFrom, reinterpret_cast<LPARAM>(&change));
}

void Stay(HWND, const Json&) {}

struct ActionRow {
    const char* key;  // whose value names the control
    void (*run)(HWND window, const Json& action);
};

constexpr ActionRow kActions[] = {
    {"text", SetText},  {"click", Press},  {"check", Check}, {"option", Press},
    {"select", Select}, {"date", SetDate}, {"spin", Spin},   {"focus", Stay},
};

struct FrameButton {
    std::string_view action;
    std::string_view caption;
};
constexpr FrameButton kFrameButtons[] = {
    {"ok", "确定(&O)"}, {"cancel", "取消(&E)"}, {"defaults", "默认(&R)"}};

bool IsProgress(HWND form) {
    return FindChild(form, [](HWND window) { return ClassOf(window) == PROGRESS_CLASSW; });
}

bool CanBeUsed(HWND window) { return IsWindowVisible(window) && IsWindowEnabled(window); }

/// Whether the action reached its control, and the control took the focus for it.
bool Do(HWND form, const Json& action) {
    if (action.contains("frame")) {
        const auto& wanted = action["frame"].get_ref<const std::string&>();
        const auto button = std::ranges::find(kFrameButtons, wanted, &FrameButton::action);
        const HWND window = FindChild(form, [&](HWND w) { return TextOf(w) == button->caption; });
        if (!window || !CanBeUsed(window)) return false;
        return SetFocus(window), Press(window, action), true;
    }
    for (const ActionRow& row : kActions) {
        const auto name = action.find(row.key);
        if (name == action.end()) continue;
        const HWND window = Named(form, name->get_ref<const std::string&>());
        if (!window || !CanBeUsed(window)) return false;
        SetFocus(window);
        const HWND focused = GetFocus();
        const bool takesFocus = row.run != Spin;
        if (takesFocus && focused != window && !IsChild(window, focused)) return false;
        return row.run(window, action), true;
    }
    return false;
}

}  // namespace

void DialogUser::Begin(const Json* entries, int) {
    End();
    if (entries) {
        for (const Json& entry : *entries) {
            entries_.push_back(&entry);
        }
    }
    working_ = this;
    timer_ = SetTimer(nullptr, 0, 10, &DialogUser::Tick);
}

void DialogUser::End() {
    if (const UINT_PTR timer = std::exchange(timer_, 0)) KillTimer(nullptr, timer);
    for (const Json* entry : entries_) {
        transcript_.Add("unused", {{"dialog", (*entry)["dialog"]}});
    }
    entries_.clear();
    used_.clear();
}

void CALLBACK DialogUser::Tick(HWND, UINT, UINT_PTR, DWORD) {
    if (working_) working_->Look();
}

void DialogUser::Look() {
    struct Search {
        HWND found = nullptr;
    } search;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM data) -> BOOL {
            const std::wstring name = ClassOf(window);
            if (!CanBeUsed(window) || (name != L"#32770" && windows::NameOfWindow(window).empty()))
                return TRUE;
            reinterpret_cast<Search*>(data)->found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    const HWND window = search.found;
    if (!window || IsProgress(window) || std::ranges::find(inUse_, window) != inUse_.end()) return;
    inUse_.push_back(window);
    if (std::ranges::find(used_, window) != used_.end()) {
        // It is in its message loop still, though its user has done everything.
        std::erase(used_, window);
        transcript_.Add("left-open", {{"dialog", windows::NameOfWindow(window)}});
        SendMessageW(window, WM_CLOSE, 0, 0);
    } else if (ClassOf(window) == L"#32770") {
        AnswerMessageBox(window);
    } else {
        Use(window);
    }
    std::erase(inUse_, window);
}

void DialogUser::AnswerMessageBox(HWND box) {
    // The icon's label has no text.
    const HWND text =
        FindChild(box, [](HWND window) { return ClassOf(window) == L"Static" && !TextOf(window).empty(); });
    transcript_.Add("message-box", {{"text", text ? TextOf(text) : ""}, {"title", TextOf(box)}});
    SendMessageW(box, WM_COMMAND, IDOK, 0);
}

const Json* DialogUser::TakeEntry(const std::string& dialog) {
    const auto entry =
        std::ranges::find_if(entries_, [&](const Json* known) { return (*known)["dialog"] == dialog; });
    if (entry == entries_.end()) return nullptr;
    const Json* taken = *entry;
    entries_.erase(entry);
    return taken;
}

void DialogUser::Use(HWND form) {
    const std::string name = windows::NameOfWindow(form);
    const Json* entry = TakeEntry(name);
    if (entry) {
        for (const Json& action : (*entry)["do"]) {
            const bool here = IsWindow(form) && IsWindowVisible(form);
            if (!here || !Do(form, action)) {
                transcript_.Add("action", {{"dialog", name}, {"action", action}, {"lost", true}});
            }
        }
    }
    if (!entry) {
        SendMessageW(form, WM_CLOSE, 0, 0);
    } else if (IsWindow(form)) {
        used_.push_back(form);
    }
}

}  // namespace qor::stage
