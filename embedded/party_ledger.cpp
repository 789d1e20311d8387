#include "embedded/party_ledger.h"

#include "embedded/narrow_bills.h"
#include "embedded/right_clause.h"
#include "platform/conversions.h"

namespace qor {

namespace {

/// The columns that decide whether a bill counts: of a bill, and of the consignment that it goes back to.
struct BillColumns {
    SqlText id, state, department, employee;
};
constexpr BillColumns kBill = {"b.FBillID", "b.FState", "b.FDeptID", "b.FEmpID"};
constexpr BillColumns kConsignment = {"r.FBillID", "r.FState", "r.FDeptID", "r.FEmpID"};

void AddBillConditions(Conditions& conditions, const BillColumns& columns, const LedgerQuery& query) {
    AddCheckState(conditions, columns.state, query.checkState);
    AddCodeRange(conditions, columns.department, item_class::kDepartment, query.departments.first,
                 query.departments.last);
    AddCodeRange(conditions, columns.employee, item_class::kEmployee, query.employees.first,
                 query.employees.last);
    for (const HeadFieldText& field : query.headFields) {
        const SqlText holds =
            field.somewhere ? SqlText("instr(lower(FText),lower(?))>0") : SqlText("FText=? COLLATE NOCASE");
        conditions.Add(
            {columns.id, " IN (SELECT FBillID FROM t_BillHeadField WHERE FIndex=? AND ", holds, ")"},
            {std::int64_t{field.index}, field.text});
    }
}

/// The consignments whose settlements raise only what they bill beyond the goods' worth.
Conditions CountedConsignments(const LedgerQuery& query) {
    Conditions conditions;
    AddBillConditions(conditions, kConsignment, query);
    return conditions;
}

bool IsWriteOff(BillKind kind) {
    return kind >= BillKind::AdvanceToReceivable && kind <= BillKind::PayableTransfer;
}

SideSigns CountedSigns(BillKind kind, PartySide side, const LedgerSwitches& switches) {
    constexpr SideSigns kRaises = {1, 0, 0, 0};
    const bool selling = side == PartySide::Customer;
    switch (kind) {
        case BillKind::Consignment:
            return selling && switches.consignments ? kRaises : SideSigns{};
        case BillKind::Estimate:
        case BillKind::EstimateReversal:
            return !selling && switches.estimates ? kRaises : SideSigns{};
        case BillKind::SaleRebate:
        case BillKind::PurchaseRebate:
            return switches.rebates ? SignsOf(kind, side) : SideSigns{};
        default:
            if (IsOtherClaim(kind) && !switches.others) return {};
            return IsWriteOff(kind) && !switches.writeOffs ? SideSigns{} : SignsOf(kind, side);
    }
}

}  // namespace

LedgerQuery LedgerQueryOf(PartySide side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    return {.side = side,
            .lastDay = filter.Day("EDate"),
            .checkState = filter.Number("CheckState"),
            .departments = {filter.Code("BDeptNumber"), filter.Code("EDeptNumber")},
            .employees = {filter.Code("BEmpNumber"), filter.Code("EEmpNumber")},
            .rights = ToText(dictionary.Get("DataRightWhere"))};
}

PartyLedger::PartyLedger(AccountSet& set, const LedgerQuery& query, SqlText more) {
    for (const BillKindRow& row : kBillKinds) {
        signs_[static_cast<std::size_t>(row.kind)] = CountedSigns(row.kind, query.side, query.switches);
    }
    ReadParties(set, query);
    if (!parties_.empty()) OpenRows(set, query, more);
}

void PartyLedger::ReadParties(AccountSet& set, const LedgerQuery& query) {
    const std::int32_t itemClass = PartyClassOf(query.side);
    Conditions conditions;
    conditions.Add({"i.FItemClassID=?"}, {std::int64_t{itemClass}});
    AddCodeRange(conditions, "i.FItemID", itemClass, query.parties.first, query.parties.last);
    if (query.among) AddItems(conditions, "i.FItemID", *query.among);
    AddRights(conditions, "i.FItemID", query.rightsAlias, query.rights);
    Statement found(set.database(), "SELECT i.FItemID, i.FDetail=1 AND i.FDeleted=0 FROM t_Item i WHERE " +
                                        conditions.Text() + " ORDER BY i.FNumber");
    conditions.BindTo(found);
    while (found.Step()) {
        places_.Put(found.Int(0), parties_.size());
        parties_.push_back({.id = found.Int(0), .current = found.Int(1) != 0});
    }
}

void PartyLedger::OpenRows(AccountSet& set, const LedgerQuery& query, SqlText more) {
    const bool selling = query.side == PartySide::Customer;
    const SqlText party = selling ? SqlText("b.FCustID") : SqlText("b.FSupplyID");
    Conditions conditions;
    AddDayRange(conditions, "b.FDate", std::nullopt, query.lastDay);
    AddBillConditions(conditions, kBill, query);
    const bool few = AreFewParties(set, query.side, parties_.size());
    if (few) {
        std::vector<std::int64_t> ids;
        for (const LedgerParty& row : parties_) {
            ids.push_back(row.id);
        }
        AddBillsOf(conditions, query.side, ids);
    }
    if (selling && query.switches.consignments)
        consignments_.emplace(set, conditions, CountedConsignments(query));
    rows_.emplace(set.database(), "SELECT b.FBillType, " + std::string(party.view()) +
                                      ", b.FToPartyID, b.FBillID, b.FDate, b.FAmount, b.FSettleAmount, "
                                      "b.FDiscount" +
                                      std::string(more.view()) + " FROM t_Bill b " +
                                      (few ? "" : "NOT INDEXED ") + "WHERE " + conditions.Text());
    conditions.BindTo(*rows_);
}

LedgerSums PartyLedger::SumsOf(const SideSigns& signs) const {
    const std::int64_t amount = rows_->Int(5), atOnce = rows_->Int(6), discount = rows_->Int(7);
    const std::int64_t raisedAlready = consignments_ ? consignments_->RaisedAlready(rows_->Int(3)) : 0;
    return {.raised = signs.raised * amount - raisedAlready,
            .settled = signs.settled * (amount + discount) + signs.raised * atOnce,
            .advance = signs.advance * amount};
}

bool PartyLedger::Next() {
    if (second_) {
        movement_ = *second_;
        second_.reset();
        return true;
    }
    while (rows_ && rows_->Step()) {
        const auto kind = static_cast<std::size_t>(rows_->Int(0));
        const SideSigns& signs = signs_[kind < kKinds ? kind : 0];
        if (!signs.Any()) continue;
        constexpr std::size_t kNowhere = PlaceById::kNowhere;
        const std::size_t own = places_.Of(rows_->Int(1));
        const std::size_t target = signs.target == 0 ? kNowhere : places_.Of(rows_->Int(2));
        if (own == kNowhere && target == kNowhere) continue;
        movement_ = {.party = 0,
                     .bill = rows_->Int(3),
                     .kind = static_cast<BillKind>(kind),
                     .day = rows_->Int(4),
                     .sums = {}};
        if (target != kNowhere) {
            second_ = movement_;
            second_->party = target;
            second_->sums.raised = signs.target * rows_->Int(5);
        }
        if (own == kNowhere) return Next();
        movement_.party = own;
        movement_.sums = SumsOf(signs);
        return true;
    }
    return false;
}

}  // namespace qor
