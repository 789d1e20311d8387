#include "windows/bridge.h"

#include <memory_resource>
#include <typeinfo>
#include <unordered_map>

#include "windows/dispatch_object.h"
#include "windows/foreign_object.h"
#include "windows/outward_objects.h"

namespace qor::windows {

namespace {

/// Everything that is known on both sides now. The library lives on the host's user-interface thread, and so
/// does this.
struct KnownObjects {
    template <class Key, class Found>
    using Map = std::pmr::unordered_map<Key*, Found*>;

    std::pmr::unsynchronized_pool_resource memory;  // objects come and go with every field that is read
    Map<Object, DispatchObject> outward{&memory};   // ours, that somebody outside holds
    Map<IUnknown, DispatchObject> own{&memory};     // the same by their identities
    Map<IUnknown, ForeignObject> foreign{&memory};  // others', that somebody here holds
};

KnownObjects& Known() {
    static KnownObjects objects;
    return objects;
}

template <class Key, class Found>
Found* FindIn(const std::pmr::unordered_map<Key*, Found*>& objects, Key* key) {
    const auto found = objects.find(key);
    return found == objects.end() ? nullptr : found->second;
}

IUnknown* IdentityOf(DispatchObject& dispatch) { return static_cast<IDispatch*>(&dispatch); }

}  // namespace

void RememberOutward(Object& object, DispatchObject& dispatch) {
    Known().outward.emplace(&object, &dispatch);
    Known().own.emplace(IdentityOf(dispatch), &dispatch);
}

void ForgetOutward(Object& object, DispatchObject& dispatch) {
    Known().outward.erase(&object);
    Known().own.erase(IdentityOf(dispatch));
}

void RememberForeign(IUnknown* identity, ForeignObject& object) {
    Known().foreign.emplace(identity, &object);
}

void ForgetForeign(IUnknown* identity) { Known().foreign.erase(identity); }

ComPtr<IDispatch> Outward(Object* object) {
    if (!object) return {};
    Object& identity = object->Identity();
    if (DispatchObject* known = FindIn(Known().outward, &identity)) return known;
    if (typeid(identity) == typeid(ForeignObject)) return static_cast<ForeignObject&>(identity).dispatch();
    ComPtr<IDispatch> made;
    made.Attach(new DispatchObject(identity));
    return made;
}

Ref<Object> Inward(IDispatch* dispatch) {
    if (!dispatch) return {};
    ComPtr<IUnknown> identity;
    if (FAILED(dispatch->QueryInterface(IID_PPV_ARGS(&identity)))) identity = dispatch;
    if (DispatchObject* own = FindIn(Known().own, identity.Get())) return Ref<Object>(&own->object());
    if (ForeignObject* known = FindIn(Known().foreign, identity.Get())) return Ref<Object>(known);
    return MakeRef<ForeignObject>(dispatch, identity.Get());
}

}  // namespace qor::windows
