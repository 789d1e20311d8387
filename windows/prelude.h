// Stands ahead of every source of the Windows build: the system's headers define macros over names that the
// library uses for its own members.
#pragma once

#include <windows.h>
#undef MessageBox
