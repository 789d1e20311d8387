// Late-bound calls as a native host makes them, and how long they take.
#pragma once

#include <algorithm>
#include <vector>

#include "windows/handles.h"

namespace qor::bench {

using windows::ComPtr;
using windows::Variant;

inline constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

/// One call: of an object, by member id. Arguments are borrowed, last first.
struct Call {
    IDispatch* object;
    const wchar_t* name;
    WORD way = kRead;
    std::vector<VARIANT> arguments{};
    DISPID id = DISPID_UNKNOWN;

    /// Asks for the id by name, as a host does that keeps none.
    Call& Find() {
        LPOLESTR asked = const_cast<LPOLESTR>(name);
        object->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id);
        return *this;
    }

    Variant operator()() {
        DISPID put = DISPID_PROPERTYPUT;
        const bool isPut = way == DISPATCH_PROPERTYPUT;
        DISPPARAMS parameters{arguments.data(), isPut ? &put : nullptr, static_cast<UINT>(arguments.size()),
                              isPut ? 1u : 0u};
        Variant result;
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, way, &parameters, isPut ? nullptr : result.get(),
                       nullptr, nullptr);
        return result;
    }
};

inline Variant Read(IDispatch* object, const wchar_t* name) { return Call{object, name}.Find()(); }

/// Nanoseconds that a step takes.
template <class Step>
double Nanoseconds(Step&& step) {
    LARGE_INTEGER frequency, begin, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&begin);
    step();
    QueryPerformanceCounter(&end);
    return static_cast<double>(end.QuadPart - begin.QuadPart) * 1e9 / static_cast<double>(frequency.QuadPart);
}

/// Nanoseconds of one `step`: the best of a hundred rounds of that many, so that other work on the machine
/// counts little.
template <class Step>
double BestNanoseconds(int times, Step&& step) {
    double best = 0;
    for (int round = 0; round < 100; ++round) {
        const double took = Nanoseconds([&] {
            for (int i = 0; i < times; ++i) {
                step();
            }
        });
        best = round == 0 ? took : std::min(best, took);
    }
    return best / times;
}

/// An object of the registered component; ends the program where there is none.
ComPtr<IDispatch> CreateClass(const wchar_t* name);

}  // namespace qor::bench
