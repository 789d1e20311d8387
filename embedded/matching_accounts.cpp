#include "embedded/matching_accounts.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

#include "embedded/right_clause.h"
#include "platform/conversions.h"

namespace qor {

namespace {

/// Reads both sides of all accounts, dealt out by account.
class AccountReader {
 public:
    AccountReader(AccountSet& set, const Dictionary& dictionary, RowTexts& texts)
        : set_(set),
          dictionary_(dictionary),
          filter_(dictionary),
          firstDay_(filter_.Day("BDate")),
          texts_(texts) {
        ReadLinks();
        bills_ = RowsByAccount<MatchedBill>(accounts_.size());
        if (accounts_.empty()) return;
        ReadSide(PartySide::Customer);
        ReadSide(PartySide::Supplier);
        bills_.Deal([](const MatchedBill& bill) { return std::pair(bill.day, bill.bill); });
    }

    std::vector<MatchedAccount>& accounts() { return accounts_; }
    RowsByAccount<MatchedBill>& bills() { return bills_; }

 private:
    /// Which customer goes with which supplier. A link counts when the filter takes both its ends.
    void ReadLinks() {
        Conditions conditions;
        AddCodeRange(conditions, "o.FItemID", item_class::kCustomer, filter_.Code("BCustNumber"),
                     filter_.Code("ECustNumber"));
        AddCodeRange(conditions, "s.FItemID", item_class::kSupplier, filter_.Code("BSupplyNumber"),
                     filter_.Code("ESupplyNumber"));
        AddRights(conditions, {{"ts", "s.FItemID"}, {"t1", "o.FItemID"}},
                  ToText(dictionary_.Get("DataRightWhere")));
        Statement found(set_.database(),
                        "SELECT o.FItemID, s.FItemID FROM t_Organization o JOIN t_Supplier s ON "
                        "s.FItemID=o.FMatchSupplyID WHERE " +
                            conditions.Text() + " ORDER BY o.FNumber");
        conditions.BindTo(found);
        while (found.Step()) {
            const std::int64_t customer = found.Int(0), supplier = found.Int(1);
            const auto [place, isNew] = places_.try_emplace(supplier, accounts_.size());
            if (isNew) accounts_.push_back({.customer = customer, .supplier = supplier});
            places_.emplace(customer, place->second);
        }
    }

    LedgerQuery QueryOf(PartySide side) const {
        const bool selling = side == PartySide::Customer;
        LedgerQuery query = LedgerQueryOf(side, dictionary_);
        query.rights.clear();  // the links have seen to them, and to the ranges
        query.among.emplace();
        for (const auto& [party, account] : places_) {
            query.among->push_back(party);
        }
        query.switches = {
            .others = filter_.Flag(selling ? "chkIncludeOtherReceive" : "chkIncludeOtherPay", true),
            .writeOffs = filter_.Flag("chkIncludeHX", true),
            .estimates = filter_.Flag("chkIncludeGJ")};
        return query;
    }

    void ReadSide(PartySide side) {
        PartyLedger ledger(set_, QueryOf(side),
                           ", b.FDeptID, b.FEmpID, b.FBillNo, b.FVchNumber, b.FExplanation");
        std::vector<std::size_t> accountOf;  // by the ledger's places
        for (const LedgerParty& party : ledger.parties()) {
            accountOf.push_back(places_.at(party.id));
        }
        while (ledger.Next()) {
            const Movement& movement = ledger.movement();
            const std::size_t place = accountOf[movement.party];
            MatchedAccount& account = accounts_[place];
            if (firstDay_ && movement.day < *firstDay_) {
                account.opening[side] += movement.sums;
                continue;
            }
            account.period[side] += movement.sums;
            constexpr int kMore = PartyLedger::kMore;
            const Statement& row = ledger.row();
            MatchedBill bill{
                .day = movement.day,
                .bill = movement.bill,
                .kind = movement.kind,
                .sums = {},
                .department = row.Int(kMore),
                .employee = row.Int(kMore + 1),
                .texts = texts_.Add({row.Text(kMore + 2), row.Text(kMore + 3), row.Text(kMore + 4)})};
            bill.sums[side] = movement.sums;
            bills_.Add(place, bill);
        }
    }

    AccountSet& set_;
    const Dictionary& dictionary_;
    const ReportFilter filter_;
    const std::optional<std::int64_t> firstDay_;
    RowTexts& texts_;
    std::vector<MatchedAccount> accounts_;
    RowsByAccount<MatchedBill> bills_{0};
    std::unordered_map<std::int64_t, std::size_t> places_;  // of both sides' parties
};

/// Each bill once: a set-off has come on both sides. Answers those that are left.
std::span<MatchedBill> JoinSides(std::span<MatchedBill> bills) {
    std::size_t count = 0;
    for (const MatchedBill& bill : bills) {
        if (count > 0 && bills[count - 1].bill == bill.bill) {
            bills[count - 1].sums += bill.sums;
        } else {
            bills[count++] = bill;
        }
    }
    return bills.first(count);
}

std::span<MatchedBill> WithoutZeros(std::span<MatchedBill> bills) {
    const auto zeros =
        std::ranges::remove_if(bills, [](const MatchedBill& bill) { return bill.sums.AreZero(); });
    return bills.first(bills.size() - zeros.size());
}

}  // namespace

MatchedAccounts::MatchedAccounts(AccountSet& set, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    const bool withoutBalance = filter.Flag("chkNotShowBalZero");
    const bool withoutZeroBills = filter.Flag("chkNotShowBillZero");
    AccountReader reader(set, dictionary, texts_);
    bills_ = std::move(reader.bills());
    for (std::size_t i = 0; i < reader.accounts().size(); ++i) {
        MatchedAccount& account = reader.accounts()[i];
        account.bills = JoinSides(bills_.Of(i));
        if (withoutZeroBills) account.bills = WithoutZeros(account.bills);
        MatchedSums closing = account.opening;
        closing += account.period;
        const bool hidden =
            (withoutBalance && closing.AreSettled()) || (withoutZeroBills && account.bills.empty());
        if (!hidden) shown_.push_back(account);
    }
}

}  // namespace qor
