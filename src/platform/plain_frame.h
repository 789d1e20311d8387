// The frame control of the plain dialogs, QORRptFilterCtl.QORRptFilter: it owns a report's saved filter
// schemes and calls back into its form to turn a scheme into control values and control values into a
// scheme. What stands here is all that a form relies on; where schemes are kept is the frame's own affair.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dictionary.h"

namespace qor {

/// What the frame raises into its form.
class PlainFrameHost {
 public:
    virtual void OnPlainNotify(const Value& value) = 0;
    virtual void OnPlainSave(std::string& scheme) = 0;        // writes each control into the scheme text
    virtual void OnPlainLoad(const std::string& scheme) = 0;  // reads each control back
    virtual void OnPlainRefresh() = 0;                        // the list of schemes has changed
    virtual void OnPlainDefaults() = 0;

 protected:
    ~PlainFrameHost() = default;
};

class PlainFrame {
 public:
    virtual ~PlainFrame() = default;

    /// Names the schemes' class and starts the frame: the last used scheme or, if there is none, the
    /// defaults come up. A further call with the same number leaves what is on the screen alone.
    virtual void InitScheme(std::int32_t& rptID, std::string_view title) = 0;
    virtual void SetSchemeOption(std::int16_t index, bool value) = 0;
    /// The value under a key of a scheme text, as text; "" where the key is missing.
    virtual Value GetSchemeItem(const std::string& scheme, std::string_view key) = 0;
    virtual void SetSchemeItem(std::string& scheme, std::string_view key, std::string_view value) = 0;
    /// `SchemeStore.CurrentConditions`: a new dictionary of what the form writes now, all values as text.
    virtual Ref<Dictionary> CurrentConditions() = 0;
    /// The frame's host object; nothing where it has none.
    virtual Ref<Object> SchemeHost() = 0;
    virtual void RefreshSchemes() = 0;

    // What the user does to the frame. Each raises an Error with a message for the user where it fails:
    // an empty name, a scheme that is not there, a file that cannot be written.
    virtual void SaveScheme(std::string_view name) = 0;  // also makes it the last used one
    virtual void LoadScheme(std::string_view name) = 0;  // likewise
    virtual void DeleteScheme(std::string_view name) = 0;
    virtual void ShowDefaults() = 0;
    virtual std::vector<std::string> SchemeNames() const = 0;
    virtual std::string CurrentSchemeName() const = 0;  // "" for the defaults

    /// For programs that fill a dialog by its keys: loads the form from conditions of the caller's own.
    virtual void ShowScheme(const Dictionary& conditions) = 0;
};

}  // namespace qor
