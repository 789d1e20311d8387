// ForeignObject: an object of a host or a server, as the library's objects see it.
#pragma once

#include <dispex.h>

#include <string>
#include <vector>

#include "windows/bridge.h"

namespace qor::windows {

/// Whether a call failed because the object's process cannot be reached any more.
bool IsGone(HRESULT result);

class ForeignObject final : public Object {
 public:
    /// `identity` is what the object answers for IUnknown.
    ForeignObject(IDispatch* dispatch, IUnknown* identity);
    ~ForeignObject() override;
    /// An object that is used without a reference to it: its owner keeps it for longer than we use it.
    static Ref<Object> Borrowed(IDispatch* dispatch);

    std::string_view ClassName() const override { return "Object"; }
    MemberId FindMember(std::string_view name) override;
    MemberId DefaultMember() override { return DISPID_VALUE; }
    Value Invoke(MemberId member, InvokeKind kind, Arguments arguments) override;

    IDispatch* dispatch() const { return dispatch_.Get(); }

 private:
    struct Known {
        std::string name;
        MemberId member;
    };
    enum class Borrowing { Borrows };
    ForeignObject(IDispatch* dispatch, Borrowing) : borrowed_(true) { dispatch_.Attach(dispatch); }

    HRESULT InvokeAs(MemberId member, WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO& info);

    ComPtr<IDispatch> dispatch_;
    IUnknown* identity_ = nullptr;    // stands as long as `dispatch_` does; null for a borrowed object
    ComPtr<IDispatchEx> dispatchEx_;  // script classes of a host answer only this one
    bool borrowed_ = false;
    std::vector<Known> members_;  // looked up once; few of one object are ever asked for
};

}  // namespace qor::windows
