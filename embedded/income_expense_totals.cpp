#include "embedded/income_expense_totals.h"

#include <algorithm>
#include <span>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "embedded/class_tree.h"
#include "embedded/code_ranks.h"
#include "embedded/item_texts.h"
#include "embedded/money.h"

namespace qor {

namespace {

enum SumSort : std::int32_t { kRow = 0, kClassTotal = 1, kPartyTotal = 2, kGrandTotal = 3 };

struct Sums {
    std::int64_t amount = 0, settled = 0;

    Sums& operator+=(const Sums& other) {
        amount += other.amount;
        settled += other.settled;
        return *this;
    }
};

/// The class under which each detail class is summed: the highest one, not above `level`, that the range
/// holds as a whole. By places; kNone for what the filter does not take.
std::vector<std::size_t> SummedUnder(const ClassTree& tree, std::int32_t level) {
    const auto& classes = tree.classes();
    std::vector<std::size_t> under(classes.size(), ClassTree::kNone);
    for (std::size_t place = 0; place < classes.size(); ++place) {
        if (!classes[place].taken) continue;
        std::size_t& chosen = under[place] = place;
        for (std::size_t above = classes[chosen].parent;
             above != ClassTree::kNone && classes[above].level >= level && classes[above].inRange;
             above = classes[chosen].parent) {
            chosen = above;
        }
    }
    return under;
}

/// One row: a class of a party.
struct Cell {
    std::int64_t party;     // 0 for none, and for all where the summary is not by party
    std::size_t itemClass;  // its place in the tree
    Sums sums;
};

std::vector<Cell> SumLines(AccountSet& set, const CategorySide& side, const Dictionary& filter,
                           const ClassTree& tree, const std::vector<std::size_t>& under) {
    const bool byParty = ReportFilter(filter).Flag(side.groupKey);
    const Conditions conditions = CategoryBills(set, side, filter);
    Statement found(set.database(),
                    "SELECT e.FClassID, e.FAmount, e.FSettleAmount, " + std::string(side.partyColumn.view()) +
                        " FROM t_Bill b CROSS JOIN t_ClassEntry e ON e.FBillID=b.FBillID WHERE " +
                        conditions.Text());
    conditions.BindTo(found);
    const VisibleParties visible = VisibleOf(set, filter);
    std::unordered_map<std::int64_t, std::unordered_map<std::size_t, Sums>> sums;
    while (found.Step()) {
        const std::size_t place = tree.PlaceOfTaken(found.Int(0));
        const std::int64_t party = found.Int(3);
        if (place == ClassTree::kNone || !visible.Has(party)) continue;
        sums[byParty ? party : 0][under[place]] += {.amount = found.Int(1), .settled = found.Int(2)};
    }
    std::vector<Cell> cells;
    for (const auto& [party, byClass] : sums) {
        for (const auto& [itemClass, amounts] : byClass) {
            cells.push_back({party, itemClass, amounts});
        }
    }
    return cells;
}

/// Classes in which nothing happened: once each, without a party.
void AddIdleClasses(const std::vector<std::size_t>& under, std::vector<Cell>& cells) {
    std::vector<bool> known(under.size());
    for (const Cell& cell : cells) {
        known[cell.itemClass] = true;
    }
    for (const std::size_t place : under) {
        if (place == ClassTree::kNone || known[place]) continue;
        known[place] = true;
        cells.push_back({0, place, {}});
    }
}

/// By code of the party, then in the order of the classes.
void Sort(std::vector<Cell>& cells, const CodeRanks& parties) {
    std::ranges::sort(cells, {}, [&](const Cell& cell) {
        return std::tuple(parties.Of(cell.party), cell.party, cell.itemClass);
    });
}

/// Writes the rows and, behind those that they cover, the totals.
class SummaryWriter {
 public:
    SummaryWriter(const CategorySide& side, const ClassTree& tree, LevelRange levels, ItemTexts& items)
        : tree_(tree), levels_(levels), items_(items), set_(MakeSet(side, levels)) {}

    Ref<RecordSet> WriteByParty(std::span<const Cell> cells) {
        Sums all;
        while (!cells.empty()) {
            const std::int64_t party = cells.front().party;
            const std::size_t count = CountLeading(cells, [&](const Cell& c) { return c.party == party; });
            const ItemTexts::Texts& texts = items_.Of(party);
            const Sums sums = WriteClasses(cells.first(count), TopLevel());
            const auto name = [&](std::int32_t level) { return level == levels_.first ? subtotal_ : blank_; };
            Add(texts.number, texts.name, name, sums, blank_, kPartyTotal);
            all += sums;
            cells = cells.subspan(count);
        }
        if (set_->RowCount() > 0) {
            Add(
                blank_, total_, [&](std::int32_t) { return blank_; }, all, blank_, kGrandTotal);
        }
        return set_;
    }

    Ref<RecordSet> WriteAll(std::span<const Cell> cells) {
        const Sums all = WriteClasses(cells, TopLevel());
        const auto name = [&](std::int32_t level) { return level == levels_.first ? total_ : blank_; };
        if (!cells.empty()) Add(blank_, blank_, name, all, blank_, kGrandTotal);
        return set_;
    }

