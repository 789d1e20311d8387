#include "windows/bridge.h"

#include <unordered_map>

#include "windows/dispatch_object.h"
#include "windows/foreign_object.h"
#include "windows/outward_objects.h"

namespace qor::windows {

namespace {

/// The library's objects that somebody outside holds, each with its one dispatch object. The library lives
/// on the host's user-interface thread, and so does this.
std::unordered_map<Object*, DispatchObject*>& OutwardObjects() {
    static std::unordered_map<Object*, DispatchObject*> objects;
    return objects;
}

}  // namespace

void RememberOutward(Object& object, DispatchObject& dispatch) {
    OutwardObjects().emplace(&object, &dispatch);
}

void ForgetOutward(Object& object) { OutwardObjects().erase(&object); }

ComPtr<IDispatch> Outward(Object* object) {
    if (!object) return {};
    Object& identity = object->Identity();
    if (auto* foreign = dynamic_cast<ForeignObject*>(&identity)) return foreign->dispatch();
    const auto found = OutwardObjects().find(&identity);
    if (found != OutwardObjects().end()) return found->second;
    ComPtr<IDispatch> made;
    made.Attach(new DispatchObject(identity));
    return made;
}

Ref<Object> Inward(IDispatch* dispatch) {
    if (!dispatch) return {};
    // One of ours comes home as itself, whatever interface it was handed back through.
    ComPtr<IUnknown> own;
    if (SUCCEEDED(dispatch->QueryInterface(kOwnObject, reinterpret_cast<void**>(own.GetAddressOf())))) {
        return Ref<Object>(&static_cast<DispatchObject*>(static_cast<IDispatch*>(own.Get()))->object());
    }
    return MakeRef<ForeignObject>(dispatch);
}

}  // namespace qor::windows
