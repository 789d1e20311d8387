#include "windows/control_window.h"

#include "platform/user.h"
#include "windows/module.h"

namespace qor::windows {

namespace {

constexpr DWORD kChild = WS_CHILD | WS_CLIPSIBLINGS;

/// Where a control stands in the form: places are given relative to the container.
POINT PlaceInForm(const Control& control) {
    POINT place{control.bounds().left, control.bounds().top};
    for (const Control* around = control.container(); around; around = around->container()) {
        place.x += around->bounds().left;
        place.y += around->bounds().top;
    }
    return place;
}

SYSTEMTIME ToSystemTime(Date date) {
    SYSTEMTIME time{};
    VariantTimeToSystemTime(date.serial, &time);
    return time;
}

Date ToDay(const SYSTEMTIME& time) {
    return DateFromCalendar(time.wYear, time.wMonth, time.wDay).value_or(Date{});
}

class LabelWindow final : public ControlWindow {
 public:
    LabelWindow(Label& label, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(label, parent, metrics, L"STATIC", SS_LEFT | SS_NOPREFIX) {}

 private:
    void Show(Change) override { SetText(static_cast<Label&>(control()).caption()); }
};

class FrameWindow final : public ControlWindow {
 public:
    FrameWindow(Frame& frame, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(frame, parent, metrics, L"BUTTON", BS_GROUPBOX) {}

 private:
    void Show(Change) override { SetText(static_cast<Frame&>(control()).caption()); }
};

class ButtonWindow final : public ControlWindow {
 public:
    ButtonWindow(Button& button, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(button, parent, metrics, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP) {}

    void Command(WORD notification) override {
        auto& button = static_cast<Button&>(control());
        if (notification == BN_CLICKED) User(button.form()).Click(button);
    }

 private:
    void Show(Change) override {
        const auto& caption = static_cast<Button&>(control()).caption();
        SetText(caption.empty() ? "…" : caption);  // the picker buttons carry no caption of their own
    }
};

class CheckWindow final : public ControlWindow {
 public:
    CheckWindow(CheckBox& box, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(box, parent, metrics, L"BUTTON", BS_CHECKBOX | WS_TABSTOP) {}

    void Command(WORD notification) override {
        auto& box = static_cast<CheckBox&>(control());
        if (notification == BN_CLICKED) User(box.form()).Check(box, box.IsChecked() ? 0 : 1);
    }

 private:
    void Show(Change) override {
        const auto& box = static_cast<CheckBox&>(control());
        SetText(box.caption());
        SendMessageW(handle(), BM_SETCHECK, static_cast<WPARAM>(box.value()), 0);
    }
};

class OptionWindow final : public ControlWindow {
 public:
    OptionWindow(OptionButton& option, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(option, parent, metrics, L"BUTTON", BS_RADIOBUTTON | WS_TABSTOP) {}

    void Command(WORD notification) override {
        auto& option = static_cast<OptionButton&>(control());
        if (notification == BN_CLICKED) User(option.form()).Option(option);
    }

 private:
    void Show(Change) override {
        const auto& option = static_cast<OptionButton&>(control());
        SetText(option.caption());
        SendMessageW(handle(), BM_SETCHECK, option.value() ? BST_CHECKED : BST_UNCHECKED, 0);
    }
};

class TextWindow final : public ControlWindow {
 public:
    TextWindow(TextBox& box, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(box, parent, metrics, L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE) {}

    void Command(WORD notification) override {
        if (notification != EN_CHANGE || isShowing()) return;
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(handle())), L'\0');
        GetWindowTextW(handle(), text.data(), static_cast<int>(text.size()) + 1);
        User(Box().form()).Text(Box(), Narrow(text));
    }

 private:
    TextBox& Box() const { return static_cast<TextBox&>(control()); }

    void Show(Change) override {
        std::wstring shown(static_cast<std::size_t>(GetWindowTextLengthW(handle())), L'\0');
        GetWindowTextW(handle(), shown.data(), static_cast<int>(shown.size()) + 1);
        if (Narrow(shown) == Box().text()) return;  // the user's own typing, caret and all
        SetText(Box().text());
        SendMessageW(handle(), EM_SETSEL, static_cast<WPARAM>(Box().selStart()),
                     Box().selStart() + Box().selLength());
    }
};

class ListWindow final : public ControlWindow {
 public:
    ListWindow(DropDown& list, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(list, parent, metrics, L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP) {}

    void Command(WORD notification) override {
        if (notification != CBN_SELCHANGE) return;
        const auto index = static_cast<std::int32_t>(SendMessageW(handle(), CB_GETCURSEL, 0, 0));
        User(List().form()).Select(List(), index);
    }

 private:
    DropDown& List() const { return static_cast<DropDown&>(control()); }

    void Show(Change what) override {
        if (what == Change::Items || what == Change::Caption) {
            SendMessageW(handle(), CB_RESETCONTENT, 0, 0);
            for (const std::string& item : List().items()) {
                // A hidden code may stand behind the caption and 50 blanks.
                const std::wstring shown = Wide(item.substr(0, item.find("  ")));
                SendMessageW(handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(shown.c_str()));
            }
        }
        SendMessageW(handle(), CB_SETCURSEL, static_cast<WPARAM>(List().listIndex()), 0);
    }
};

class DateWindow final : public ControlWindow {
 public:
    DateWindow(DatePicker& picker, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(picker, parent, metrics, DATETIMEPICK_CLASSW,
                        DTS_SHORTDATECENTURYFORMAT | WS_TABSTOP) {
        SendMessageW(handle(), DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"yyyy-MM-dd"));
    }

