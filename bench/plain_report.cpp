#include "bench/plain_report.h"

namespace qor::bench {

namespace {

struct ColumnRow {
    const char* caption;
    const char* type;
    const char* field;
    short visible;
    int mask;
};

constexpr ColumnRow kColumns[] = {
    {"收入类别$", "1", "FName", 1, 7},         {"日期$", "0", "FDate", 1, 7},
    {"客户代码$", "1", "FCustNumber", 1, 7},   {"客户名称$", "1", "FCustName", 1, 7},
    {"结算账户$", "1", "FAcctName", 1, 7},     {"应收金额$", "6", "FReceiveAmount", 0, 6},
    {"收款结算$", "6", "FSettleAmount", 0, 7}, {"总金额$", "6", "FAmount", 1, 6},
    {"经手人代码$", "1", "FEmpNumber", 0, 7},  {"经手人$", "1", "FEmpName", 0, 7},
    {"部门代码$", "1", "FDeptNumber", 0, 7},   {"部门$", "1", "FDeptName", 0, 7},
    {"单据编号$", "1", "FBillNo", 1, 7},       {"备注$", "1", "FNote", 1, 7},
};

std::string RangeCaption(const std::string& label, const PlainRange& range) {
    if (range.begin.empty() && range.end.empty()) return label + "[全部]";
    return label + "从[" + range.begin + "]到[" + range.end + "]";
}

}  // namespace

std::vector<PlainColumn> PlainColumns(int appType) {
    std::vector<PlainColumn> columns;
    for (const ColumnRow& row : kColumns)
        columns.push_back(
            {row.caption, "", row.type, row.field, row.visible, (row.mask & appType) != appType});
    return columns;
}

PlainReport RunPlainReport(int appType) {
    PlainReport report;
    report.filter.beginDate = "2020-09-01";
    report.filter.endDate = "2020-09-15";
    report.filter.userID = 16;
    report.filter.longNumber = true;
    report.filter.dataRight = " (CharIndex('16',t1.FRightUserID)>0 OR ISNULL(t1.FItemID,0)=0) ";
    report.dates = "DtpBDate," + report.filter.beginDate + "|DtpEDate," + report.filter.endDate;
    report.captions = {{RangeCaption("收入类别", report.filter.type), 0},
                       {RangeCaption("客户代码", report.filter.customer), 1},
                       {RangeCaption("部门代码", report.filter.department), 2},
                       {RangeCaption("经手人代码", report.filter.employee), 3}};
    report.columns = PlainColumns(appType);
    return report;
}

}  // namespace qor::bench
