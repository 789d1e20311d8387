#include "windows/component_process.h"

#include <memory>

#include "windows/windows_platform.h"

namespace qor::windows {

namespace {

struct Component {
    const DWORD thread = GetCurrentThreadId();
    WindowsPlatform platform;
    Process process{platform};
};

std::unique_ptr<Component> component_;

}  // namespace

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
