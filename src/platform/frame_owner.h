// FrameOwner: a form that carries a frame control, so that a window system or a player can hand the user's
// actions on the frame to it.
#pragma once

#include "platform/plain_frame.h"
#include "platform/scheme_frame.h"

namespace qor {

class FrameOwner {
 public:
    virtual PlainFrame* plainFrame() { return nullptr; }
    virtual SchemeFrame* schemeFrame() { return nullptr; }

 protected:
    ~FrameOwner() = default;
};

}  // namespace qor
