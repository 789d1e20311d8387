// NamedSchemes: what both frames offer a user who works with saved schemes, under one roof.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/frame_owner.h"

namespace qor::windows {

class NamedSchemes {
 public:
    virtual ~NamedSchemes() = default;

    virtual std::vector<std::string> Names() const = 0;
    virtual std::string Current() const = 0;  // "" for the defaults
    // Each may raise an Error for the user.
    virtual void Save(std::string_view name) = 0;
    virtual void Load(std::string_view name) = 0;
    virtual void Delete(std::string_view name) = 0;
    virtual void ShowDefaults() = 0;
};

/// The schemes of a form's frame, which must outlive the answer; null where the form has no frame.
std::unique_ptr<NamedSchemes> SchemesOf(FrameOwner& owner);

}  // namespace qor::windows
