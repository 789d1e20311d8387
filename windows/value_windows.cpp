// The native windows of the controls that hold a value: text boxes, drop-downs, date pickers, spins.
#include <algorithm>
#include <cmath>

#include "platform/user.h"
#include "windows/control_window.h"
#include "windows/drop_down.h"

namespace qor::windows {

namespace {

/// The place in UTF-16 of the character of that number.
int UnitOfCharacter(const std::wstring& text, std::int32_t character) {
    std::size_t unit = 0;
    for (; character > 0 && unit < text.size(); --character) {
        unit += text[unit] >= 0xD800 && text[unit] < 0xDC00 ? 2 : 1;
    }
    return static_cast<int>(unit);
}

class TextWindow final : public ControlWindow {
 public:
    TextWindow(TextBox& box, const FormSurface& surface)
        : ControlWindow(box, surface, L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE) {
        SetWindowSubclass(handle(), &TextWindow::Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
    }

    void Command(HWND, WORD notification) override {
        if (notification != EN_CHANGE || isShowing()) return;
        User(Box().form()).Text(Box(), Narrow(TextOf(handle())));
    }
    HBRUSH Background() const override { return Box().grayed() ? GetSysColorBrush(COLOR_BTNFACE) : nullptr; }
    void TakeFocus(bool byTab, bool backwards) override {
        ControlWindow::TakeFocus(byTab, backwards);
        // Which a handler of the focus may just have made; without one, the caret is where the user put it.
        if (Box().selLength() > 0) ShowSelection();
    }

 private:
    TextBox& Box() const { return static_cast<TextBox&>(control()); }

    void Show(Change) override {
        if (Narrow(TextOf(handle())) == Box().text()) return;  // the user's own typing, caret and all
        SetText(Box().text());
        ShowSelection();
    }
    void Place(const RECT& place) override {
        ControlWindow::Place(place);
        // The frame is measured anew, for the font may have changed.
        SetWindowPos(handle(), nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    }

    // The system's box writes at its top; on a monitor of high resolution that looks wrong. So a strip above
    // the text belongs to the border, and is drawn like the box.
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self) {
        if (message == WM_CHAR && TakeBoxCharacter(window, wParam)) return 0;
        const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        const auto& text = *reinterpret_cast<const TextWindow*>(self);
        if (message == WM_NCCALCSIZE) {
            auto& area = *reinterpret_cast<RECT*>(lParam);
            area.top += text.StripAbove(area);
        } else if (message == WM_NCPAINT) {
            text.DrawStrip();
        } else if (message == WM_ENABLE) {
            RedrawWindow(window, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
        } else if (message == WM_NCHITTEST && (result == HTBORDER || result == HTNOWHERE)) {
            return HTCLIENT;  // a press on the strip is one on the box
        }
        return result;
    }
    int StripAbove(const RECT& area) const {
        return std::max(0, (static_cast<int>(area.bottom - area.top) - metrics().lineHeight()) / 2 - 1);
    }
    void DrawStrip() const {
        RECT frame{}, client{};
        GetWindowRect(handle(), &frame);
        GetClientRect(handle(), &client);
        MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&client), 2);
        OffsetRect(&client, -frame.left, -frame.top);
        const int edge = frame.bottom - frame.top - client.bottom;
        const RECT strip{client.left, edge, client.right, client.top};
        const HDC context = GetWindowDC(handle());
        const bool grey = Box().grayed() || !IsWindowEnabled(handle());
        FillRect(context, &strip, GetSysColorBrush(grey ? COLOR_BTNFACE : COLOR_WINDOW));
        ReleaseDC(handle(), context);
    }

    void ShowSelection() const {
        const std::wstring text = TextOf(handle());
        Send(EM_SETSEL, static_cast<WPARAM>(UnitOfCharacter(text, Box().selStart())),
             UnitOfCharacter(text, Box().selStart() + Box().selLength()));
    }
};

class ListWindow final : public ControlWindow {
 public:
    ListWindow(DropDown& list, const FormSurface& surface)
        : ControlWindow(list, surface, L"COMBOBOX", kDropDownStyle) {}

    void Command(HWND, WORD notification) override {
        if (notification != CBN_SELCHANGE) return;
        const auto index = static_cast<std::int32_t>(Send(CB_GETCURSEL));
        User(List().form()).Select(List(), index);
    }
    bool TakeEscape() override { return CloseList(); }
    bool TakeEnter() override { return CloseList(); }

 private:
    DropDown& List() const { return static_cast<DropDown&>(control()); }

    bool CloseList() {
        if (!Send(CB_GETDROPPEDSTATE)) return false;
        Send(CB_SHOWDROPDOWN, FALSE);
        return true;
    }

    void Place(const RECT& place) override {
        PlaceDropDown(handle(), place, List().items().size(), metrics());
    }

    void Show(Change what) override {
        if (what == Change::Items) {
            Send(CB_RESETCONTENT);
            for (const std::string& item : List().items()) {
                // A hidden code may stand behind the caption and 50 blanks.
                const std::wstring shown = Wide(item.substr(0, item.find("  ")));
                Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(shown.c_str()));
            }
        }
        Send(CB_SETCURSEL, static_cast<WPARAM>(List().listIndex()));
    }
};

SYSTEMTIME ToSystemTime(Date date) {
    SYSTEMTIME time{};
    VariantTimeToSystemTime(date.serial, &time);
    return time;
}

Date ToDay(const SYSTEMTIME& time) {
    return DateFromCalendar(time.wYear, time.wMonth, time.wDay).value_or(Date{});
}

class DateWindow final : public ControlWindow {
 public:
    DateWindow(DatePicker& picker, const FormSurface& surface)
        : ControlWindow(picker, surface, DATETIMEPICK_CLASSW, DTS_SHORTDATECENTURYFORMAT | WS_TABSTOP) {
        Send(DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"yyyy-MM-dd"));
    }

