// What one late-bound call costs: with the member's id at hand, and with the id asked for by name before
// each.
#include <cstdio>
#include <functional>

#include "bench/windows/component_tables.h"
#include "bench/windows/host_call.h"
#include "bench/windows/quick_server.h"
#include "tests/windows/host/bare_dispatch.h"
#include "windows/bridge.h"

namespace qor::bench {

namespace {

constexpr int kTimes = 1000;

/// Answers every call with nothing.
class EmptyObject final : public host::BareDispatch {
 public:
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override { return *ids = 1, S_OK; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return S_OK;
    }
};

class CallTable {
 public:
    CallTable() { empty_.Attach(new EmptyObject); }

    void PrintHead() const {
        std::printf(
            "| Call | Time | Empty object | Ratio | Ids by name too | Empty object | Ratio |\n"
            "|---|---|---|---|---|---|---|\n");
    }

    void Print(const char* what, const Call& call) const {
        Call ours = call, bare = call;
        bare.object = empty_.Get();
        PrintRow(
            what, [&](bool named) { (named ? ours.Find() : ours)(); },
            [&](bool named) { (named ? bare.Find() : bare)(); });
    }

    /// A field of `fields` by its name, and then its value.
    void PrintField(const char* what, IDispatch* fields, VARIANT name) const {
        Call item{fields, L"Item", kRead, {name}}, value{nullptr, L"Value"};
        const Variant field = item.Find()();
        value.object = (*field).pdispVal;
        value.Find();
        Call bareItem = item, bareValue = value;
        bareItem.object = bareValue.object = empty_.Get();
        PrintRow(
            what,
            [&](bool named) {
                const Variant found = (named ? item.Find() : item)();
                value.object = (*found).pdispVal;
                (named ? value.Find() : value)();
            },
            [&](bool named) {
                (named ? bareItem.Find() : bareItem)();
                (named ? bareValue.Find() : bareValue)();
            });
    }

 private:
    using Step = std::function<void(bool named)>;

    static void PrintRow(const char* what, const Step& ours, const Step& bare) {
        std::printf("| %s |", what);
        for (const bool named : {false, true}) {
            ours(true);
            bare(true);
            const double through = BestNanoseconds(kTimes, [&] { ours(named); });
            const double beside = BestNanoseconds(kTimes, [&] { bare(named); });
            std::printf(" %.0f ns | %.1f ns | %.1f |", through, beside, through / beside);
        }
        std::printf("\n");
    }

    ComPtr<IDispatch> empty_;
};

}  // namespace

void PrintCalls() {
    const Variant filter = windows::ToVariant(QuickFilter()), number = windows::ToVariant(std::int32_t{7}),
                  ok = windows::ToVariant("OK"), amount = windows::ToVariant("FAmount");
    const ComPtr<IDispatch> report = CreateClass(L"QORArApRpt.Rpt10522");
    const ComPtr<IDispatch> pass = CreateClass(L"QORArApRpt.clsPass");
    Call{report.Get(), L"Filter", DISPATCH_PROPERTYPUT, {*filter}}.Find()();
    Call{report.Get(), L"Refresh", DISPATCH_METHOD}.Find()();
    const Variant result = Read(report.Get(), L"Result"), rows = Read(report.Get(), L"Rs");
    const Variant fields = Read((*rows).pdispVal, L"Fields");
    IDispatch* dictionary = (*result).pdispVal;

    const CallTable table;
    table.PrintHead();
    table.Print("property get, `RptID`", {report.Get(), L"RptID"});
    table.Print("property get, an object: `Result`", {report.Get(), L"Result"});
    table.Print("property put, `RptID`", {report.Get(), L"RptID", DISPATCH_PROPERTYPUT, {*number}});
    table.Print("method, `clsPass.SetBarValue`", {pass.Get(), L"SetBarValue", DISPATCH_METHOD, {*number}});
    table.Print("dictionary entry, get", {dictionary, L"Value", kRead, {*ok}});
    table.Print("dictionary entry, put", {dictionary, L"Value", DISPATCH_PROPERTYPUT, {*number, *ok}});
    table.PrintField("record-set field: its object and its value", (*fields).pdispVal, *amount);
}

}  // namespace qor::bench
