#include "embedded/account_totals.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "embedded/account_side.h"
#include "embedded/item_texts.h"
#include "embedded/item_tree.h"
#include "embedded/money.h"

namespace qor {

namespace {

enum SumSort : std::int32_t { kRow = 0, kGroupTotal = 1, kLevelTotal = 2, kGrandTotal = 3 };

/// What is grouped by besides the party.
struct Grouping {
    std::string_view key;  // as GroupBy names it
    std::int32_t items;
    SqlText column;
    const char* numberField;
    const char* nameField;
};

constexpr Grouping kGroupings[] = {
    {"FDeptNumber", item_class::kDepartment, ", b.FDeptID", "FDeptNumber", "FDeptName"},
    {"FEmpNumber", item_class::kEmployee, ", b.FEmpID", "FEmpNumber", "FEmpName"},
};

/// How the rows are laid out. Without levels there is no grouping either: its columns would be missing.
struct Layout {
    bool byLevel = false, onlyTotals = false;
    LevelRange levels{};
    const Grouping* grouping = nullptr;  // nothing: by party alone

    explicit Layout(const ReportFilter& filter) : byLevel(filter.Flag("MultiLevel")) {
        if (!byLevel) return;
        onlyTotals = filter.Flag("ShowTotalRow");
        levels = filter.Levels("MultiLevelBegin", "MultiLevelEnd");
        const std::string key = GroupKey(filter);
        for (const Grouping& row : kGroupings) {
            if (row.key == key && levels.first > 0) grouping = &row;
        }
    }

    /// GroupBy, or else the code behind the caption of SumBy.
    static std::string GroupKey(const ReportFilter& filter) {
        const std::string key = filter.Code("GroupBy");
        if (!key.empty()) return key;
        const std::string sumBy = filter.Code("SumBy");
        return sumBy.substr(sumBy.rfind('|') + 1);
    }
};

struct Sums {
    LedgerSums opening, current;
    bool moved = false;  // in the period, though the sums may cancel each other out

    std::int64_t Closing() const { return opening.Balance() + current.Balance(); }
    Sums& operator+=(const Sums& other) {
        opening += other.opening;
        current += other.current;
        moved |= other.moved;
        return *this;
    }
};

/// One row: a party, of one group where the summary is grouped.
struct Cell {
    std::size_t node;   // what the levels are of, by its place in the tree; kNone for none
    std::size_t party;  // its place in the ledger
    Sums sums{};
};

/// An amount of a row and its field; null for the field that each side names itself.
struct AmountColumn {
    const char* field;
    const char* AccountSide::*sideField;
    bool isOfAdvances;
    std::int64_t (*of)(const Sums& sums);
};

constexpr std::int64_t Supplied(const LedgerSums& sums) { return sums.raised - sums.settled; }

constexpr AmountColumn kAmounts[] = {
    // clang-format off
    {"FInitPreAmount",  nullptr, true, [](const Sums& s) { return s.opening.advance; }},
    {"FInitSuppAmount", nullptr, true, [](const Sums& s) { return Supplied(s.opening); }},
    {"FInitAmount",     nullptr, false, [](const Sums& s) { return s.opening.Balance(); }},
    {nullptr, &AccountSide::raisedField, false, [](const Sums& s) { return s.current.raised; }},
    {"FCurPreAmount",   nullptr, true, [](const Sums& s) { return s.current.advance; }},
    {"FCurSuppAmount",  nullptr, true, [](const Sums& s) { return s.current.settled; }},
    {nullptr, &AccountSide::settledField, false, [](const Sums& s) { return s.current.settled + s.current.advance; }},
    {"FEndPreAmount",   nullptr, true, [](const Sums& s) { return s.opening.advance + s.current.advance; }},
    {"FEndSuppAmount",  nullptr, true, [](const Sums& s) { return Supplied(s.opening) + Supplied(s.current); }},
    {"FBalanceAmount",  nullptr, false, [](const Sums& s) { return s.Closing(); }},
    // clang-format on
};

/// Which rows the filter does not want to see.
struct HiddenRows {
    bool withoutBalance, withoutMovement, withoutBoth;

    explicit HiddenRows(const ReportFilter& filter)
        : withoutBalance(filter.Flag("NotShowBalZero")),
          withoutMovement(filter.Flag("OccurNotZero")),
          withoutBoth(filter.Flag("NotShowZero")) {}

    bool Hold(const Sums& sums) const {
        const bool noBalance = sums.Closing() == 0, noMovement = !sums.moved;
        return (withoutBalance && noBalance) || (withoutMovement && noMovement) ||
               (withoutBoth && noBalance && noMovement);
    }
};

/// The rows of one summary, summed from the ledger.
class Summary {
 public:
    Summary(AccountSet& set, const AccountSide& side, const Dictionary& dictionary)
        : layout(ReportFilter(dictionary)), side_(side), firstDay_(ReportFilter(dictionary).Day("BDate")) {
        if (layout.byLevel) tree.emplace(set, layout.grouping ? layout.grouping->items : side.parties);
        PartyLedger ledger(set, AccountQuery(side, dictionary),
                           layout.grouping ? layout.grouping->column : SqlText(""));
        parties = ledger.parties();
        layout.grouping ? SumByGroup(ledger) : SumByParty(ledger);
        const HiddenRows hidden{ReportFilter(dictionary)};
        std::erase_if(cells, [&](const Cell& cell) { return hidden.Hold(cell.sums); });
        if (tree) Sort();
    }

