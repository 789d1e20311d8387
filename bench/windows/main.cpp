// qor_component_bench: what late-bound calls through the registered component cost, and a whole report run.
// `tools/bench windows` builds it, registers what it needs and runs it.
#include <cstdio>

#include "bench/windows/component_tables.h"
#include "bench/windows/host_call.h"
#include "bench/windows/quick_server.h"

namespace qor::bench {

ComPtr<IDispatch> CreateClass(const wchar_t* name) {
    CLSID id;
    ComPtr<IDispatch> report;
    if (FAILED(CLSIDFromProgID(name, &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&report)))) {
        std::printf("the component is not registered\n");
        std::fflush(stdout);
        ExitProcess(1);
    }
    return report;
}

}  // namespace qor::bench

int main() {
    CoInitialize(nullptr);
    qor::bench::ServeQuickly();
    qor::bench::PrintRuns();
    std::printf("\n");
    qor::bench::PrintCalls();
    std::fflush(stdout);
    ExitProcess(0);
}
