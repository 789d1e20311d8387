// The one Process that all objects of the component share.
#pragma once

#include "process/process.h"

namespace qor::windows {

/// Made at the first creation of an object; it holds what the reports keep for the life of the component.
/// Raises RPC_E_WRONG_THREAD while it lives on another thread that has not ended.
Process& ComponentProcess();
/// Lets go of it, and with it of every server object that it kept. Only when no object is alive. Answers
/// false, and leaves it, on another thread than the one that it was made on.
bool ReleaseComponentProcess();
/// Leaves what still stands to the end of the process, when nothing may be called any more.
void AbandonComponentProcess();

}  // namespace qor::windows
