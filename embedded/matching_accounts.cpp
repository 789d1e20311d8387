#include "embedded/matching_accounts.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "embedded/right_clause.h"
#include "platform/conversions.h"

namespace qor {

namespace {

class AccountReader {
 public:
    AccountReader(AccountSet& set, const Dictionary& dictionary)
        : set_(set), dictionary_(dictionary), filter_(dictionary), firstDay_(filter_.Day("BDate")) {
        ReadLinks();
        ReadSide(PartySide::Customer);
        ReadSide(PartySide::Supplier);
    }

    std::vector<MatchedAccount> Shown() {
        const bool withoutBalance = filter_.Flag("chkNotShowBalZero");
        const bool withoutZeroBills = filter_.Flag("chkNotShowBillZero");
        std::erase_if(accounts_, [&](MatchedAccount& account) {
            JoinSides(account.bills);
            if (withoutZeroBills) {
                std::erase_if(account.bills, [](const MatchedBill& bill) { return bill.sums.AreZero(); });
            }
            MatchedSums closing = account.opening;
            closing += account.period;
            return (withoutBalance && closing.AreSettled()) || (withoutZeroBills && account.bills.empty());
        });
        return std::move(accounts_);
    }

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
        query.rights.clear();  // the links have seen to them
        if (selling) query.parties = {filter_.Code("BCustNumber"), filter_.Code("ECustNumber")};
        if (!selling) query.parties = {filter_.Code("BSupplyNumber"), filter_.Code("ESupplyNumber")};
        query.switches = {
            .others = filter_.Flag(selling ? "chkIncludeOtherReceive" : "chkIncludeOtherPay", true),
            .writeOffs = filter_.Flag("chkIncludeHX", true),
            .estimates = filter_.Flag("chkIncludeGJ")};
        return query;
    }

    void ReadSide(PartySide side) {
        if (accounts_.empty()) return;
        PartyLedger ledger(set_, QueryOf(side),
                           ", b.FDeptID, b.FEmpID, b.FBillNo, b.FVchNumber, b.FExplanation");
        while (ledger.Next()) {
            const Movement& movement = ledger.movement();
            const auto place = places_.find(ledger.parties()[movement.party].id);
            if (place == places_.end()) continue;
            MatchedAccount& account = accounts_[place->second];
            if (firstDay_ && movement.day < *firstDay_) {
                account.opening[side] += movement.sums;
                continue;
            }
            account.period[side] += movement.sums;
            constexpr int kMore = PartyLedger::kMore;
            const Statement& row = ledger.row();
            MatchedBill& bill =
                account.bills.emplace_back(MatchedBill{.day = movement.day,
                                                       .bill = movement.bill,
                                                       .kind = movement.kind,
                                                       .sums = {},
                                                       .department = row.Int(kMore),
                                                       .employee = row.Int(kMore + 1),
                                                       .number = row.Text(kMore + 2),
                                                       .voucher = texts_.Share(row.Text(kMore + 3)),
                                                       .explanation = texts_.Share(row.Text(kMore + 4))});
            bill.sums[side] = movement.sums;
        }
    }

    /// In order, each bill once: a set-off has come on both sides.
    static void JoinSides(std::vector<MatchedBill>& bills) {
        std::ranges::sort(bills, {}, [](const MatchedBill& bill) { return std::pair(bill.day, bill.bill); });
        std::vector<MatchedBill> joined;
        for (MatchedBill& bill : bills) {
            if (!joined.empty() && joined.back().bill == bill.bill) {
                joined.back().sums += bill.sums;
            } else {
                joined.push_back(std::move(bill));
            }
        }
        bills = std::move(joined);
    }

    AccountSet& set_;
    const Dictionary& dictionary_;
    const ReportFilter filter_;
    const std::optional<std::int64_t> firstDay_;
    SharedTexts texts_;
    std::vector<MatchedAccount> accounts_;
    std::unordered_map<std::int64_t, std::size_t> places_;  // of both sides' parties
};

}  // namespace

std::vector<MatchedAccount> ReadMatchedAccounts(AccountSet& set, const Dictionary& filter) {
    return AccountReader(set, filter).Shown();
}

}  // namespace qor
