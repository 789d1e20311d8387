// PlainSchemeFrame: the frame of the plain dialogs over a store of schemes. It holds no control values; it
// has its form write or read them whenever it needs to.
#pragma once

#include <array>

#include "frames/scheme_shelf.h"
#include "platform/plain_frame.h"
#include "platform/platform.h"

namespace qor {

class PlainSchemeFrame final : public PlainFrame {
 public:
    /// All three outlive the frame.
    PlainSchemeFrame(Platform& platform, SchemeStore& store, PlainFrameHost& form)
        : platform_(platform), form_(form), shelf_(platform.windows(), store) {}

    /// A store that fails is told in a message box, and the defaults come up.
    void InitScheme(std::int32_t& rptID, std::string_view title) override;
    /// Index 1 or 2; any other raises 9. Every dialog switches both off, so nothing hangs on them.
    void SetSchemeOption(std::int16_t index, bool value) override;
    Value GetSchemeItem(const std::string& scheme, std::string_view key) override;
    void SetSchemeItem(std::string& scheme, std::string_view key, std::string_view value) override;
    Ref<Dictionary> CurrentConditions() override;
    Ref<Object> SchemeHost() override { return {}; }
    void RefreshSchemes() override { shelf_.Refresh(); }

    void SaveScheme(std::string_view name) override;
    void LoadScheme(std::string_view name) override;
    /// Leaves the screen alone. Where it was the current scheme, the next dialog begins with the defaults.
    void DeleteScheme(std::string_view name) override;
    void ShowDefaults() override;
    std::vector<std::string> SchemeNames() const override { return shelf_.names(); }
    std::string CurrentSchemeName() const override { return shelf_.current(); }
    void ShowScheme(const Dictionary& conditions) override;

    bool SchemeOption(std::int16_t index) const;
    /// The name under which the form introduced itself.
    const std::string& title() const { return title_; }

 private:
    SavedScheme SchemeOnScreen();
    void Show(const SavedScheme& scheme);

    Platform& platform_;
    PlainFrameHost& form_;
    SchemeShelf shelf_;
    std::string title_;
    std::array<bool, 2> options_{true, true};
};

}  // namespace qor
