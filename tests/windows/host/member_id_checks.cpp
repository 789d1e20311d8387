// Member ids of a server's objects: asked for once a class.
#include "tests/windows/host/bare_dispatch.h"
#include "tests/windows/host/host_checks.h"

namespace qor::host {

namespace {

using windows::ComPtr;

/// An object with any member, described as another is, that counts how often it is asked for an id.
class Described final : public BareDispatch {
 public:
    Described(ComPtr<ITypeInfo> description, int& asked)
        : description_(std::move(description)), asked_(asked) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = description_ ? 1 : 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        *info = ComPtr<ITypeInfo>(description_).Detach();
        return S_OK;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
        *ids = ++asked_;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        result->vt = VT_I4;
        result->lVal = id;
        return S_OK;
    }

 private:
    ComPtr<ITypeInfo> description_;
    int& asked_;
};

/// What two new objects of one description answer for a member, asked twice each.
int LookUpsOfTwo(const ComPtr<ITypeInfo>& description) {
    int asked = 0;
    for (int i = 0; i < 2; ++i) {
        ComPtr<IDispatch> object;
        object.Attach(new Described(description, asked));
        const Ref<Object> inside = windows::Inward(object.Get());
        Expect(inside->Get("Total") == inside->Get("Total"), "the member has two ids");
    }
    return asked;
}

ComPtr<ITypeInfo> DescriptionOf(std::string_view progId) {
    ComPtr<ITypeInfo> description;
    Expect(SUCCEEDED(Create(progId)->GetTypeInfo(0, 0, &description)), "no description");
    return description;
}

void IdsAreAskedForOnceAClass() {
    Expect(LookUpsOfTwo(DescriptionOf("QORArApRpt.Bar")) == 1, "each object is asked");
    Expect(LookUpsOfTwo(DescriptionOf("QORArApRpt.clsPass")) == 1, "another class has the ids of the first");
    Expect(LookUpsOfTwo({}) == 2, "objects without a description share their ids");
}

constexpr HostCheck kChecks[] = {{"IdsAreAskedForOnceAClass", IdsAreAskedForOnceAClass}};

}  // namespace

std::span<const HostCheck> MemberIdChecks() { return kChecks; }

}  // namespace qor::host
