#include "windows/incoming_arguments.h"

#include <algorithm>

namespace qor::windows {

namespace {

constexpr WORD kAnyPut = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

bool IsByRef(const VARIANT& variant) { return (variant.vt & VT_BYREF) != 0; }

/// Also where a host's routine hands on an optional argument that it was not given itself.
bool IsMissing(const VARIANT& variant) {
    if (variant.vt == (VT_BYREF | VT_VARIANT)) return variant.pvarVal && IsMissing(*variant.pvarVal);
    return variant.vt == VT_ERROR && variant.scode == DISP_E_PARAMNOTFOUND;
}

}  // namespace

IncomingArguments::IncomingArguments(const DISPPARAMS& parameters, WORD flags, std::size_t nameable)
    : parameters_(parameters), flags_(flags), placed_(Place(nameable)) {}

HRESULT IncomingArguments::Place(std::size_t nameable) {
    const UINT named = parameters_.cNamedArgs;
    if (named == 0) return S_OK;
    if (named > parameters_.cArgs || !parameters_.rgdispidNamedArgs) return E_INVALIDARG;
    // The new value of a put is named too, and stands last among the arguments.
    const bool putsFirst = (flags_ & kAnyPut) && parameters_.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (named == 1 && putsFirst) return S_OK;
    for (UINT i = parameters_.cArgs; i-- > named;) {
        places_.push_back(i);
    }
    for (UINT i = putsFirst ? 1 : 0; i < named; ++i) {
        const DISPID id = parameters_.rgdispidNamedArgs[i];
        const auto place = static_cast<std::size_t>(id);
        const bool isKnown = id >= 0 && place < nameable;
        if (isKnown && places_.size() <= place) places_.resize(place + 1, kLeftOut);
        if (!isKnown || places_[place] != kLeftOut) {
            wrong_ = i;
            return DISP_E_PARAMNOTFOUND;
        }
        places_[place] = i;
    }
    if (putsFirst) places_.push_back(0);
    return S_OK;
}

UINT IncomingArguments::PlaceOf(std::size_t argument) const {
    return places_.empty() ? parameters_.cArgs - 1 - static_cast<UINT>(argument) : places_[argument];
}

void IncomingArguments::Take() {
    const std::size_t count = Count();
    arguments_.reserve(count);
    if (std::any_of(parameters_.rgvarg, parameters_.rgvarg + parameters_.cArgs, &IsByRef))
        values_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        wrong_ = PlaceOf(i);
        TakeOne(i);
    }
    wrong_ = kLeftOut;
}

void IncomingArguments::TakeOne(std::size_t argument) {
    const UINT place = PlaceOf(argument);
    if (place == kLeftOut || IsMissing(parameters_.rgvarg[place])) {
        arguments_.push_back(Argument::Missing());
    } else if (const VARIANT& variant = parameters_.rgvarg[place]; IsByRef(variant)) {
        const Value value = FromVariant(variant);
        Passed& passed = values_.emplace_back(Passed{argument, value, value});
        arguments_.push_back(Argument::ByRef(passed.now));
    } else {
        arguments_.emplace_back(FromVariant(variant));
    }
}

InvokeKind IncomingArguments::kind() const {
    if ((flags_ & kAnyPut) == kAnyPut) {
        const bool isObject = !arguments_.empty() && (*arguments_.back()).IsObject();
        return isObject ? InvokeKind::PutRef : InvokeKind::Put;
    }
    if (flags_ & DISPATCH_PROPERTYPUTREF) return InvokeKind::PutRef;
    if (flags_ & DISPATCH_PROPERTYPUT) return InvokeKind::Put;
    return flags_ & DISPATCH_METHOD ? InvokeKind::Method : InvokeKind::Get;
}

void IncomingArguments::HandBack() {
    for (const Passed& passed : values_) {
        if (passed.now == passed.before) continue;
        const UINT place = PlaceOf(passed.argument);
        const HRESULT result = PutThroughReference(parameters_.rgvarg[place], passed.now);
        if (SUCCEEDED(result)) continue;
        wrong_ = place;
        EXCEPINFO none{};
        RaiseFromCom(result, none);
    }
}

void IncomingArguments::TellWrong(UINT* wrongArgument) const {
    if (!wrongArgument) return;
    UINT wrong = wrong_;
    const auto refused = std::ranges::find_if(arguments_, &Argument::IsRefused);
    if (refused != arguments_.end()) wrong = PlaceOf(static_cast<std::size_t>(refused - arguments_.begin()));
    if (wrong != kLeftOut) *wrongArgument = wrong;
}

}  // namespace qor::windows
