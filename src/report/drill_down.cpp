#include "report/drill_down.h"

#include <string>

#include "platform/conversions.h"
#include "services/texts.h"

namespace qor {

namespace {

/// The value that has a dialog confirm at once what it was handed.
constexpr std::int32_t kConfirmWithoutShowing = -2;

}  // namespace

Ref<Object> RunDetailReport(Process& process, const ReportDescription& summary,
                            const Ref<Dictionary>& filter) {
    const std::int32_t detailNumber = summary.detailRptID;
    Ref<Object> detail =
        process.platform.CreateComponent(std::string(kLibraryName) + ".Rpt" + std::to_string(detailNumber));
    detail->Put("RptID", detailNumber);
    detail->Put("Filter", filter);
    detail->Put("ExtFirter", detailNumber);
    detail->Call("GetReportData");
    if (summary.family == Family::DialogKept) {
        // The dialog takes the filter over, so that the user finds it there when he filters again.
        ObjectIn(detail->Get("Property")).Put("Value", "ShowFilter", kConfirmWithoutShowing);
        detail->Call("ShowFilter");
    }

    Object& result = ObjectIn(detail->Get("Result"));
    if (ToBoolean(result.Get("Value", "OK"))) return detail;
    if (const std::string message = ToText(result.Get("Value", "Error")); !message.empty()) {
        throw Error(-1, std::string(ResText("信息提示")), message);
    }
    process.platform.windows().SetDefaultPointer();
    return {};
}

}  // namespace qor
