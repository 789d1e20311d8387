// How an object that came from outside is read where it is written into a transcript.
#pragma once

#include "platform/object.h"

namespace qor::stage {

/// A reading of somebody else's dictionary, list or report by its shape; nothing for any other object.
Ref<Object> ShownObject(Object& object);

}  // namespace qor::stage
