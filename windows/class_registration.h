// What makes one class known to hosts by name.
#pragma once

#include <windows.h>

#include <string>

#include "windows/types/class_ids.h"

namespace qor::windows {

struct RegisteredClass {
    std::string name;  // "QORArApRpt.Rpt10522"
    ComponentId id;
    bool described = false;  // by the type library of this module
};

/// "{3E6C2919-...}"
std::wstring BracedId(const ComponentId& id);

// Of this module, apartment threaded, for all users or for this one: HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER.
LSTATUS WriteClass(HKEY root, const RegisteredClass& registered);
/// What is not there is no failure.
LSTATUS RemoveClass(HKEY root, const RegisteredClass& registered);
/// The same for one key below the classes, with everything in it.
LSTATUS RemoveClassesKey(HKEY root, const std::wstring& key);
bool HasClassesKey(HKEY root, const std::wstring& key);

}  // namespace qor::windows
