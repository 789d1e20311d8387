#include "windows/module.h"

#include <memory>

#include "windows/windows_platform.h"

namespace qor::windows {

namespace {

struct Component {
    const DWORD thread = GetCurrentThreadId();
    WindowsPlatform platform;
    Process process{platform};
};

HMODULE module_ = nullptr;
std::unique_ptr<Component> component_;

}  // namespace

void RememberModule(HMODULE module) { module_ = module; }

HMODULE ThisModule() { return module_; }

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(module_, path.data(), static_cast<DWORD>(path.size()))) ==
           path.size()) {
        path.resize(path.size() * 2);
    }
    path.resize(length);
    return path;
}

Process& ComponentProcess() {
    if (!component_) component_ = std::make_unique<Component>();
    return component_->process;
}

bool ReleaseComponentProcess() {
    if (component_ && component_->thread != GetCurrentThreadId()) return false;
    component_.reset();
    return true;
}

void AbandonComponentProcess() { (void)component_.release(); }

}  // namespace qor::windows
