#include "windows/module.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace qor::windows {

HMODULE ThisModule() { return reinterpret_cast<HMODULE>(&__ImageBase); }

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()))) ==
           path.size()) {
        path.resize(path.size() * 2);
    }
    path.resize(length);
    return path;
}

}  // namespace qor::windows
