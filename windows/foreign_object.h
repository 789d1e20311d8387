// ForeignObject: an object of a host or a server, as the library's objects see it.
#pragma once

#include <dispex.h>

#include <memory>

#include "windows/bridge.h"
#include "windows/member_ids.h"

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
    enum class Borrowing { Borrows };
    ForeignObject(IDispatch* dispatch, Borrowing) : borrowed_(true) { dispatch_.Attach(dispatch); }

    HRESULT InvokeAs(MemberId member, WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO& info);

    ComPtr<IDispatch> dispatch_;
    IUnknown* identity_ = nullptr;    // stands as long as `dispatch_` does; null for a borrowed object
    ComPtr<IDispatchEx> dispatchEx_;  // script classes of a host answer only this one
    bool borrowed_ = false;
    std::shared_ptr<MemberIds> members_;  // of its class, from the first question on
};

}  // namespace qor::windows