    LRESULT Notify(const NMHDR& header) override {
        if (header.code != static_cast<UINT>(DTN_DATETIMECHANGE) || isShowing()) return 0;
        SYSTEMTIME time{};
        if (Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) != GDT_VALID) return 0;
        const Date day = ToDay(time);
        // A day that stays keeps the time of day that a scheme may have brought.
        if (day.serial != std::floor(Picker().value().serial)) User(Picker().form()).Date(Picker(), day);
        return 0;
    }
    bool TakeEscape() override {
        if (!CalendarIsOpen()) return false;
        Send(DTM_CLOSEMONTHCAL);
        return true;
    }
    /// The open calendar has the keyboard, and would close without it.
    void TakeFocus(bool byTab, bool backwards) override {
        if (!CalendarIsOpen()) ControlWindow::TakeFocus(byTab, backwards);
    }
    /// A field with room for another digit is taken when the keyboard is gone; the form hands it on.
    void FinishTyping() override {
        if (GetFocus() == handle()) SetFocus(surface().window);
    }

 private:
    DatePicker& Picker() const { return static_cast<DatePicker&>(control()); }
    bool CalendarIsOpen() const {
        const auto calendar = reinterpret_cast<HWND>(Send(DTM_GETMONTHCAL));
        return calendar && IsWindowVisible(calendar);
    }

    void Show(Change what) override {
        if (what == Change::Range) {
            const SYSTEMTIME range[] = {ToSystemTime(Picker().minDate()), ToSystemTime(Picker().maxDate())};
            Send(DTM_SETRANGE, GDTR_MIN | GDTR_MAX, reinterpret_cast<LPARAM>(range));
        }
        const SYSTEMTIME time = ToSystemTime(Picker().value());
        Send(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
    }
};

class SpinWindow final : public ControlWindow {
 public:
    SpinWindow(Spin& spin, const FormSurface& surface) : ControlWindow(spin, surface, UPDOWN_CLASSW, 0) {}

    LRESULT Notify(const NMHDR& header) override {
        if (header.code != static_cast<UINT>(UDN_DELTAPOS)) return 0;
        auto& spin = static_cast<Spin&>(control());
        const std::int32_t wanted = spin.value() + reinterpret_cast<const NMUPDOWN&>(header).iDelta;
        if (header.idFrom == kByKey) {
            if (spin.IsShown() && spin.IsUsable()) spin.SetValue(wanted);  // the focus stays in the box
        } else {
            User(spin.form()).Spin(spin, wanted);
        }
        return 1;  // the model decides where it stands
    }
    bool MovesFocus() const override { return true; }
    /// The box that it stands flush against has its arrow keys.
    void Join(ControlWindow& other) override {
        const Bounds& own = control().bounds();
        const Bounds& box = other.control().bounds();
        if (other.control().kind() == Control::Kind::Text &&
            other.control().container() == control().container() && box.top == own.top &&
            box.left + box.width == own.left) {
            SetWindowSubclass(other.handle(), &SpinWindow::KeysOfBox, reinterpret_cast<UINT_PTR>(handle()),
                              0);
        }
    }

 private:
    static constexpr UINT_PTR kByKey = 1;  // as the id of the control that tells; the system has none here

    /// Up and down in the box are presses of the arrows.
    static LRESULT CALLBACK KeysOfBox(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR spin,
                                      DWORD_PTR) {
        if (message != WM_KEYDOWN || (wParam != VK_UP && wParam != VK_DOWN)) {
            return DefSubclassProc(box, message, wParam, lParam);
        }
        const auto arrows = reinterpret_cast<HWND>(spin);
        NMUPDOWN press{{arrows, kByKey, static_cast<UINT>(UDN_DELTAPOS)}, 0, wParam == VK_UP ? 1 : -1};
        SendMessageW(GetParent(box), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&press));
        return 0;
    }

    void Show(Change) override {
        const auto& spin = static_cast<Spin&>(control());
        Send(UDM_SETRANGE32, static_cast<WPARAM>(spin.min()), spin.max());
        Send(UDM_SETPOS32, 0, spin.value());
    }
};

}  // namespace

std::unique_ptr<ControlWindow> MakeTextWindow(TextBox& box, const FormSurface& surface) {
    return std::make_unique<TextWindow>(box, surface);
}

std::unique_ptr<ControlWindow> MakeListWindow(DropDown& list, const FormSurface& surface) {
    return std::make_unique<ListWindow>(list, surface);
}

std::unique_ptr<ControlWindow> MakeDateWindow(DatePicker& picker, const FormSurface& surface) {
    return std::make_unique<DateWindow>(picker, surface);
}

std::unique_ptr<ControlWindow> MakeSpinWindow(Spin& spin, const FormSurface& surface) {
    return std::make_unique<SpinWindow>(spin, surface);
}

}  // namespace qor::windows
