// Errors over the border: numbers below 65536 travel as automation's own results (800A....), any other
// number as it is; source and description travel beside it.
#include <iterator>

#include "windows/bridge.h"

namespace qor::windows {

namespace {

constexpr ULONG kAutomationResult = 0x800A0000;

struct KnownResult {
    HRESULT result;
    Automation error;
};

// What COM itself answers, as the automation errors that hosts expect.
constexpr KnownResult kKnownResults[] = {
    {DISP_E_UNKNOWNNAME, Automation::NoSuchMember},
    {DISP_E_MEMBERNOTFOUND, Automation::NoSuchMember},
    {DISP_E_TYPEMISMATCH, Automation::TypeMismatch},
    {DISP_E_BADVARTYPE, Automation::TypeMismatch},
    {DISP_E_OVERFLOW, Automation::Overflow},
    {DISP_E_BADINDEX, Automation::SubscriptOutOfRange},
    {DISP_E_BADPARAMCOUNT, Automation::WrongArguments},
    {DISP_E_PARAMNOTOPTIONAL, Automation::ArgumentNotOptional},
    {REGDB_E_CLASSNOTREG, Automation::CannotCreate},
    {CO_E_CLASSSTRING, Automation::CannotCreate},
};

std::string TakeText(BSTR& text) {
    const std::string narrow = text ? Narrow({text, SysStringLen(text)}) : std::string();
    SysFreeString(std::exchange(text, nullptr));
    return narrow;
}

/// What the system says of a result, for the user.
std::string TextOfResult(HRESULT result) {
    wchar_t text[512];
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                       static_cast<DWORD>(result), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::wstring_view line(text, length);
    line = line.substr(0, line.find_last_not_of(L"\r\n ") + 1);
    return line.empty() ? std::string(Describe(Automation::InvalidCall)) : Narrow(line);
}

/// What a host that looks at the thread's error object finds, where a call has no room for it.
void TellThread(const Error& error) {
    ComPtr<ICreateErrorInfo> made;
    ComPtr<IErrorInfo> info;
    if (FAILED(CreateErrorInfo(&made))) return;
    made->SetSource(Bstr(error.source()).get());
    made->SetDescription(Bstr(error.description()).get());
    if (SUCCEEDED(made->QueryInterface(IID_PPV_ARGS(&info)))) SetErrorInfo(0, info.Get());
}

}  // namespace

HRESULT FillExcepInfo(EXCEPINFO* info, const Error& error) {
    const auto number = static_cast<ULONG>(error.number());
    const HRESULT result = static_cast<HRESULT>(number < 0x10000 ? kAutomationResult | number : number);
    if (!info) {
        TellThread(error);
        return FAILED(result) ? result : E_FAIL;
    }
    *info = {};
    info->bstrSource = Bstr(error.source()).Detach();
    info->bstrDescription = Bstr(error.description()).Detach();
    info->scode = result;
    return DISP_E_EXCEPTION;
}

void RaiseFromCom(HRESULT result, EXCEPINFO& info) {
    if (result != DISP_E_EXCEPTION) {
        for (const KnownResult& known : kKnownResults) {
            if (known.result == result) Raise(known.error);
        }
        throw Error(static_cast<std::int32_t>(result), std::string(kLibraryName), TextOfResult(result));
    }
    if (info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
    auto number = static_cast<ULONG>(info.scode != 0 ? info.scode : info.wCode);
    if (number == 0) number = static_cast<ULONG>(result);  // an error without a number is one still
    if ((number & 0xFFFF0000) == kAutomationResult) number &= 0xFFFF;
    std::string source = TakeText(info.bstrSource);
    std::string description = TakeText(info.bstrDescription);
    SysFreeString(std::exchange(info.bstrHelpFile, nullptr));
    throw Error(static_cast<std::int32_t>(number), std::move(source), std::move(description));
}

}  // namespace qor::windows
