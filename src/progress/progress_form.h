// frmProgBar: the small modal window inside whose activation a report fetches. It obeys the events of its
// clsPass and lets waiting window messages run after each.
#pragma once

#include "platform/form.h"
#include "process/process.h"
#include "progress/cls_pass.h"

namespace qor {

class frmProgBar final : public Form, private ClsPassEvents {
 public:
    explicit frmProgBar(Process& process);
    ~frmProgBar() override;

    void SetPass(Ref<clsPass> pass);
    bool WorksWhenActivated() const override { return true; }

    Animation Animation1{*this, "Animation1", {1620, 90, 3150, 600}};
    Label lblMsg{*this, "lblMsg", "", {180, 120, 6000, 330}};
    ProgressBar ProgressBar1{*this, "ProgressBar1", {180, 630, 6000, 255}};
    InertControl cmlISIC{*this, "cmlISIC", {}};

 protected:
    void OnLoad() override;
    void OnActivate() override;

 private:
    void SetBarMaxValue(std::int32_t value) override;
    void SetBarMinValue(std::int32_t value) override;
    void SetBarValue(std::int32_t value) override;
    void SetMsg(std::string_view text) override;
    void SetBarValueWithMax() override;
    void Unload() override;
    void HideProgBar() override;
    void ShowProgBar() override;

    Process& process_;
    Ref<clsPass> m_clsPass;
};

}  // namespace qor
