// Class objects: they make the objects of one class each.
#pragma once

#include <functional>

#include "windows/bridge.h"

namespace qor::windows {

/// A class object whose objects `make` makes, as the interface asked for.
HRESULT AnswerFactory(std::function<Ref<Object>()> make, REFIID interfaceId, void** factory);

}  // namespace qor::windows
