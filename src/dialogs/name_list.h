// NameList: the type-ahead list that serves one code box of a dialog at a time. The list is a component of
// the suite; a dialog works without it where it is not installed.
#pragma once

#include <cstdint>

#include "platform/controls.h"
#include "platform/platform.h"

namespace qor {

class NameList {
 public:
    explicit NameList(Platform& platform) : platform_(platform) {}

    /// Serves `box` with the items of a class; the box served before is let go of.
    void Attach(TextBox& box, std::int32_t itemClass);
    void Detach();

 private:
    Platform& platform_;
    Ref<Object> list_;  // made at first need
};

}  // namespace qor
