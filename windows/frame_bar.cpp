#include "windows/frame_bar.h"

#include <algorithm>
#include <array>
#include <functional>

#include "dialogs/layout.h"
#include "platform/frame_owner.h"
#include "platform/window_system.h"
#include "windows/drop_down.h"
#include "windows/instance.h"
#include "windows/named_schemes.h"
#include "windows/scheme_name_form.h"

namespace qor::windows {

namespace {

constexpr std::int32_t kYesNoQuestion = MB_YESNO | MB_ICONQUESTION;

enum class Action : std::uint8_t { Save, SaveAs, Delete, Defaults, SwitchPanel, Confirm, Cancel };

struct PartRow {
    Action action;
    const char* caption;
    Bounds place;  // in its row; the bar's begins at the bar, the bottom one at the form's left edge
};

// In the order of the Tab key. A scheme dialog's bottom row comes behind its last panel control, and its bar
// ahead of the first one.
// clang-format off
constexpr PartRow kBottomRow[] = {
    {Action::SwitchPanel, "",         {layout::kMargin, 0, 1620, layout::kButtonHeight}},
    {Action::Confirm,     "确定(&O)", layout::ConfirmAt(0)},
    {Action::Cancel,      "取消(&E)", layout::CancelAt(0)},
};
constexpr PartRow kSchemeRow[] = {
    {Action::Save,     "保存(&S)", {3060, 0, 735, 300}},
    {Action::SaveAs,   "另存(&A)", {3845, 0, 735, 300}},
    {Action::Delete,   "删除(&D)", {4630, 0, 735, 300}},
    {Action::Defaults, "默认(&R)", {5415, 0, 735, 300}},
};
// clang-format on

class FrameBar final : public ControlWindow {
 public:
    FrameBar(Control& place, const FormSurface& surface, FrameOwner& owner)
        : ControlWindow(place, surface, L"COMBOBOX", kDropDownStyle),
          schemes_(SchemesOf(owner)),
          dialog_(owner.schemeFrame()),
          label_(MakePart(L"STATIC", SS_LEFT | SS_NOPREFIX)) {
        SetWindowTextW(label_, L"过滤方案:");
        if (dialog_) MakeButtons(kBottomRow);
        MakeButtons(kSchemeRow);
    }
    ~FrameBar() override {
        DestroyWindow(label_);
        for (const Part& part : parts_) {
            DestroyWindow(part.window);
        }
    }

    bool Holds(HWND window) const override {
        return ControlWindow::Holds(window) || window == label_ || FindPart(window);
    }
    std::vector<HWND> FocusWindows() const override { return stops_; }
    void Command(HWND from, WORD notification) override;
    void TakeFocus(bool byTab, bool backwards) override;
    void KeyboardAt(HWND window) override {
        if (Holds(window)) last_ = window;
    }
    bool TakeTab(bool backwards) override;
    bool TakeEscape() override { return CloseList(); }
    bool TakeEnter() override;
    bool TakeMnemonic(wchar_t letter) override;

 private:
    struct Part {
        const PartRow& row;
        HWND window;
        bool bottom;
    };

    HWND MakePart(const wchar_t* windowClass, DWORD style) const {
        return CreateWindowExW(0, windowClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style, 0, 0, 0,
                               0, surface().window, nullptr, ThisInstance(), nullptr);
    }
    void MakeButtons(std::span<const PartRow> rows);
    const Part* FindPart(HWND window) const {
        const auto found = std::ranges::find(parts_, window, &Part::window);
        return found == parts_.end() ? nullptr : &*found;
    }
    void Place(const RECT&) override;
    void TakeFont() override;
    void Show(Change) override;
    bool CloseList() const { return Send(CB_GETDROPPEDSTATE) && (Send(CB_SHOWDROPDOWN, FALSE), true); }

    void Do(Action action);
    void SaveUnder(std::string name);
    void AskNameAndSave();
    void Delete();
    void PickFromList();
    void Telling(const std::function<void()>& step);
    void Tell(std::string_view text, std::int32_t style = kInformationIcon) const {
        surface().windows.MessageBox(text, "信息提示", style);
    }

