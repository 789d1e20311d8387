#include "embedded/income_expense_rows.h"

#include <string>
#include <vector>

#include "embedded/class_tree.h"
#include "embedded/item_texts.h"
#include "embedded/money.h"

namespace qor {

namespace {

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
    explicit RowsByClass(const ClassTree& tree) : classes_(tree.classes().size()) {
        for (const ClassTree::Class& itemClass : tree.classes()) {
            classes_[itemClass.rank].name = itemClass.name;
        }
    }
    void Add(const ClassTree::Class& itemClass, Row row) {
        classes_[itemClass.rank].rows.push_back(std::move(row));
        ++count_;
    }

    struct Class {
        Value name;
        std::vector<Row> rows;
    };
    std::vector<Class>& classes() { return classes_; }
    std::size_t count() const { return count_; }

 private:
    std::vector<Class> classes_;  // by code
    std::size_t count_ = 0;
};

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
    const ClassTree tree(set, side, filter);
    const Conditions conditions = CategoryBills(set, side, filter);
    // Lines of other classes are left out here: the bills come in the order of their index.
    Statement found(set.database(),
                    "SELECT e.FClassID, b.FDate, e.FAmount, e.FSettleAmount, " +
                        std::string(side.partyColumn.view()) +
                        ", b.FAcctID, b.FDeptID, b.FEmpID, b.FBillNo, e.FNote"
                        " FROM t_Bill b CROSS JOIN t_ClassEntry e ON e.FBillID=b.FBillID WHERE " +
                        conditions.Text() + " ORDER BY b.FDate, b.FBillNo, b.FBillID, e.FIndex");
    conditions.BindTo(found);
    ItemTexts items(set, ReportFilter(filter).WantsShortNumbers());
    SharedTexts notes;
    RowsByClass byClass(tree);
    const VisibleParties visible = VisibleOf(set, filter);
    while (found.Step()) {
        const std::size_t place = tree.PlaceOfTaken(found.Int(0));
        if (place == ClassTree::kNone || !visible.Has(found.Int(4))) continue;
        byClass.Add(tree.classes()[place], {.day = found.Int(1),
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
    return CategoryDetail(set, kIncomeSide, filter);
}

Ref<RecordSet> ExpenseDetail(AccountSet& set, const Dictionary& filter) {
    return CategoryDetail(set, kExpenseSide, filter);
}

}  // namespace qor
