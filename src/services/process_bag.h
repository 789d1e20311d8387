// The process bag: the small per-process store in which the host's shell leaves application-wide settings.
// It belongs to the shell; this reads it, and caches two answers about data rights in it.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/platform.h"

namespace qor {

class ProcessBag {
 public:
    explicit ProcessBag(Platform& platform) : platform_(platform) {}

    /// The item, or `standIn` where the bag or the item is missing or the bag fails. Without a stand-in a
    /// missing item is Empty.
    Value GetProcessBagItem(std::string_view key, Value standIn = {}) const;
    /// Raises an error where there is no bag.
    void SetProcessBagItem(std::string_view key, Value value);

    std::int32_t GetAppType() const;       // default 2
    std::int32_t GetIndustryType() const;  // default 0
    bool IsGLAndICUnite() const;           // default true

 private:
    Platform& platform_;
};

}  // namespace qor