    std::unique_ptr<NamedSchemes> schemes_;
    SchemeFrame* dialog_;  // null in a plain dialog
    HWND label_;
    std::vector<Part> parts_;
    std::vector<HWND> stops_;  // of the Tab key, in its order
    HWND last_ = nullptr;      // the stop that had the keyboard last
    std::vector<std::string> shownNames_;
};

void FrameBar::MakeButtons(std::span<const PartRow> rows) {
    const bool bottom = rows.data() == kBottomRow;
    if (!bottom) stops_.push_back(handle());
    for (const PartRow& row : rows) {
        const HWND button = MakePart(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP);
        SetWindowTextW(button, Wide(row.caption).c_str());
        parts_.push_back({row, button, bottom});
        stops_.push_back(button);
    }
}

void FrameBar::Place(const RECT&) {
    const Bounds& bar = control().bounds();
    const auto pixels = [&](std::int32_t left, std::int32_t top, const Bounds& part) {
        return metrics().Pixels(Bounds{left + part.left, top + part.top, part.width, part.height});
    };
    const auto move = [](HWND window, const RECT& to) {
        SetWindowPos(window, nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    };
    PlaceDropDown(handle(), pixels(bar.left, bar.top, layout::BoxAt(0)), shownNames_.size(), metrics());
    move(label_, pixels(bar.left, bar.top, layout::LabelAt(0)));
    const std::int32_t bottom = control().form().size().height - layout::kButtonRow + layout::kMargin;
    for (const Part& part : parts_) {
        move(part.window,
             part.bottom ? pixels(0, bottom, part.row.place) : pixels(bar.left, bar.top, part.row.place));
    }
}

void FrameBar::TakeFont() {
    ControlWindow::TakeFont();
    const auto font = reinterpret_cast<WPARAM>(metrics().font());
    SendMessageW(label_, WM_SETFONT, font, TRUE);
    for (const Part& part : parts_) {
        SendMessageW(part.window, WM_SETFONT, font, TRUE);
    }
}

void FrameBar::Show(Change) {
    const std::vector<std::string> names = schemes_->Names();
    if (names != shownNames_) {
        shownNames_ = names;
        Send(CB_RESETCONTENT);
        for (const std::string& name : names) {
            Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(name).c_str()));
        }
        Update(Change::Place);
    }
    const auto current = std::ranges::find(names, schemes_->Current());
    Send(CB_SETCURSEL,
         current == names.end() ? static_cast<WPARAM>(-1) : static_cast<WPARAM>(current - names.begin()));
    for (const Part& part : parts_) {
        if (part.row.action == Action::SwitchPanel) {
            SetWindowTextW(part.window, dialog_->ShowsWholePanel() ? L"常用条件(&H)" : L"全部条件(&H)");
        } else if (part.row.action == Action::Delete) {
            EnableWindow(part.window, current != names.end());
        }
    }
}

void FrameBar::Command(HWND from, WORD notification) {
    if (from == handle()) {
        if (notification == CBN_DROPDOWN) Update(Change::Items);
        if (notification == CBN_SELCHANGE && !isShowing()) PickFromList();
    } else if (const Part* part = FindPart(from); part && notification == BN_CLICKED) {
        Do(part->row.action);
    }
}

void FrameBar::TakeFocus(bool byTab, bool backwards) {
    if (byTab) {
        SetFocus(backwards ? stops_.back() : stops_.front());
    } else if (!Holds(GetFocus())) {
        // Behind a question, the user is where he was, if that can still be pressed.
        SetFocus(last_ && IsWindowEnabled(last_) ? last_ : handle());
    }
}

bool FrameBar::TakeTab(bool backwards) {
    auto at = std::ranges::find(stops_, GetFocus());
    while (at != stops_.end()) {
        if (backwards && at == stops_.begin()) return false;
        backwards ? --at : ++at;
        if (at != stops_.end() && IsWindowEnabled(*at)) {
            SetFocus(*at);
            return true;
        }
    }
    return false;
}

bool FrameBar::TakeEnter() {
    if (CloseList()) return true;
    const Part* part = FindPart(GetFocus());
    if (part) Do(part->row.action);
    return part != nullptr;
}

bool FrameBar::TakeMnemonic(wchar_t letter) {
    for (const Part& part : parts_) {
        if (MnemonicOf(Narrow(TextOf(part.window))) != letter || !IsWindowEnabled(part.window)) continue;
        SetFocus(part.window);  // what is being typed elsewhere counts first
        if (control().form().focus() == &control()) Do(part.row.action);
        return true;
    }
    return false;
}

void FrameBar::Do(Action action) {
    switch (action) {
        case Action::Save:
            schemes_->Current().empty() ? AskNameAndSave() : SaveUnder(schemes_->Current());
            break;
        case Action::SaveAs:
            AskNameAndSave();
            break;
        case Action::Delete:
            Delete();
            break;
        case Action::Defaults:
            schemes_->ShowDefaults();
            break;
        case Action::SwitchPanel:
            dialog_->SwitchPanel(!dialog_->ShowsWholePanel());
            break;
        case Action::Confirm:
            return dialog_->Confirm();
        case Action::Cancel:
            return dialog_->Cancel();
    }
    Update(Change::Items);
}

void FrameBar::Telling(const std::function<void()>& step) {
    try {
        step();
    } catch (const Error& error) {
        Tell(error.description());
    }
}

void FrameBar::SaveUnder(std::string name) {
    Telling([&] { schemes_->Save(name); });
}

void FrameBar::AskNameAndSave() {
    const auto question = MakeRef<SchemeNameForm>(surface().windows, schemes_->Current());
    question->ShowModal();
    const std::optional<std::string> name = question->confirmed();
    question->Unload();
    if (!name) return;
    const std::vector<std::string> names = schemes_->Names();
    if (*name != schemes_->Current() && std::ranges::find(names, *name) != names.end() &&
        surface().windows.MessageBox("已有名为“" + *name + "”的过滤方案，要覆盖它吗？", "信息提示",
                                     kYesNoQuestion) != IDYES) {
        return;
    }
    SaveUnder(*name);
}

void FrameBar::Delete() {
    const std::string name = schemes_->Current();
    if (surface().windows.MessageBox("要删除过滤方案“" + name + "”吗？", "信息提示", kYesNoQuestion) ==
        IDYES) {
        Telling([&] { schemes_->Delete(name); });
    }
}

void FrameBar::PickFromList() {
    const auto picked = static_cast<std::size_t>(Send(CB_GETCURSEL));
    if (picked < shownNames_.size()) {
        Telling([&, name = shownNames_[picked]] { schemes_->Load(name); });
    }
    Update(Change::Items);
}

}  // namespace

std::unique_ptr<ControlWindow> MakeFrameBar(Control& place, const FormSurface& surface) {
    auto* owner = dynamic_cast<FrameOwner*>(&place.form());
    if (!owner || !place.TakesFocus()) return nullptr;
    return std::make_unique<FrameBar>(place, surface, *owner);
}

}  // namespace qor::windows
