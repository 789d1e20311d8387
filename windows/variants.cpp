#include <cstring>

#include "platform/conversions.h"
#include "windows/bridge.h"

namespace qor::windows {

namespace {

VARIANT Typed(VARTYPE type) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = type;
    return variant;
}

/// A copy of `variant` with every reference followed.
Variant WithoutReferences(const VARIANT& variant) {
    Variant copy;
    if (FAILED(VariantCopyInd(copy.get(), const_cast<VARIANT*>(&variant)))) Raise(Automation::TypeMismatch);
    return copy;
}

Value AsDouble(const VARIANT& variant) {
    Variant number;
    if (FAILED(VariantChangeType(number.get(), const_cast<VARIANT*>(&variant), 0, VT_R8)))
        Raise(Automation::TypeMismatch);
    return (*number).dblVal;
}

Ref<Object> FromUnknown(IUnknown* unknown) {
    ComPtr<IDispatch> dispatch;
    if (unknown && FAILED(unknown->QueryInterface(IID_PPV_ARGS(&dispatch)))) Raise(Automation::TypeMismatch);
    return Inward(dispatch.Get());
}

/// The bytes of a variable of that type; 0 for types that nothing is put into.
std::size_t SizeOf(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_BOOL:
        case VT_I2:
        case VT_UI2:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return sizeof(void*);
        case VT_DECIMAL:
            return sizeof(DECIMAL);
        default:
            return 0;
    }
}

bool IsOwned(VARTYPE type) { return type == VT_BSTR || type == VT_DISPATCH || type == VT_UNKNOWN; }

}  // namespace

Variant ToVariant(const Value& value) {
    VARIANT variant = Typed(VT_EMPTY);
    switch (value.type()) {
        case Value::Type::Empty:
            break;
        case Value::Type::Null:
            variant.vt = VT_NULL;
            break;
        case Value::Type::Boolean:
            variant.vt = VT_BOOL;
            variant.boolVal = value.boolean() ? VARIANT_TRUE : VARIANT_FALSE;
            break;
        case Value::Type::Int16:
            variant.vt = VT_I2;
            variant.iVal = value.int16();
            break;
        case Value::Type::Int32:
            variant.vt = VT_I4;
            variant.lVal = value.int32();
            break;
        case Value::Type::Single:
            variant.vt = VT_R4;
            variant.fltVal = value.single();
            break;
        case Value::Type::Double:
            variant.vt = VT_R8;
            variant.dblVal = value.number();
            break;
        case Value::Type::Date:
            variant.vt = VT_DATE;
            variant.date = value.date().serial;
            break;
        case Value::Type::Text:
            variant.vt = VT_BSTR;
            variant.bstrVal = Bstr(value.text()).Detach();
            break;
        case Value::Type::Object:
            variant.vt = VT_DISPATCH;
            variant.pdispVal = Outward(value.object()).Detach();
            break;
    }
    return Variant(std::move(variant));
}

Value FromVariant(const VARIANT& variant) {
    if (variant.vt & VT_BYREF) {
        if (!variant.byref) Raise(Automation::TypeMismatch);
        if (variant.vt == (VT_BYREF | VT_VARIANT)) return FromVariant(*variant.pvarVal);
        return FromVariant(*WithoutReferences(variant));
    }
    switch (variant.vt) {
        case VT_EMPTY:
        case VT_ERROR:
            return {};
        case VT_NULL:
            return Value::Null();
        case VT_BOOL:
            return variant.boolVal != VARIANT_FALSE;
        case VT_UI1:
            return std::int16_t{variant.bVal};
        case VT_I1:
            return static_cast<std::int16_t>(static_cast<signed char>(variant.cVal));
        case VT_I2:
            return std::int16_t{variant.iVal};
        case VT_UI2:
            return std::int32_t{variant.uiVal};
        case VT_I4:
        case VT_INT:
            return static_cast<std::int32_t>(variant.lVal);
        case VT_R4:
            return variant.fltVal;
        case VT_R8:
            return variant.dblVal;
        case VT_DATE:
            return Date{variant.date};
        case VT_BSTR:
            return Narrow({variant.bstrVal ? variant.bstrVal : L"", SysStringLen(variant.bstrVal)});
        case VT_DISPATCH:
            return Inward(variant.pdispVal);
        case VT_UNKNOWN:
            return FromUnknown(variant.punkVal);
        case VT_UI4:
        case VT_UINT:
        case VT_I8:
        case VT_UI8:
        case VT_CY:
        case VT_DECIMAL:
            return AsDouble(variant);
        default:
            Raise(Automation::TypeMismatch);
    }
}

HRESULT PutThroughReference(const VARIANT& reference, const Value& value) {
    Variant out = ToVariant(value);
    if (reference.vt == (VT_BYREF | VT_VARIANT)) {
        VARIANT& variable = *reference.pvarVal;
        if (variable.vt & VT_BYREF) return PutThroughReference(variable, value);
        const Variant before(std::move(variable));
        variable = out.Detach();
        return S_OK;
    }
    const VARTYPE type = reference.vt & static_cast<VARTYPE>(~VT_BYREF);
    const std::size_t size = SizeOf(type);
    if (size == 0) return DISP_E_TYPEMISMATCH;
    Variant converted;
    if (const HRESULT result = VariantChangeType(converted.get(), out.get(), 0, type); FAILED(result))
        return result;
    Variant before;
    if (IsOwned(type)) {
        before.get()->vt = type;
        std::memcpy(&before.get()->byref, reference.byref, size);
    }
    const VARIANT now = converted.Detach();
    if (type == VT_DECIMAL) {
        *reference.pdecVal = now.decVal;
        reference.pdecVal->wReserved = 0;  // where the type stood
    } else {
        std::memcpy(reference.byref, &now.byref, size);
    }
    return S_OK;
}

}  // namespace qor::windows
