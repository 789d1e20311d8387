#include "windows/component_process.h"

#include <memory>

#include "windows/windows_platform.h"

namespace qor::windows {

namespace {

HANDLE OwnThread() {
    HANDLE own = nullptr;
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &own, SYNCHRONIZE, FALSE,
                    0);
    return own;
}

struct Component {
    Component() = default;
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
    ~Component() { CloseHandle(running); }

    bool ThreadEnded() const { return WaitForSingleObject(running, 0) == WAIT_OBJECT_0; }

    const DWORD thread = GetCurrentThreadId();
    const HANDLE running = OwnThread();
    WindowsPlatform platform;
    Process process{platform};
};

std::unique_ptr<Component> component_;

}  // namespace

Process& ComponentProcess() {
    if (component_ && component_->thread != GetCurrentThreadId()) {
        if (!component_->ThreadEnded()) {
            throw Error(static_cast<std::int32_t>(RPC_E_WRONG_THREAD), std::string(kLibraryName),
                        "报表只能在主机的用户界面线程上建立和使用");
        }
        AbandonComponentProcess();  // what it kept belonged to that thread's apartment
    }
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
