// WindowsPlatform: the library's surroundings inside a host's process on Windows.
#pragma once

#include <string>
#include <unordered_map>

#include "frames/file_scheme_store.h"
#include "platform/platform.h"
#include "windows/handles.h"
#include "windows/native_windows.h"

namespace qor::windows {

class WindowsPlatform : public Platform {
 public:
    WindowsPlatform();

    Ref<Object> CreateComponent(std::string_view name) override;
    WindowSystem& windows() override { return windows_; }
    Date Now() override;
    std::int32_t ProcessNumber() override;
    Ref<Object> ProcessBag() override;
    // The foundation library's own where it is registered, ours where it is not.
    Ref<Dictionary> NewDictionary() override;
    Ref<Vector> NewVector() override;
    std::unique_ptr<PlainFrame> NewPlainFrame(PlainFrameHost& form) override;
    std::unique_ptr<SchemeFrame> NewSchemeFrame(SchemeFrameHost& form) override;

 private:
    Ref<Object> CreateByName(std::string_view name);

    NativeWindows windows_;
    FileSchemeStore schemes_;
    std::unordered_map<std::string, ComPtr<IClassFactory>> classObjects_;  // of servers that were created
    // The class objects of the foundation library, asked for once; null where it is not registered.
    ComPtr<IClassFactory> dictionaries_;
    ComPtr<IClassFactory> vectors_;
};

}  // namespace qor::windows
