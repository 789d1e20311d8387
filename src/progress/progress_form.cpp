#include "progress/progress_form.h"

namespace qor {

frmProgBar::frmProgBar(Process& process)
    : Form(process.platform.windows(), "frmProgBar", {6390, 1065}), process_(process) {}

frmProgBar::~frmProgBar() { SetPass({}); }

void frmProgBar::SetPass(Ref<clsPass> pass) {
    if (m_clsPass) m_clsPass->Disconnect(*this);
    m_clsPass = std::move(pass);
    if (m_clsPass) m_clsPass->Connect(*this);
}

void frmProgBar::OnLoad() {
    // A translation that cannot be loaded leaves the window in its own language.
    IgnoringErrors([this] {
        Ref<Dictionary> options;
        process_.texts.LoadFormResources(this, options, "Q9INDUSTRY");
    });
}

void frmProgBar::OnActivate() {
    if (!m_clsPass) Raise(Automation::ObjectNotSet);
    m_clsPass->SetActive();
}

void frmProgBar::SetBarMaxValue(std::int32_t value) {
    ProgressBar1.SetMax(static_cast<float>(value));
    windows().Pump();
}

void frmProgBar::SetBarMinValue(std::int32_t value) {
    ProgressBar1.SetMin(static_cast<float>(value));
    windows().Pump();
}

void frmProgBar::SetBarValue(std::int32_t value) {
    ProgressBar1.SetValue(static_cast<float>(value));
    windows().Pump();
}

void frmProgBar::SetMsg(std::string_view text) {
    lblMsg.SetCaption(text);
    windows().Pump();
}

void frmProgBar::SetBarValueWithMax() {
    ProgressBar1.SetValue(ProgressBar1.max());
    windows().Pump();
}

void frmProgBar::HideProgBar() {
    ProgressBar1.SetVisible(false);
    windows().Pump();
}

void frmProgBar::ShowProgBar() {
    ProgressBar1.SetVisible(true);
    windows().Pump();
}

void frmProgBar::Unload() {
    ProgressBar1.SetValue(ProgressBar1.max());
    windows().Pump();
    Form::Unload();
    windows().Pump();
}

}  // namespace qor
