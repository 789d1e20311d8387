// MemberIds: the members of one class of foreign objects by name, asked for once and kept.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor::windows {

class MemberIds {
 public:
    /// Those of the object's class. Objects that describe themselves alike share them; one without a
    /// description has its own.
    static std::shared_ptr<MemberIds> Of(IDispatch& object);

    /// The id of a name as it was asked for, or nothing.
    std::optional<DISPID> Find(std::string_view name) const;
    void Keep(std::string_view name, DISPID id) { known_.push_back({std::string(name), id}); }

 private:
    struct Known {
        std::string name;
        DISPID id;
    };
    std::vector<Known> known_;  // few of one class are ever asked for
};

}  // namespace qor::windows