    LRESULT Notify(const NMHDR& header) override {
        if (header.code != static_cast<UINT>(DTN_DATETIMECHANGE) || isShowing()) return 0;
        SYSTEMTIME time{};
        if (SendMessageW(handle(), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) == GDT_VALID) {
            User(Picker().form()).Date(Picker(), ToDay(time));
        }
        return 0;
    }

 private:
    DatePicker& Picker() const { return static_cast<DatePicker&>(control()); }

    void Show(Change) override {
        const SYSTEMTIME time = ToSystemTime(Picker().value());
        SendMessageW(handle(), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
    }
};

class SpinWindow final : public ControlWindow {
 public:
    SpinWindow(Spin& spin, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(spin, parent, metrics, UPDOWN_CLASSW, UDS_ARROWKEYS) {}

    LRESULT Notify(const NMHDR& header) override {
        if (header.code != static_cast<UINT>(UDN_DELTAPOS)) return 0;
        auto& spin = static_cast<Spin&>(control());
        User(spin.form()).Spin(spin, spin.value() + reinterpret_cast<const NMUPDOWN&>(header).iDelta);
        return 1;  // the model decides where it stands
    }

 private:
    void Show(Change) override {
        const auto& spin = static_cast<Spin&>(control());
        SendMessageW(handle(), UDM_SETRANGE32, static_cast<WPARAM>(spin.min()), spin.max());
        SendMessageW(handle(), UDM_SETPOS32, 0, spin.value());
    }
};

class ProgressWindow final : public ControlWindow {
 public:
    ProgressWindow(ProgressBar& bar, HWND parent, const DialogMetrics& metrics)
        : ControlWindow(bar, parent, metrics, PROGRESS_CLASSW, 0) {}

 private:
    void Show(Change) override {
        const auto& bar = static_cast<ProgressBar&>(control());
        SendMessageW(handle(), PBM_SETRANGE32, static_cast<WPARAM>(bar.min()),
                     static_cast<LPARAM>(bar.max()));
        SendMessageW(handle(), PBM_SETPOS, static_cast<WPARAM>(bar.value()), 0);
    }
};

template <class Window, class Model>
std::unique_ptr<ControlWindow> Make(Control& control, HWND parent, const DialogMetrics& metrics) {
    return std::make_unique<Window>(static_cast<Model&>(control), parent, metrics);
}

}  // namespace

ControlWindow::ControlWindow(Control& control, HWND parent, const DialogMetrics& metrics,
                             const wchar_t* windowClass, DWORD style, DWORD extendedStyle)
    : control_(control),
      metrics_(metrics),
      window_(CreateWindowExW(extendedStyle, windowClass, L"", kChild | style, 0, 0, 0, 0, parent, nullptr,
                              ThisModule(), nullptr)) {
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(metrics.font()), FALSE);
}

ControlWindow::~ControlWindow() { DestroyWindow(window_); }

void ControlWindow::Place() const {
    const POINT place = PlaceInForm(control_);
    const int left = metrics_.Pixels(place.x), top = metrics_.Pixels(place.y);
    const int right = metrics_.Pixels(place.x + control_.bounds().width);
    // A drop-down's height is that of its open list.
    const bool isList = control_.kind() == Control::Kind::List;
    const int bottom = metrics_.Pixels(place.y + (isList ? 3000 : control_.bounds().height));
    SetWindowPos(window_, nullptr, left, top, right - left, bottom - top, SWP_NOZORDER | SWP_NOACTIVATE);
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
            Place();
            break;
        default:
            Show(what);
            break;
    }
    showing_ = outer;
}

std::unique_ptr<ControlWindow> MakeControlWindow(Control& control, HWND parent,
                                                 const DialogMetrics& metrics) {
    std::unique_ptr<ControlWindow> made;
    switch (control.kind()) {
        case Control::Kind::Label:
            made = Make<LabelWindow, Label>(control, parent, metrics);
            break;
        case Control::Kind::Frame:
            made = Make<FrameWindow, Frame>(control, parent, metrics);
            break;
        case Control::Kind::Button:
            made = Make<ButtonWindow, Button>(control, parent, metrics);
            break;
        case Control::Kind::Check:
            made = Make<CheckWindow, CheckBox>(control, parent, metrics);
            break;
        case Control::Kind::Option:
            made = Make<OptionWindow, OptionButton>(control, parent, metrics);
            break;
        case Control::Kind::Text:
            made = Make<TextWindow, TextBox>(control, parent, metrics);
            break;
        case Control::Kind::List:
            made = Make<ListWindow, DropDown>(control, parent, metrics);
            break;
        case Control::Kind::Date:
            made = Make<DateWindow, DatePicker>(control, parent, metrics);
            break;
        case Control::Kind::Spin:
            made = Make<SpinWindow, Spin>(control, parent, metrics);
            break;
        case Control::Kind::Progress:
            made = Make<ProgressWindow, ProgressBar>(control, parent, metrics);
            break;
        case Control::Kind::Grid:
        case Control::Kind::Animation:
        case Control::Kind::Inert:
            return nullptr;
    }
    for (const Change what : {Change::Place, Change::Caption, Change::Enabled, Change::Visible}) {
        made->Update(what);
    }
    return made;
}

}  // namespace qor::windows
