// Foreign: an object of somebody else that does what one of ours does, but is reached by name only.
#pragma once

#include <string_view>
#include <utility>

#include "platform/object.h"

namespace qor::test {

class Foreign final : public Object {
 public:
    explicit Foreign(Ref<Object> inner) : inner_(std::move(inner)) {}
    std::string_view ClassName() const override { return "Foreign"; }
    MemberId FindMember(std::string_view name) override { return inner_->FindMember(name); }
    MemberId DefaultMember() override { return inner_->DefaultMember(); }
    Value Invoke(MemberId member, InvokeKind kind, Arguments arguments) override {
        return inner_->Invoke(member, kind, arguments);
    }

 private:
    Ref<Object> inner_;
};

}  // namespace qor::test
