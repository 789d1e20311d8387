// This module in its process: its file, and the one Process that all its objects share.
#pragma once

#include <windows.h>

#include <string>

#include "process/process.h"

namespace qor::windows {

void RememberModule(HMODULE module);
HMODULE ThisModule();
/// The file of this module.
std::wstring ModulePath();

/// Made at the first creation of an object; it holds what the reports keep for the life of the component.
Process& ComponentProcess();
/// Lets go of it, and with it of every server object that it kept. Only when no object is alive. Answers
/// false, and leaves it, on another thread than the one that it was made on.
bool ReleaseComponentProcess();
/// Leaves what still stands to the end of the process, when nothing may be called any more.
void AbandonComponentProcess();

}  // namespace qor::windows