    const Layout layout;
    std::optional<ItemTree> tree;
    std::vector<LedgerParty> parties;
    std::vector<Cell> cells;  // in the order of the rows

 private:
    void Add(Sums& sums, const Movement& movement) const {
        const bool before = firstDay_ && movement.day < *firstDay_;
        (before ? sums.opening : sums.current) += movement.sums;
        sums.moved |= !before && !movement.sums.AreZero();
    }

    /// Every party that may be chosen has a row, and every other one that has an amount.
    void SumByParty(PartyLedger& ledger) {
        cells.reserve(parties.size());
        for (std::size_t party = 0; party < parties.size(); ++party) {
            cells.push_back({tree ? tree->PlaceOf(parties[party].id) : ItemTree::kNone, party});
        }
        while (ledger.Next()) {
            Add(cells[ledger.movement().party].sums, ledger.movement());
        }
        std::erase_if(cells, [&](const Cell& cell) {
            return !parties[cell.party].current && cell.sums.opening.AreZero() && cell.sums.current.AreZero();
        });
    }

    /// A group has a row for each party that it had a bill with.
    void SumByGroup(PartyLedger& ledger) {
        std::unordered_map<std::size_t, std::unordered_map<std::size_t, Sums>> sums;
        while (ledger.Next()) {
            const std::size_t group = tree->PlaceOf(ledger.row().Int(PartyLedger::kMore));
            Add(sums[group][ledger.movement().party], ledger.movement());
        }
        for (const auto& [group, byParty] : sums) {
            for (const auto& [party, amounts] : byParty) {
                cells.push_back({group, party, amounts});
            }
        }
    }

    /// In the order of the tree, what has no place in it first; within one group by code of the party.
    void Sort() {
        std::ranges::sort(cells, {}, [](const Cell& cell) {
            return std::tuple(cell.node != ItemTree::kNone, cell.node, cell.party);
        });
    }

    const AccountSide& side_;
    std::optional<std::int64_t> firstDay_;
};

/// Writes the rows and, behind those that they cover, the totals.
class SummaryWriter {
 public:
    SummaryWriter(const AccountSide& side, bool withAdvances, const Summary& summary, ItemTexts& items)
        : side_(side),
          withAdvances_(withAdvances),
          summary_(summary),
          layout_(summary.layout),
          items_(items) {
        std::vector<std::string> fields;
        for (std::int32_t level = layout_.levels.first; layout_.byLevel && level <= layout_.levels.last;
             ++level) {
            fields.push_back("FItemLevel0" + std::to_string(level) + "Name");
        }
        levels_ = fields.size();
        if (layout_.grouping) {
            fields.insert(fields.end(), {layout_.grouping->numberField, layout_.grouping->nameField});
        }
        fields.insert(fields.end(), {side.idField, side.numberField, side.nameField});
        for (const AmountColumn& column : kAmounts) {
            if (Shows(column)) fields.push_back(column.field ? column.field : side.*column.sideField);
        }
        fields.emplace_back("FSumSort");
        set_ = MakeRef<ColumnarRecordSet>(std::move(fields));
    }

    Ref<RecordSet> Write() {
        const std::span<const Cell> cells = summary_.cells;
        if (cells.empty()) return set_;
        const Sums all = WriteLevel(cells, layout_.levels.first);
        WriteTotal({.level = layout_.levels.first, .text = "合计"}, all, kGrandTotal);
        return set_;
    }

 private:
    /// What stands in the text columns of a total: the categories down to `level`, and `text` behind them.
    struct TotalTexts {
        std::size_t node = ItemTree::kNone;
        std::int32_t level;  // the first one that the total does not name
        Value text;
        bool ofGroup = false;  // the total of a department or employee, named behind the categories
    };

    bool Shows(const AmountColumn& column) const { return withAdvances_ || !column.isOfAdvances; }

    /// The category of this level that the item belongs to; kNone for none.
    std::size_t CategoryAt(std::size_t node, std::int32_t level) const {
        const std::size_t at = node == ItemTree::kNone ? node : summary_.tree->At(node, level);
        return at != ItemTree::kNone && summary_.tree->nodes()[at].detail ? ItemTree::kNone : at;
    }

    template <class KeyOf>
    static std::size_t CountAlike(std::span<const Cell> cells, KeyOf&& keyOf) {
        const auto key = keyOf(cells.front());
        const auto end = std::ranges::find_if(cells, [&](const Cell& cell) { return keyOf(cell) != key; });
        return static_cast<std::size_t>(end - cells.begin());
    }

