// Platform: the few things through which the library reaches everything outside itself. A component, a
// program and a test each bring their own.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/dictionary.h"
#include "platform/object.h"
#include "platform/plain_frame.h"
#include "platform/scheme_frame.h"
#include "platform/vector.h"
#include "platform/window_system.h"

namespace qor {

class Platform {
 public:
    virtual ~Platform() = default;

    /// Creates a server component, a name list or a report class by name. Raises 429 where there is none.
    virtual Ref<Object> CreateComponent(std::string_view name) = 0;
    virtual WindowSystem& windows() = 0;
    virtual Date Now() = 0;
    virtual std::int32_t ProcessNumber() = 0;
    /// The host shell's bag of this process, or nothing. It stays the shell's: nobody here keeps it.
    virtual Ref<Object> ProcessBag() = 0;

    virtual Ref<Dictionary> NewDictionary() { return MakeRef<OrderedDictionary>(); }
    virtual Ref<Vector> NewVector() { return MakeRef<ArrayVector>(); }

    /// Frames for a form that outlives them.
    virtual std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost& form) = 0;
    virtual std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost& form) = 0;

    /// The clock's day, without a time of day.
    Date Today() { return Date{static_cast<double>(static_cast<std::int64_t>(Now().serial))}; }
};

}  // namespace qor
