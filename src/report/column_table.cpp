#include "report/column_table.h"

namespace qor {

void SetHeaderList(Process& process, Ref<Vector> list) { process.currentColumnList = std::move(list); }

void AddHeader(Process& process, std::string_view caption, std::string_view headSecond,
               std::string_view colType, std::string_view colName, std::int16_t visible,
               std::int16_t appMask) {
    const std::int32_t appType = process.bag.GetAppType();
    const Ref<Dictionary> column = process.platform.NewDictionary();
    column->Put("FColCaption", caption);
    column->Put("FHeadSecond", headSecond);
    column->Put("FColType", colType);
    column->Put("FColName", colName);
    column->Put("FVisible", std::int16_t{visible != 0});
    column->Put("FForceHide", (appMask & appType) != appType);
    if (!process.currentColumnList) process.currentColumnList = process.platform.NewVector();
    process.currentColumnList->Add(column);
}

}  // namespace qor
