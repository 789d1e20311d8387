#include "reports/other/statement.h"

#include "platform/conversions.h"
#include "reports/other/statement_dialog.h"

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
    {"辅助属性$",     "", "1", "FAuxName",      1, 7},
    {"批号$",         "", "1", "FBatchNo",      1, 7},
    {"基本单位$",     "", "1", "FUnitName",     0, 7},
    {"基本单位数量$", "", "2", "FQty",          0, 7},
    {"基本单位单价$", "", "4", "FPrice",        0, 7},
    {"单位$",         "", "1", "FShowUnitName", 1, 7},
    {"数量$",         "", "2", "FShowQty",      1, 7},
    {"单价$",         "", "4", "FShowPrice",    1, 7},
};

constexpr ColumnRow kExplanationColumn = {"摘要$", "", "1", "FExplanation", 1, 7};

// The server answers both sides on the same field names.
constexpr ColumnRow kCustomerAmounts[] = {
    {"应收金额$",  "",         "6", "FReceivableAmount", 1, 7},
    {"收款金额+|", "实收金额", "6", "FRealAmount",       1, 7},
    {"",           "折扣额",   "6", "FDiscountAmount",   1, 7},
    {"期末应收$",  "",         "6", "FBalanceAmount",    1, 7},
};

constexpr ColumnRow kSupplierAmounts[] = {
    {"应付金额$",  "",         "6", "FReceivableAmount", 1, 7},
    {"付款金额+|", "实付金额", "6", "FRealAmount",       1, 7},
    {"",           "折扣额",   "6", "FDiscountAmount",   1, 7},
    {"期末应付$",  "",         "6", "FBalanceAmount",    1, 7},
};

constexpr ColumnRow kTrailingColumns[] = {
    {"部门$",     "", "1", "FDeptName",  1, 7},
    {"业务员$",   "", "1", "FEmpName",   1, 7},
    {"发票号码$", "", "1", "FInvoiceNo", 1, 7},
};

constexpr RightItem kCustomers[] = {{"t_organization", "t1", "1"}};
constexpr RightItem kSuppliers[] = {{"t_Supplier", "t1", "8"}};
// clang-format on

constexpr ReportDescription kReport{
    .number = 10506,
    .name = "往来对账单",
    .rptProperty = 0,
    .defaultIdentifier = 10506,
    .family = Family::DialogKept,
    .hasPagedData = true,
    .begin = {"BDate", "BDate"},
    .end = {"EDate", "EDate"},
    .dataMember = "GetRpt10506DataByCust",
};

class Statement final : public Report {
 public:
    explicit Statement(Process& process) : Report(process, kReport) {}

    void GetMutilPageData() override;
    Ref<RecordSet> MutilPageRs() const override { return m_MutilPageRs; }
    Ref<RecordSet> RowBreakRs() const override { return m_RowBreakRs; }

 private:
    Ref<FilterDialog> NewDialog() override { return MakeRef<StatementDialog>(process_); }
    void TakeConfirmedFilter() override;
    void BuildColumns() override;
    std::span<const RightItem> RightItems() const override;
    std::string_view DataMember() const override;
    Ref<RecordSet> CallDataComponent(Object& component) override;

    double NumberIn(std::string_view key) const { return Val(ToText(FilterValue(key))); }
    bool IsOfCustomers() const { return NumberIn("ByItem") == 0; }

    Ref<RecordSet> m_MutilPageRs;
    Ref<RecordSet> m_RowBreakRs;
};

void Statement::GetMutilPageData() {
    const Ref<Report> kept(this);
    IgnoringErrors([this] {
        if (IsConfirmed()) FetchData(false);
    });
}

void Statement::TakeConfirmedFilter() {
    m_Property->Put("PrintByPg", m_Filter->GetOr("PrintByPg", std::int16_t{0}));
}

void Statement::BuildColumns() {
    AddColumns(kBillColumns);
    // Without a common general ledger there are no vouchers to name.
    const std::int16_t voucherMask = process_.bag.IsGLAndICUnite() ? 7 : 0;
    AddColumn({"凭证字号$", "", "1", "FVchNumber", 1, voucherMask});
    if (NumberIn("ShowDetail") == 1) AddColumns(kGoodsColumns);
    AddColumn(kExplanationColumn);
    if (IsOfCustomers()) {
        AddColumns(kCustomerAmounts);
    } else {
        AddColumns(kSupplierAmounts);
    }
    AddColumns(kTrailingColumns);
}

std::span<const RightItem> Statement::RightItems() const {
    if (IsOfCustomers()) return kCustomers;
    return kSuppliers;
}

std::string_view Statement::DataMember() const {
    return IsOfCustomers() ? kReport.dataMember : "GetRpt10506DataBySupply";
}

Ref<RecordSet> Statement::CallDataComponent(Object& component) {
    Value filterReference = m_Filter, rowBreaks = m_RowBreakRs, pages = m_MutilPageRs;
    const Value answer =
        component.Call(DataMember(), process_.session.GetPropsString(), Argument::ByRef(filterReference),
                       Argument::ByRef(rowBreaks), Argument::ByRef(pages));
    m_Filter = As<Dictionary>(filterReference);
    m_RowBreakRs = As<RecordSet>(rowBreaks);
    m_MutilPageRs = As<RecordSet>(pages);
    const Value paged = FilterValue("PrintByPg");
    if (!paged.IsNull() && ToDouble(paged) == 0) {  // Null equals nothing
        m_MutilPageRs = {};
        m_RowBreakRs = {};
    }
    return As<RecordSet>(answer);
}

}  // namespace

const ReportDescription& kRpt10506 = kReport;

Ref<Report> MakeRpt10506(Process& process) { return MakeRef<Statement>(process); }

}  // namespace qor
