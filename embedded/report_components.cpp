#include "embedded/report_components.h"

#include "embedded/account_rows.h"
#include "embedded/account_totals.h"
#include "embedded/ageing_rows.h"
#include "embedded/cash_rows.h"
#include "embedded/connection.h"
#include "embedded/credit_warnings.h"
#include "embedded/income_expense_rows.h"
#include "embedded/income_expense_totals.h"
#include "embedded/matching_rows.h"
#include "embedded/money_movements.h"
#include "embedded/settlement_lists.h"
#include "embedded/statement_rows.h"

namespace qor {

namespace {

using ReportFunction = Ref<RecordSet> (*)(AccountSet& set, const Dictionary& filter);

/// Computes a report from the filter, the second argument. The filter stays what it was.
template <ReportFunction Compute>
Value Answer(Object& self, Arguments a) {
    const Ref<Dictionary> filter = As<Dictionary>(*a[1]);
    if (!filter) Raise(Automation::ObjectNotSet);
    return Compute(ServerOf(self).accountSet, *filter);
}

constexpr Parameter kProps{"PropsString", ParameterType::Text};
constexpr Parameter kFilter{"Filter", ParameterType::Any, true};

constexpr Member ReportMember(std::string_view name, Value (*invoke)(Object&, Arguments)) {
    return {
        .name = name, .invoke = invoke, .result = ParameterType::Object, .parameters = {{kProps, kFilter}}};
}

/// The statement of account hands two more record sets back where it is asked for pages.
template <PartySide Side>
Value AnswerStatement(Object& self, Arguments a) {
    const Ref<Dictionary> filter = As<Dictionary>(*a[1]);
    if (!filter) Raise(Automation::ObjectNotSet);
    const StatementAnswer answer = StatementOfAccount(ServerOf(self).accountSet, Side, *filter);
    if (answer.pages) {
        *a[2] = answer.rowBreaks;
        *a[3] = answer.pages;
    }
    return answer.rows;
}

template <PartySide Side>
constexpr Member StatementMember(std::string_view name) {
    Member member = ReportMember(name, AnswerStatement<Side>);
    member.parameters[2] = {"RowBreakRs", ParameterType::Any, true};
    member.parameters[3] = {"MutilPageRs", ParameterType::Any, true};
    return member;
}

constexpr Member kData[] = {
    ReportMember("GetRpt10501Data", Answer<MoneyMovements>),
    ReportMember("GetRpt10501DataRollUp", Answer<AccountMovements>),
    ReportMember("GetRpt10502Data", Answer<ReceivableDetail>),
    ReportMember("GetRpt10503Data", Answer<ReceivableSummary>),
    ReportMember("GetRpt10504Data", Answer<PayableDetail>),
    ReportMember("GetRpt10505Data", Answer<PayableSummary>),
    StatementMember<PartySide::Customer>("GetRpt10506DataByCust"),
    StatementMember<PartySide::Supplier>("GetRpt10506DataBySupply"),
    ReportMember("GetRpt10507Data", Answer<CustomerCreditWarnings>),
    ReportMember("GetRpt10508Data", Answer<SupplierCreditWarnings>),
    ReportMember("GetRpt10521Data", Answer<IncomeSummary>),
    ReportMember("GetRpt10522Data", Answer<IncomeDetail>),
    ReportMember("GetRpt10523Data", Answer<ExpenseSummary>),
    ReportMember("GetRpt10524Data", Answer<ExpenseDetail>),
    ReportMember("GetRpt10527Data", Answer<MatchingBalance>),
    ReportMember("GetRpt10528Data", Answer<CashJournal>),
    ReportMember("GetRpt10529Data", Answer<CashLedger>),
    ReportMember("GetRpt10531Data", Answer<ReceivableAdvanceSummary>),
    ReportMember("GetRpt10532Data", Answer<PayableAdvanceSummary>),
    {.name = "GetItemMaxLevel",
     .invoke = [](Object& self, Arguments a) -> Value {
         return ServerOf(self).accountSet.DeepestLevel(a[1]->int32());
     },
     .result = ParameterType::Int32,
     .parameters = {{kProps, {"ItemClass", ParameterType::Int32}}}},
    {.name = "GetData",
     .invoke = [](Object& self, Arguments a) -> Value {
         return ExecuteStatement(ServerOf(self).accountSet, a[1]->text());
     },
     .result = ParameterType::Object,
     .parameters = {{kProps, {"Statement", ParameterType::Text, true}}}},
};

constexpr Member kData10525[] = {ReportMember("GetRptData", Answer<ReceiptList>)};
constexpr Member kData10526[] = {ReportMember("GetRptData", Answer<PaymentList>)};
constexpr Member kData10530[] = {ReportMember("GetRpt10530Data", Answer<Ageing>)};

}  // namespace

const std::span<const Member> kDataMembers = kData;
const std::span<const Member> kData10525Members = kData10525;
const std::span<const Member> kData10526Members = kData10526;
const std::span<const Member> kData10530Members = kData10530;

}  // namespace qor
