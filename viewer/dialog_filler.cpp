#include "viewer/dialog_filler.h"

#include <algorithm>

#include "platform/conversions.h"
#include "platform/frame_owner.h"
#include "platform/user.h"

namespace qor::viewer {

namespace {

/// The frame of a dialog, whichever it is, by what the two have in common.
class DialogFrame {
 public:
    explicit DialogFrame(Form& form) : owner_(dynamic_cast<FrameOwner*>(&form)) {
        if (!owner_) throw RunFailure(kRunFailed, std::string(form.ClassName()) + " has no filter to set");
    }

    Ref<Dictionary> OnScreen() const {
        return owner_->plainFrame() ? owner_->plainFrame()->CurrentConditions()
                                    : owner_->schemeFrame()->SchemeOnScreen();
    }
    void Show(Dictionary& scheme) const {
        if (PlainFrame* plain = owner_->plainFrame()) return plain->ShowScheme(scheme);
        owner_->schemeFrame()->ShowScheme(scheme);
    }

 private:
    FrameOwner* owner_;
};

std::string KeyList(const Dictionary& scheme) {
    std::string list;
    for (std::size_t i = 0; i < scheme.Count(); ++i) {
        list += (i == 0 ? "" : ", ") + scheme.KeyAt(i);
    }
    return list;
}

bool SaysTheSame(const std::string& asked, const Value& kept) {
    const std::string text = kept.IsNull() ? "" : ToText(kept);
    if (asked == text || Trimmed(asked) == text) return true;
    if (IsDate(asked) && IsDate(kept)) return ToDate(asked) == ToDate(kept);
    if (IsNumeric(asked) && IsNumeric(kept)) return ToDouble(asked) == ToDouble(kept);
    return false;
}

}  // namespace

void FillByKeys(Form& form, std::span<const FilterValue> values) {
    if (values.empty()) return;
    const DialogFrame frame(form);
    const Ref<Dictionary> scheme = frame.OnScreen();
    for (const auto& [key, value] : values) {
        if (!scheme->Lookup(key)) {
            throw RunFailure(kWrongRequest, "no filter key " + key + "; this report has " + KeyList(*scheme));
        }
        scheme->Put(key, value);
    }
    frame.Show(*scheme);

    const Ref<Dictionary> kept = frame.OnScreen();
    for (const auto& [key, value] : values) {
        if (!SaysTheSame(value, kept->Get(key))) {
            throw RunFailure(kRunFailed, key + " does not take \"" + value + "\"; it stays \"" +
                                             ToText(kept->Get(key)) + "\"");
        }
    }
}

void PressOk(Form& form) {
    auto* owner = dynamic_cast<FrameOwner*>(&form);
    if (owner && owner->schemeFrame()) return owner->schemeFrame()->Confirm();
    User user(form);
    for (const std::string_view picker : {"DtpBDate", "DtpEDate"}) {
        if (Control* control = form.Find(picker)) user.Focus(*control);
    }
    if (Control* ok = form.Find("cmdOK")) user.Click(static_cast<Button&>(*ok));
}

}  // namespace qor::viewer
