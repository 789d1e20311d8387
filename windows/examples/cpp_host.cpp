// A complete C++ host: the filter dialog, the fetch, the columns, the rows. Late bound, so that it needs no
// file of the component. Build it with
//   x86_64-w64-mingw32-g++ -std=c++20 -static cpp_host.cpp -o cpp_host.exe -lole32 -loleaut32 -luuid
// or with any other compiler for Windows.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// A VARIANT that clears itself.
struct Variant : VARIANT {
    Variant() { VariantInit(this); }
    explicit Variant(long number) : Variant() {
        vt = VT_I4;
        lVal = number;
    }
    explicit Variant(const std::wstring& text) : Variant() {
        vt = VT_BSTR;
        bstrVal = SysAllocString(text.c_str());
    }
    Variant(const Variant& other) : Variant() { VariantCopy(this, const_cast<Variant*>(&other)); }
    Variant& operator=(const Variant& other) {
        VariantCopy(this, const_cast<Variant*>(&other));
        return *this;
    }
    ~Variant() { VariantClear(this); }

    std::wstring Text() const {
        Variant text;
        if (FAILED(VariantChangeType(&text, const_cast<Variant*>(this), 0, VT_BSTR))) return L"";
        return {text.bstrVal, SysStringLen(text.bstrVal)};
    }
    bool IsTrue() const { return vt == VT_BOOL && boolVal != VARIANT_FALSE; }
};

/// Reads a property or calls a method of the object in `target`.
Variant Get(const Variant& target, const wchar_t* member, std::initializer_list<Variant> arguments = {}) {
    if (target.vt != VT_DISPATCH || !target.pdispVal) throw std::runtime_error("no object");
    LPOLESTR name = const_cast<LPOLESTR>(member);
    DISPID id = 0;
    if (FAILED(target.pdispVal->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id)))
        throw std::runtime_error("no such member");
    std::vector<VARIANT> reversed(std::rbegin(arguments), std::rend(arguments));  // borrowed for the call
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    Variant result;
    EXCEPINFO failure{};
    const HRESULT answer =
        target.pdispVal->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                &parameters, &result, &failure, nullptr);
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
    SysFreeString(failure.bstrHelpFile);
    if (FAILED(answer)) throw std::runtime_error("the call failed");
    return result;
}

Variant Create(const wchar_t* name) {
    CLSID id;
    Variant made;
    if (FAILED(CLSIDFromProgID(name, &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                reinterpret_cast<void**>(&made.pdispVal)))) {
        throw std::runtime_error("the component is not registered");
    }
    made.vt = VT_DISPATCH;
    return made;
}

void Print(const std::wstring& text) {
    char narrow[4096];
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), narrow,
                                         sizeof narrow, nullptr, nullptr);
    std::printf("%.*s\n", size, narrow);
}

void PrintRows(const Variant& report) {
    const Variant header = Get(report, L"Header"), rows = Get(report, L"Rs"), fields = Get(rows, L"Fields");
    while (!Get(rows, L"EOF").IsTrue()) {
        std::wstring line;
        for (long i = 1; i <= Get(header, L"Count").lVal; ++i) {
            const Variant field = Get(Get(header, L"Item", {Variant(i)}), L"Value", {Variant(L"FColName")});
            try {
                line += Get(Get(fields, L"Item", {field}), L"Value").Text() + L"\t";
            } catch (const std::runtime_error&) {
                // The server leaves out the columns that the filter does not ask for.
            }
        }
        Print(line);
        Get(rows, L"Move", {Variant(1L)});
    }
}

bool Succeeded(const Variant& report) {
    return Get(Get(report, L"Result"), L"Value", {Variant(L"OK")}).IsTrue();
}

void Run() {
    const Variant report = Create(L"QORArApRpt.Rpt10522");
    Get(report, L"ShowFilter");
    if (Succeeded(report)) Get(report, L"GetReportData");
    if (Succeeded(report)) {
        PrintRows(report);
    } else {
        const std::wstring error = Get(Get(report, L"Result"), L"Value", {Variant(L"Error")}).Text();
        Print(error.empty() ? L"cancelled" : error);
    }
}

}  // namespace

int main() {
    CoInitialize(nullptr);
    int status = 0;
    try {
        Run();
    } catch (const std::exception& failure) {
        std::printf("%s\n", failure.what());
        status = 1;
    }
    CoUninitialize();
    return status;
}