 private:
    static Ref<ColumnarRecordSet> MakeSet(const CategorySide& side, LevelRange levels) {
        std::vector<std::string> fields = {side.partyNumberField, side.partyNameField};
        for (std::int32_t level = levels.first; level <= levels.last; ++level) {
            fields.push_back("FTypeName" + std::to_string(level));
        }
        for (const char* field : {"FReceiveAmount", "FSettleAmount", "FAmount", "FTypeNumber", "FSumSort"}) {
            fields.emplace_back(field);
        }
        return MakeRef<ColumnarRecordSet>(std::move(fields));
    }

    std::int32_t TopLevel() const { return std::max(levels_.first, 1); }
    const ClassTree::Class& ClassAt(std::size_t place) const { return tree_.classes()[place]; }

    template <class Test>
    static std::size_t CountLeading(std::span<const Cell> cells, Test&& test) {
        return static_cast<std::size_t>(std::ranges::find_if_not(cells, test) - cells.begin());
    }

    /// The rows of one party, and the totals of the classes from `level` down to the one above the rows' own.
    Sums WriteClasses(std::span<const Cell> cells, std::int32_t level) {
        Sums all;
        while (!cells.empty()) {
            const Cell& cell = cells.front();
            const std::size_t above =
                level < levels_.last ? tree_.At(cell.itemClass, level) : ClassTree::kNone;
            const bool isRow = above == ClassTree::kNone || above == cell.itemClass;
            const std::size_t count = isRow ? 1 : CountLeading(cells, [&](const Cell& c) {
                return tree_.At(c.itemClass, level) == above;
            });
            all += isRow ? WriteRow(cell) : WriteClass(cells.first(count), above);
            cells = cells.subspan(count);
        }
        return all;
    }

    const Sums& WriteRow(const Cell& cell) {
        const ItemTexts::Texts& party = items_.Of(cell.party);
        const auto name = [&](std::int32_t level) { return LevelName(cell.itemClass, level); };
        Add(party.number, party.name, name, cell.sums, ClassAt(cell.itemClass).number, kRow);
        return cell.sums;
    }

    Sums WriteClass(std::span<const Cell> cells, std::size_t itemClass) {
        const ClassTree::Class& total = ClassAt(itemClass);
        const Sums sums = WriteClasses(cells, total.level + 1);
        const ItemTexts::Texts& party = items_.Of(cells.front().party);
        const auto name = [&](std::int32_t level) {
            if (level > total.level) return level == total.level + 1 ? subtotal_ : blank_;
            return LevelName(itemClass, level);
        };
        Add(party.number, party.name, name, sums, total.number, kClassTotal);
        return sums;
    }

    /// What a row says in the column of a level: the class of that level that it belongs to. The last column
    /// holds the row's own class, and so does the first one for a class that ends above it.
    Value LevelName(std::size_t itemClass, std::int32_t level) const {
        const ClassTree::Class& own = ClassAt(itemClass);
        if (own.level < level) return level == levels_.first ? own.name : blank_;
        if (level == levels_.last) return own.name;
        const std::size_t above = tree_.At(itemClass, level);
        return above == ClassTree::kNone ? blank_ : ClassAt(above).name;
    }

    template <class NameOf>
    void Add(const Value& partyNumber, const Value& partyName, NameOf&& nameOf, const Sums& sums,
             const Value& typeNumber, SumSort sort) {
        std::size_t column = 0;
        const auto add = [&](Value value) { set_->AddCell(column++, std::move(value)); };
        add(partyNumber);
        add(partyName);
        for (std::int32_t level = levels_.first; level <= levels_.last; ++level) {
            add(nameOf(level));
        }
        add(Yuan(sums.amount - sums.settled));
        add(Yuan(sums.settled));
        add(Yuan(sums.amount));
        add(typeNumber);
        add(std::int32_t{sort});
    }

    const ClassTree& tree_;
    const LevelRange levels_;
    ItemTexts& items_;
    Ref<ColumnarRecordSet> set_;
    const Value subtotal_ = "小计", total_ = "合计", blank_ = "";
};

Ref<RecordSet> CategorySummary(AccountSet& set, const CategorySide& side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    const LevelRange levels = filter.Levels("BLevel", "ELevel");
    const ClassTree tree(set, side, dictionary);
    const std::vector<std::size_t> under = SummedUnder(tree, levels.last);
    std::vector<Cell> cells = SumLines(set, side, dictionary, tree, under);
    if (!filter.Flag("chkOccurNotZero")) AddIdleClasses(under, cells);
    ItemTexts items(set, false);
    Sort(cells, CodeRanks(set, side.parties));
    SummaryWriter writer(side, tree, levels, items);
    return filter.Flag(side.groupKey) ? writer.WriteByParty(cells) : writer.WriteAll(cells);
}

}  // namespace

Ref<RecordSet> IncomeSummary(AccountSet& set, const Dictionary& filter) {
    return CategorySummary(set, kIncomeSide, filter);
}

Ref<RecordSet> ExpenseSummary(AccountSet& set, const Dictionary& filter) {
    return CategorySummary(set, kExpenseSide, filter);
}

}  // namespace qor
