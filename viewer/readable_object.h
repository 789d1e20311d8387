// ReadableObject: an object with readable members, as a file describes it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/object.h"

namespace qor::viewer {

class ReadableObject final : public Object {
 public:
    void AddMember(std::string name, Value value) {
        members_.emplace_back(std::move(name), std::move(value));
    }

    std::string_view ClassName() const override { return "Object"; }
    MemberId FindMember(std::string_view name) override;
    /// Arguments go on to the object that the member holds.
    Value Invoke(MemberId member, InvokeKind kind, Arguments arguments) override;

 private:
    std::vector<std::pair<std::string, Value>> members_;
};

}  // namespace qor::viewer
