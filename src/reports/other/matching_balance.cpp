#include "reports/other/matching_balance.h"

#include "platform/conversions.h"
#include "reports/other/matching_balance_dialog.h"

namespace qor {

namespace {

// clang-format off
constexpr ColumnRow kBillColumns[] = {
    {"日期$",     "", "1", "FDate",         1, 7},
    {"单据类型$", "", "1", "FBillTypeName", 1, 7},
    {"单据编号$", "", "1", "FBillNo",       1, 7},
};

constexpr ColumnRow kGoodsColumns[] = {
    {"商品名称$",     "", "1", "FItemName",     1, 7},
    {"商品编码$",     "", "1", "FItemNumber",   1, 7},
    {"规格型号$",     "", "1", "FModel",        1, 7},
    {"基本单位$",     "", "1", "FUnitName",     0, 7},
    {"基本单位数量$", "", "2", "FQty",          0, 7},
    {"基本单位单价$", "", "4", "FPrice",        0, 7},
    {"单位$",         "", "1", "FShowUnitName", 1, 7},
    {"数量$",         "", "2", "FShowQty",      1, 7},
    {"单价$",         "", "4", "FShowPrice",    1, 7},
};

constexpr ColumnRow kBalanceColumns[] = {
    {"摘要$",     "", "1", "FExplanation",      1, 7},
    {"预收金额$", "", "6", "FRecPreAmount",     1, 7},
    {"应收金额$", "", "6", "FRecAmount",        1, 7},
    {"收款金额$", "", "6", "FRecRealAmount",    1, 7},
    {"预付金额$", "", "6", "FPayPreAmount",     1, 7},
    {"应付金额$", "", "6", "FPayAmount",        1, 7},
    {"付款金额$", "", "6", "FPayRealAmount",    1, 7},
    {"期末应收$", "", "6", "FRecBalanceAmount", 1, 7},
    {"期末应付$", "", "6", "FPayBalanceAmount", 1, 7},
    {"部门$",     "", "1", "FDeptName",         1, 7},
    {"业务员$",   "", "1", "FEmpName",          1, 7},
};

constexpr RightItem kBothSides[] = {
    {"t_Supplier",     "ts", "8"},
    {"t_Organization", "t1", "1"},
};
// clang-format on

constexpr std::string_view kMatchedParties = "select * from t_Organization where FMatchSupplyID<>0";

constexpr ReportDescription kMatchingBalance{
    .number = 10527,
    .name = "往来匹配余额表",
    .rptProperty = 1,
    .defaultIdentifier = 10527,
    .family = Family::DialogOnce,
    .begin = {"BDate", "BDate"},
    .end = {"EDate", "EDate"},
    .rightItems = kBothSides,
    .dataMember = "GetRpt10527Data",
};

class MatchingBalance final : public Report {
 public:
    explicit MatchingBalance(Process& process) : Report(process, kMatchingBalance) {}

 private:
    /// The dialog opens only where a customer is linked to a supplier; the user is told otherwise.
    bool BeforeDialog() override {
        if (HasMatchedParties()) return true;
        process_.platform.windows().MessageBox(ResText("没有客户供应商的匹配信息，请先在往来单位中进行设置!"),
                                               ResText("曜石提示"), kInformationIcon);
        return false;
    }

    Ref<FilterDialog> NewDialog() override { return MakeRef<MatchingBalanceDialog>(process_); }

    void BuildColumns() override {
        AddColumns(kBillColumns);
        // Vouchers are there only where the general ledger and the inventory run as one.
        const std::int16_t ledgerMask = process_.bag.IsGLAndICUnite() ? 7 : 0;
        AddColumn({"凭证字号$", "", "1", "FVchNumber", 1, ledgerMask});
        if (Val(ToText(FilterValue("ChkShowDetail"))) == 1) AddColumns(kGoodsColumns);
        AddColumns(kBalanceColumns);
    }

    bool HasMatchedParties() {
        Ref<Object> data = process_.platform.CreateComponent(kMatchingBalance.dataComponent);
        Value statement = kMatchedParties;
        const Value parties =
            data->Call("GetData", process_.session.GetPropsString(), Argument::ByRef(statement));
        data = nullptr;
        return !ToBoolean(ObjectIn(parties).Get("EOF"));
    }
};

}  // namespace

const ReportDescription& kRpt10527 = kMatchingBalance;

Ref<Report> MakeRpt10527(Process& process) { return MakeRef<MatchingBalance>(process); }

}  // namespace qor
