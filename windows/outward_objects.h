// The register of dispatch objects that are alive, kept by themselves.
#pragma once

#include "platform/object.h"

namespace qor::windows {

class DispatchObject;

void RememberOutward(Object& object, DispatchObject& dispatch);
void ForgetOutward(Object& object);

}  // namespace qor::windows
