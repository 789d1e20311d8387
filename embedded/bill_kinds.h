// The kinds of bills and what each does to the books. One row a kind: the account set stores this table as
// t_BillType, so that statements and code read the same signs.
#pragma once

#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>

namespace qor {

/// Numbers as the account set stores them in FBillType; they never change their meaning.
enum class BillKind : std::int32_t {
    Sale = 1,
    SaleReturn = 2,
    Purchase = 3,
    PurchaseReturn = 4,
    Receipt = 5,
    AdvanceReceipt = 6,
    Payment = 7,
    AdvancePayment = 8,
    OtherReceivable = 9,
    OtherPayable = 10,
    OtherIncome = 11,
    Expense = 12,
    SaleRebate = 13,
    PurchaseRebate = 14,
    Consignment = 15,
    ConsignmentSale = 16,
    AdvanceToReceivable = 17,
    AdvanceToPayable = 18,
    ReceivableToPayable = 19,
    ReceivableTransfer = 20,
    PayableTransfer = 21,
    BankTransfer = 22,
    Estimate = 23,
    EstimateReversal = 24,
    OpeningReceivable = 25,
    OpeningPayable = 26,
};

/// FState. The first two are what a report's check state selects; a void bill is in no report.
enum class BillState : std::int32_t { Audited = 0, NotAudited = 1, Void = 2 };

/// What a bill does, as factors of its FAmount. Returns and reversals carry negative amounts themselves. Of a
/// kind that raises a receivable or payable, FSettleAmount was paid at once on FAcctID: it is received or
/// paid besides, and `cash` tells its direction; of the others `cash` is the direction of FAmount. Of other
/// receivables and payables the cash reports show what was paid at once on request alone: they have no
/// `cash`.
struct BillKindRow {
    BillKind kind;
    std::string_view prefix;  // of the bill number
    std::string_view name;    // as reports show it
    std::int8_t receivable;   // raises what the customer owes
    std::int8_t received;     // settles what the customer owes
    std::int8_t advanceIn;    // raises what the customer has paid in advance
    std::int8_t payable;      // the same towards the supplier
    std::int8_t paid;
    std::int8_t advanceOut;
    std::int8_t target;  // raises what FToPartyID owes or is owed
    std::int8_t cash;    // +1 into, -1 out of FAcctID; a bank transfer goes on into FToAcctID
};

inline constexpr BillKindRow kBillKinds[] = {
    // clang-format off
    {BillKind::Sale,                "XS", "销售单",           1, 0, 0,  0, 0, 0,  0,  1},
    {BillKind::SaleReturn,          "XT", "销售退货单",       1, 0, 0,  0, 0, 0,  0,  1},
    {BillKind::Purchase,            "GH", "购货单",           0, 0, 0,  1, 0, 0,  0, -1},
    {BillKind::PurchaseReturn,      "GT", "购货退货单",       0, 0, 0,  1, 0, 0,  0, -1},
    {BillKind::Receipt,             "SK", "收款单",           0, 1, 0,  0, 0, 0,  0,  1},
    {BillKind::AdvanceReceipt,      "YS", "预收款单",         0, 0, 1,  0, 0, 0,  0,  1},
    {BillKind::Payment,             "FK", "付款单",           0, 0, 0,  0, 1, 0,  0, -1},
    {BillKind::AdvancePayment,      "YF", "预付款单",         0, 0, 0,  0, 0, 1,  0, -1},
    {BillKind::OtherReceivable,     "QS", "其他应收单",       1, 0, 0,  0, 0, 0,  0,  0},
    {BillKind::OtherPayable,        "QF", "其他应付单",       0, 0, 0,  1, 0, 0,  0,  0},
    {BillKind::OtherIncome,         "SR", "其他收入单",       1, 0, 0,  0, 0, 0,  0,  1},
    {BillKind::Expense,             "FY", "费用支出单",       0, 0, 0,  1, 0, 0,  0, -1},
    {BillKind::SaleRebate,          "XF", "销售返利单",      -1, 0, 0,  0, 0, 0,  0, -1},
    {BillKind::PurchaseRebate,      "CF", "采购返利单",       0, 0, 0, -1, 0, 0,  0,  1},
    {BillKind::Consignment,         "WT", "委托代销发货单",   0, 0, 0,  0, 0, 0,  0,  0},
    {BillKind::ConsignmentSale,     "WJ", "委托代销结算单",   1, 0, 0,  0, 0, 0,  0,  1},
    {BillKind::AdvanceToReceivable, "HA", "核销单-预收冲应收", 0, 1, -1, 0, 0, 0,  0,  0},
    {BillKind::AdvanceToPayable,    "HB", "核销单-预付冲应付", 0, 0, 0,  0, 1, -1, 0,  0},
    {BillKind::ReceivableToPayable, "HC", "核销单-应收冲应付", 0, 1, 0,  0, 1, 0,  0,  0},
    {BillKind::ReceivableTransfer,  "HD", "核销单-应收转应收", 0, 1, 0,  0, 0, 0,  1,  0},
    {BillKind::PayableTransfer,     "HE", "核销单-应付转应付", 0, 0, 0,  0, 1, 0,  1,  0},
    {BillKind::BankTransfer,        "YH", "银行存取款单",     0, 0, 0,  0, 0, 0,  0, -1},
    {BillKind::Estimate,            "GJ", "估价入库单",       0, 0, 0,  0, 0, 0,  0,  0},
    {BillKind::EstimateReversal,    "GC", "估价冲回单",       0, 0, 0,  0, 0, 0,  0,  0},
    {BillKind::OpeningReceivable,   "QC", "期初应收单",       1, 0, 0,  0, 0, 0,  0,  0},
    {BillKind::OpeningPayable,      "QD", "期初应付单",       0, 0, 0,  1, 0, 0,  0,  0},
    // clang-format on
};

constexpr const BillKindRow& RowOf(BillKind kind) { return kBillKinds[static_cast<std::size_t>(kind) - 1]; }

/// Whether a number that was read is one of them.
constexpr bool IsBillKind(std::int64_t number) {
    return number >= 1 && number <= std::int64_t{std::size(kBillKinds)};
}

static_assert(
    [] {
        for (const BillKindRow& row : kBillKinds) {
            if (&RowOf(row.kind) != &row) return false;
        }
        return true;
    }(),
    "a kind's number is its place in the table");

/// The classes of base data, as lookups and t_Item.FItemClassID number them.
namespace item_class {
inline constexpr std::int32_t kCustomer = 1;
inline constexpr std::int32_t kDepartment = 2;
inline constexpr std::int32_t kEmployee = 3;
inline constexpr std::int32_t kGoods = 4;
inline constexpr std::int32_t kUnit = 7;
inline constexpr std::int32_t kSupplier = 8;
inline constexpr std::int32_t kCurrency = 12;
inline constexpr std::int32_t kAccount = 36;
inline constexpr std::int32_t kSettlementType = 130;
inline constexpr std::int32_t kIncome = 1121;
inline constexpr std::int32_t kExpense = 1122;
}  // namespace item_class

struct ItemClassRow {
    std::int32_t number;
    std::string_view code;
    std::string_view name;
};

inline constexpr ItemClassRow kItemClasses[] = {
    {item_class::kCustomer, "KH", "客户"},           {item_class::kDepartment, "BM", "部门"},
    {item_class::kEmployee, "ZY", "职员"},           {item_class::kGoods, "SP", "商品"},
    {item_class::kUnit, "DW", "计量单位"},           {item_class::kSupplier, "GYS", "供应商"},
    {item_class::kCurrency, "BB", "币别"},           {item_class::kAccount, "ZH", "结算账户"},
    {item_class::kSettlementType, "JS", "结算方式"}, {item_class::kIncome, "SRLB", "收入类别"},
    {item_class::kExpense, "ZCLB", "支出类别"},
};

}  // namespace qor
