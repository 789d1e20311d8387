// The register of the objects that live on both sides of the border, kept by themselves: what goes out again
// or comes in again must be what it was.
#pragma once

#include "platform/object.h"
#include "windows/handles.h"

namespace qor::windows {

class DispatchObject;
class ForeignObject;

void RememberOutward(Object& object, DispatchObject& dispatch);
void ForgetOutward(Object& object, DispatchObject& dispatch);

// By the identity that the other side has for it.
void RememberForeign(IUnknown* identity, ForeignObject& object);
void ForgetForeign(IUnknown* identity);

}  // namespace qor::windows
