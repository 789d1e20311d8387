// BareDispatch: a counted automation object without a description and without members. Objects that hosts and
// servers would bring add what they answer.
#pragma once

#include "windows/com_object.h"

namespace qor::host {

class BareDispatch : public windows::ComObject<IDispatch> {
 public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
        return *object ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return S_OK;
    }
};

}  // namespace qor::host
