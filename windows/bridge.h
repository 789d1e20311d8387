// The border between the library's values and objects and those of COM. An object of the library goes out
// as one dispatch object for as long as anybody outside holds it; an object of somebody else comes in as a
// ForeignObject and goes out again as what it was.
#pragma once

#include "platform/object.h"
#include "windows/handles.h"

namespace qor::windows {

/// A new VARIANT for `value`; objects go out with a reference of their own.
Variant ToVariant(const Value& value);
/// The value in a VARIANT, through any reference. Types that the library has no value for are converted to
/// the nearest: wider and unsigned integers, currency and decimals to double. Raises 13 for arrays.
Value FromVariant(const VARIANT& variant);

/// The dispatch object of one of the library's objects, or the foreign object itself. Null for null.
ComPtr<IDispatch> Outward(Object* object);
/// The object behind a dispatch pointer: one of the library's own, or one that stands for the other's. The
/// same object outside is the same object here for as long as it is used. Nothing for null.
Ref<Object> Inward(IDispatch* dispatch);

/// Puts `value` where a by-reference VARIANT points, converted to the type that stands there.
HRESULT PutThroughReference(const VARIANT& reference, const Value& value);

/// Runs `step`, turning every exception into the HRESULT and the EXCEPINFO that automation knows for it.
template <class Step>
HRESULT AtBorder(EXCEPINFO* info, Step&& step) noexcept;
/// Tells an error in `info`, or, where there is none, in the thread's error object.
HRESULT FillExcepInfo(EXCEPINFO* info, const Error& error);
[[noreturn]] void RaiseFromCom(HRESULT result, EXCEPINFO& info);

template <class Step>
HRESULT AtBorder(EXCEPINFO* info, Step&& step) noexcept {
    try {
        return std::forward<Step>(step)();
    } catch (const Error& error) {
        return FillExcepInfo(info, error);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace qor::windows