    /// The rows, with the totals of the categories from `level` on.
    Sums WriteLevel(std::span<const Cell> cells, std::int32_t level) {
        if (!layout_.byLevel || level > layout_.levels.last) return WriteGroups(cells);
        Sums all;
        while (!cells.empty()) {
            const std::size_t category = CategoryAt(cells.front().node, level);
            const std::size_t count =
                CountAlike(cells, [&](const Cell& cell) { return CategoryAt(cell.node, level); });
            const Sums sums = WriteLevel(cells.first(count), level + 1);
            if (category != ItemTree::kNone) {
                WriteTotal({.node = category, .level = level + 1, .text = "小计"}, sums, kLevelTotal);
            }
            all += sums;
            cells = cells.subspan(count);
        }
        return all;
    }

    Sums WriteGroups(std::span<const Cell> cells) {
        Sums all;
        while (!cells.empty()) {
            const std::size_t node = cells.front().node;
            const std::size_t count = layout_.grouping
                                          ? CountAlike(cells, [](const Cell& cell) { return cell.node; })
                                          : cells.size();
            Sums sums;
            for (const Cell& cell : cells.first(count)) {
                WriteRow(cell);
                sums += cell.sums;
            }
            if (layout_.grouping) {
                WriteTotal({.node = node, .level = layout_.levels.last + 1, .text = "小计", .ofGroup = true},
                           sums, kGroupTotal);
            }
            all += sums;
            cells = cells.subspan(count);
        }
        return all;
    }

    void WriteRow(const Cell& cell) {
        if (layout_.onlyTotals) return;
        const std::int64_t id = summary_.parties[cell.party].id;
        const ItemTexts::Texts& party = items_.Of(id);
        Begin();
        AddCategories(cell.node, layout_.levels.last + 1, blank_);
        if (layout_.grouping) AddGroup(cell.node);
        AddCell(static_cast<std::int32_t>(id));
        AddCell(party.number);
        AddCell(party.name);
        AddAmounts(cell.sums, kRow);
    }

    void WriteTotal(const TotalTexts& texts, const Sums& sums, SumSort sort) {
        Begin();
        const bool named = AddCategories(texts.node, texts.level, texts.text);
        Value rest = named ? blank_ : texts.text;
        if (texts.ofGroup) {
            AddGroup(texts.node);
        } else if (layout_.grouping) {
            AddCell(blank_);
            AddCell(std::exchange(rest, blank_));
        }
        AddCell(std::int32_t{0});
        AddCell(blank_);
        AddCell(rest);
        AddAmounts(sums, sort);
    }

    /// The names above `end`, and `text` in the column of `end` itself; whether there is such a column.
    bool AddCategories(std::size_t node, std::int32_t end, const Value& text) {
        for (std::size_t i = 0; i < levels_; ++i) {
            const std::int32_t level = layout_.levels.first + static_cast<std::int32_t>(i);
            const std::size_t category = level < end ? CategoryAt(node, level) : ItemTree::kNone;
            if (level == end) {
                AddCell(text);
            } else {
                AddCell(category == ItemTree::kNone ? blank_ : summary_.tree->nodes()[category].name);
            }
        }
        return levels_ > 0 && end <= layout_.levels.last;
    }

    void AddGroup(std::size_t node) {
        const bool none = node == ItemTree::kNone;
        AddCell(none ? blank_ : summary_.tree->nodes()[node].number);
        AddCell(none ? blank_ : summary_.tree->nodes()[node].name);
    }

    void AddAmounts(const Sums& sums, SumSort sort) {
        for (const AmountColumn& column : kAmounts) {
            if (Shows(column)) AddCell(Yuan(column.of(sums)));
        }
        AddCell(std::int32_t{sort});
    }

    void Begin() { column_ = 0; }
    void AddCell(Value value) { set_->AddCell(column_++, std::move(value)); }

    const AccountSide& side_;
    const bool withAdvances_;
    const Summary& summary_;
    const Layout& layout_;
    ItemTexts& items_;
    std::size_t levels_ = 0;
    std::size_t column_ = 0;
    Ref<ColumnarRecordSet> set_;
    const Value blank_ = "";
};

Ref<RecordSet> Summarize(AccountSet& set, const AccountSide& side, bool withAdvances,
                         const Dictionary& filter) {
    const Summary summary(set, side, filter);
    ItemTexts items(set, false);
    return SummaryWriter(side, withAdvances, summary, items).Write();
}

}  // namespace

Ref<RecordSet> ReceivableSummary(AccountSet& set, const Dictionary& filter) {
    return Summarize(set, kReceivableSide, false, filter);
}

Ref<RecordSet> PayableSummary(AccountSet& set, const Dictionary& filter) {
    return Summarize(set, kPayableSide, false, filter);
}

Ref<RecordSet> ReceivableAdvanceSummary(AccountSet& set, const Dictionary& filter) {
    return Summarize(set, kReceivableSide, true, filter);
}

Ref<RecordSet> PayableAdvanceSummary(AccountSet& set, const Dictionary& filter) {
    return Summarize(set, kPayableSide, true, filter);
}

}  // namespace qor
