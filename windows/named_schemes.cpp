#include "windows/named_schemes.h"

namespace qor::windows {

namespace {

/// The two frames name one operation differently.
void LoadInto(PlainFrame& frame, std::string_view name) { frame.LoadScheme(name); }
void LoadInto(SchemeFrame& frame, std::string_view name) { frame.LoadSavedScheme(name); }

template <class FrameControl>
class SchemesOfFrame final : public NamedSchemes {
 public:
    explicit SchemesOfFrame(FrameControl& frame) : frame_(frame) {}

    std::vector<std::string> Names() const override { return frame_.SchemeNames(); }
    std::string Current() const override { return frame_.CurrentSchemeName(); }
    void Save(std::string_view name) override { frame_.SaveScheme(name); }
    void Load(std::string_view name) override { LoadInto(frame_, name); }
    void Delete(std::string_view name) override { frame_.DeleteScheme(name); }
    void ShowDefaults() override { frame_.ShowDefaults(); }

 private:
    FrameControl& frame_;
};

}  // namespace

std::unique_ptr<NamedSchemes> SchemesOf(FrameOwner& owner) {
    if (PlainFrame* plain = owner.plainFrame()) return std::make_unique<SchemesOfFrame<PlainFrame>>(*plain);
    if (SchemeFrame* scheme = owner.schemeFrame()) {
        return std::make_unique<SchemesOfFrame<SchemeFrame>>(*scheme);
    }
    return nullptr;
}

}  // namespace qor::windows
