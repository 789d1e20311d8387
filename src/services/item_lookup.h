// Item lookup: routes a request for base data to the right picker of the server side, by item class.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "services/system_profile.h"

namespace qor {

class ItemPicker {
 public:
    ItemPicker(Platform& platform, SystemProfile& profile) : platform_(platform), profile_(profile) {}

    /// Opens the picker of an item class and answers its lookup object, whose `ReturnObject` is the choice.
    /// Nothing where the user cancelled, the class has no picker, or the pick failed (with a message box).
    Ref<Object> ItemLookup(std::int32_t itemClass, std::string_view search, std::string_view where,
                           std::int16_t dataType);

 private:
    Value Pick(std::int32_t itemClass, std::string_view search, std::string_view where,
               std::int16_t dataType);
    Value PickItem(std::int32_t itemClass, std::string_view search, std::string_view where,
                   std::int16_t dataType);
    std::string Condition(std::string_view where);

    Platform& platform_;
    SystemProfile& profile_;
};

}  // namespace qor
