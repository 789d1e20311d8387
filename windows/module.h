// The module that this code stands in, whether that is the component or a program.
#pragma once

#include <windows.h>

#include <string>

namespace qor::windows {

HMODULE ThisModule();
/// The file of this module.
std::wstring ModulePath();

}  // namespace qor::windows
