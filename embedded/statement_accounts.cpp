#include "embedded/statement_accounts.h"

#include <optional>
#include <tuple>

#include "embedded/report_conditions.h"

namespace qor {

namespace {

constexpr SqlText kColumns =
    ", b.FDiscount, b.FDeptID, b.FEmpID, b.FBillNo, b.FVchNumber, b.FExplanation, b.FInvoiceNo";

LedgerQuery QueryOf(PartySide side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    LedgerQuery query = LedgerQueryOf(side, dictionary);
    query.parties = {filter.Code("BItemNumber"), filter.Code("EItemNumber")};
    query.switches.writeOffs = filter.Flag("ShowCheckBill", true);
    query.switches.estimates = filter.Flag("IncludeGJ");
    return query;
}

StatementSums SumsOf(const Movement& movement, std::int64_t discount, PartySide side) {
    const std::int64_t letGo = SignsOf(movement.kind, side).settled * discount;
    return {.raised = movement.sums.raised,
            .real = movement.sums.settled + movement.sums.advance - letGo,
            .discount = letGo};
}

/// The bill of the movement that the ledger stands on.
StatementBill BillOf(const PartyLedger& ledger, const StatementSums& sums, RowTexts& texts) {
    constexpr int kDepartment = PartyLedger::kMore + 1;  // behind the discount
    const auto& row = ledger.row();
    return {.day = ledger.movement().day,
            .bill = ledger.movement().bill,
            .kind = ledger.movement().kind,
            .sums = sums,
            .department = row.Int(kDepartment),
            .employee = row.Int(kDepartment + 1),
            .texts = texts.Add({row.Text(kDepartment + 2), row.Text(kDepartment + 3),
                                row.Text(kDepartment + 4), row.Text(kDepartment + 5)})};
}

/// Which accounts and bills are left out.
class ZeroSwitches {
 public:
    explicit ZeroSwitches(const ReportFilter& filter)
        : balance_(filter.Flag("NotShowBalZero")),
          bill_(filter.Flag("NotShowBillZero")),
          both_(filter.Flag("NotShowZero")) {}

    bool Show(const StatementSums& bill) const { return !bill_ || !bill.AreZero(); }
    bool Show(const StatementAccount& account, bool moved) const {
        if (account.End() != 0) return true;
        return !balance_ && !(both_ && !moved);
    }

 private:
    bool balance_, bill_, both_;
};

}  // namespace

StatementSums& StatementSums::operator+=(const StatementSums& other) {
    raised += other.raised;
    real += other.real;
    discount += other.discount;
    return *this;
}

StatementAccounts::StatementAccounts(AccountSet& set, PartySide side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    const ZeroSwitches zeros(filter);
    const std::optional<std::int64_t> firstDay = filter.Day("BDate");
    PartyLedger ledger(set, QueryOf(side, dictionary), kColumns);
    std::vector<StatementAccount> accounts;
    std::vector<char> known, moved;  // has bills at all; has amounts in the period
    for (const LedgerParty& party : ledger.parties()) {
        accounts.push_back({.party = party.id});
        known.push_back(party.current);
    }
    moved.resize(accounts.size());
    bills_ = RowsByAccount<StatementBill>(accounts.size());
    while (ledger.Next()) {
        const Movement& movement = ledger.movement();
        StatementAccount& account = accounts[movement.party];
        known[movement.party] = true;
        if (firstDay && movement.day < *firstDay) {
            account.begin += movement.sums.Balance();
            continue;
        }
        const StatementSums sums = SumsOf(movement, ledger.row().Int(PartyLedger::kMore), side);
        account.period += sums;
        moved[movement.party] |= !sums.AreZero();
        if (zeros.Show(sums)) bills_.Add(movement.party, BillOf(ledger, sums, texts_));
    }
    bills_.Deal([](const StatementBill& bill) { return std::tuple(bill.day, bill.bill); });
    for (std::size_t i = 0; i < accounts.size(); ++i) {
        if (!known[i] || !zeros.Show(accounts[i], moved[i] != 0)) continue;
        accounts[i].bills = bills_.Of(i);
        shown_.push_back(accounts[i]);
    }
}

}  // namespace qor
