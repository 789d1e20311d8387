#include "viewer/recording_windows.h"

namespace qor::viewer {

namespace {

bool IsProgress(const Form& form) { return form.ClassName() == "frmProgBar"; }

}  // namespace

std::int32_t RecordingWindows::MessageBox(std::string_view text, std::string_view title, std::int32_t style) {
    transcript_.Add("message-box", {{"text", text}, {"title", title}, {"style", style}});
    return HeadlessWindows::MessageBox(text, title, style);
}

void RecordingWindows::Pump() { transcript_.Add("pump"); }

void RecordingWindows::SetDefaultPointer() { transcript_.Add("pointer", {{"to", "default"}}); }

void RecordingWindows::Record(const Form& form, std::string_view action) {
    if (IsProgress(form)) {
        transcript_.Add("progress", {{"action", action}});
    } else {
        transcript_.Add("dialog", {{"dialog", form.ClassName()}, {"action", action}});
    }
}

void RecordingWindows::FormLoading(Form& form) {
    if (IsProgress(form)) {
        form.SetView(this);
    } else {
        Record(form, "load");
    }
}

void RecordingWindows::FormShown(Form& form) { Record(form, "show"); }

void RecordingWindows::FormActivating(Form& form) {
    if (!IsProgress(form)) Record(form, "activate");
}

void RecordingWindows::FormHidden(Form& form) { Record(form, "hide"); }

void RecordingWindows::FormUnloaded(Form& form) { Record(form, "unload"); }

void RecordingWindows::PlayUser(Form& form) { played_ = script_.Play(form, *this); }

void RecordingWindows::FormLeftOpen(Form& form) {
    // A dialog that the script does not know is simply cancelled.
    if (played_ || IsProgress(form)) transcript_.Add("left-open", {{"dialog", form.ClassName()}});
}

void RecordingWindows::FormEnded(Form& form) {
    if (IsProgress(form)) Record(form, "shown");
}

void RecordingWindows::ControlChanged(Control& control, Change what) {
    if (control.name() == "lblMsg" && what == Change::Caption) {
        transcript_.Add("progress",
                        {{"action", "message"}, {"text", static_cast<Label&>(control).caption()}});
    }
    if (control.name() == "ProgressBar1" && what == Change::Visible) {
        transcript_.Add("progress", {{"action", control.visible() ? "show-bar" : "hide-bar"}});
    }
}

}  // namespace qor::viewer
