// ShellBag: the process bag as a host's shell makes it: `Lookup` of a key, and `Item` by key, to read and
// put.
#pragma once

#include "platform/dictionary.h"

namespace qor::viewer {

class ShellBag final : public TableObject {
 public:
    std::string_view ClassName() const override { return "ProcessBag"; }
    std::span<const Member> Members() const override;
    MemberId DefaultMember() override;

    OrderedDictionary& items() { return *items_; }

 private:
    Ref<OrderedDictionary> items_ = MakeRef<OrderedDictionary>();
};

}  // namespace qor::viewer
