// The windows of a test and the hand of the person who is played in them: none at all, or on Windows the true
// ones, so that one set of expectations holds for both.
#pragma once

#ifdef _WIN32
#include "windows/native/native_hand.h"
#include "windows/native/native_play.h"
#else
#include "platform/headless.h"
#include "platform/user.h"
#endif

namespace qor::test {

#ifdef _WIN32
using PlayedWindows = windows::NativePlay;
using Hand = windows::NativeHand;
#else
using PlayedWindows = HeadlessWindows;
using Hand = User;
#endif

}  // namespace qor::test
