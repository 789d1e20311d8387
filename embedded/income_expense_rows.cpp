#include "embedded/income_expense_rows.h"

#include <string>
#include <unordered_map>
#include <vector>

#include "embedded/bill_kinds.h"
#include "embedded/item_texts.h"
#include "embedded/report_conditions.h"
#include "embedded/right_clause.h"
#include "platform/conversions.h"

namespace qor {

namespace {

/// What differs between the two sides.
struct CategorySide {
    BillKind kind;
    std::int32_t classes;
    std::int32_t parties;
    SqlText partyColumn;
    const char* partyNumberField;
    const char* partyNameField;
    std::string_view firstPartyKey;
    std::string_view lastPartyKey;
};

constexpr CategorySide kIncome = {
    .kind = BillKind::OtherIncome,
    .classes = item_class::kIncome,
    .parties = item_class::kCustomer,
    .partyColumn = "b.FCustID",
    .partyNumberField = "FCustNumber",
    .partyNameField = "FCustName",
    .firstPartyKey = "BCustNumber",
    .lastPartyKey = "ECustNumber",
};

constexpr CategorySide kExpense = {
    .kind = BillKind::Expense,
    .classes = item_class::kExpense,
    .parties = item_class::kSupplier,
    .partyColumn = "b.FSupplyID",
    .partyNumberField = "FSupplyNumber",
    .partyNameField = "FSupplyName",
    .firstPartyKey = "BSupplyNumber",
    .lastPartyKey = "ESupplyNumber",
};

Conditions ConditionsOf(const CategorySide& side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    Conditions conditions;
    conditions.Add({"b.FBillType=?"}, {static_cast<std::int64_t>(side.kind)});
    AddDayRange(conditions, "b.FDate", filter.Day("DtpBDate"), filter.Day("DtpEDate"));
    AddCheckState(conditions, "b.FState", filter.Number("CheckState"));
    AddCodeRange(conditions, "e.FClassID", side.classes, filter.Code("BTypeIn"), filter.Code("ETypeIn"));
    AddCodeRange(conditions, side.partyColumn, side.parties, filter.Code(side.firstPartyKey),
                 filter.Code(side.lastPartyKey));
    AddCodeRange(conditions, "b.FDeptID", item_class::kDepartment, filter.Code("BDeptNumber"),
                 filter.Code("EDeptNumber"));
    AddCodeRange(conditions, "b.FEmpID", item_class::kEmployee, filter.Code("BEmpNumber"),
                 filter.Code("EEmpNumber"));
    if (!filter.Flag("chkForbiddenTypeInclude")) {
        conditions.Add({"e.FClassID IN (SELECT FItemID FROM t_Item WHERE FItemClassID=? AND FDeleted=0)"},
                       {std::int64_t{side.classes}});
    }
    AddRights(conditions, side.partyColumn, "t1", ToText(dictionary.Get("DataRightWhere")));
    return conditions;
}

struct Row {
    std::int64_t day;
    std::int64_t amount, settled;
    const ItemTexts::Texts* party;
    const ItemTexts::Texts* account;
    const ItemTexts::Texts* department;
    const ItemTexts::Texts* employee;
    Value number, note;
};

/// Rows dealt out by class. They arrive by date and number, and each class keeps them so: no sorting.
class RowsByClass {
 public:
    RowsByClass(AccountSet& set, std::int32_t itemClass) {
        Statement classes(set.database(),
                          "SELECT FItemID, FName FROM t_Item WHERE FItemClassID=? ORDER BY FNumber");
        classes.With(itemClass);
        while (classes.Step()) {
            place_[classes.Int(0)] = classes_.size();
            classes_.push_back({classes.Text(1), {}});
        }
    }
    void Add(std::int64_t itemClass, Row row) {
        classes_[place_.at(itemClass)].rows.push_back(std::move(row));
        ++count_;
    }

    struct Class {
        Value name;
        std::vector<Row> rows;
    };
    std::vector<Class>& classes() { return classes_; }
    std::size_t count() const { return count_; }

 private:
    std::unordered_map<std::int64_t, std::size_t> place_;
    std::vector<Class> classes_;
    std::size_t count_ = 0;
};

Value Yuan(std::int64_t cents) { return static_cast<double>(cents) / 100; }

Ref<RecordSet> MakeRecordSet(const CategorySide& side, RowsByClass& byClass) {
    auto set = MakeRef<ColumnarRecordSet>(
        std::vector<std::string>{"FName", "FDate", side.partyNumberField, side.partyNameField, "FAcctName",
                                 "FReceiveAmount", "FSettleAmount", "FAmount", "FEmpNumber", "FEmpName",
                                 "FDeptNumber", "FDeptName", "FBillNo", "FNote"});
    set->Reserve(byClass.count());
    for (RowsByClass::Class& itemClass : byClass.classes()) {
        for (Row& row : itemClass.rows) {
            std::size_t column = 0;
            const auto add = [&](Value value) { set->AddCell(column++, std::move(value)); };
            add(itemClass.name);
            add(Date{static_cast<double>(row.day)});
            add(row.party->number);
            add(row.party->name);
            add(row.account->name);
            add(Yuan(row.amount - row.settled));
            add(Yuan(row.settled));
            add(Yuan(row.amount));
            add(row.employee->number);
            add(row.employee->name);
            add(row.department->number);
            add(row.department->name);
            add(std::move(row.number));
            add(std::move(row.note));
        }
    }
    return set;
}

Ref<RecordSet> CategoryDetail(AccountSet& set, const CategorySide& side, const Dictionary& filter) {
    const Conditions conditions = ConditionsOf(side, filter);
    // The class's condition is no way into the lines: the bills come in the order of their index.
    Statement found(set.database(),
                    "SELECT e.FClassID, b.FDate, e.FAmount, e.FSettleAmount, " +
                        std::string(side.partyColumn.view()) +
                        ", b.FAcctID, b.FDeptID, b.FEmpID, b.FBillNo, e.FNote"
                        " FROM t_Bill b CROSS JOIN t_ClassEntry e ON e.FBillID=b.FBillID WHERE " +
                        conditions.Text() + " ORDER BY b.FDate, b.FBillNo, b.FBillID, e.FIndex");
    conditions.BindTo(found);
    const bool shortNumbers = filter.Lookup("bLongNumber") && !ReportFilter(filter).Flag("bLongNumber");
    ItemTexts items(set, shortNumbers);
    SharedTexts notes;
    RowsByClass byClass(set, side.classes);
    while (found.Step()) {
        byClass.Add(found.Int(0), {.day = found.Int(1),
                                   .amount = found.Int(2),
                                   .settled = found.Int(3),
                                   .party = &items.Of(found.Int(4)),
                                   .account = &items.Of(found.Int(5)),
                                   .department = &items.Of(found.Int(6)),
                                   .employee = &items.Of(found.Int(7)),
                                   .number = found.Text(8),
                                   .note = notes.Share(found.Text(9))});
    }
    return MakeRecordSet(side, byClass);
}

}  // namespace

Ref<RecordSet> IncomeDetail(AccountSet& set, const Dictionary& filter) {
    return CategoryDetail(set, kIncome, filter);
}

Ref<RecordSet> ExpenseDetail(AccountSet& set, const Dictionary& filter) {
    return CategoryDetail(set, kExpense, filter);
}

}  // namespace qor
