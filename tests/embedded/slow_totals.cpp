#include "embedded/slow_totals.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace qor::test {

namespace {

/// The first parts of a code, up to a level.
std::string CutTo(const std::string& code, int level) {
    std::size_t end = 0;
    for (int i = 0; i < level; ++i) {
        end = code.find('.', i == 0 ? 0 : end + 1);
        if (end == std::string::npos) return code;
    }
    return code.substr(0, end);
}

int LevelOf(const std::string& code) { return 1 + static_cast<int>(std::ranges::count(code, '.')); }

bool StandsIn(const std::string& code, const std::string& category) {
    return code == category || code.starts_with(category + ".");
}

struct Amounts {
    std::int64_t amount = 0, settled = 0;
};

/// By party's code and name, and the class's code.
using Sums = std::map<std::tuple<std::string, std::string, std::string>, Amounts>;

class Totals {
 public:
    Totals(const SlowBooks& books, BillKind kind, BillKind otherKind, const AskedTotals& asked)
        : books_(books),
          kind_(kind),
          otherKind_(otherKind),
          classes_(kind == BillKind::Expense ? item_class::kExpense : item_class::kIncome),
          asked_(asked) {}

    std::vector<std::string> Rows() const {
        const Sums sums = Sum();
        std::vector<std::string> rows;
        for (auto here = sums.begin(); here != sums.end(); ++here) {
            const auto& [number, name, code] = here->first;
            const std::string party = number + "|" + name + "|";
            rows.push_back(party + LevelNames(code, asked_.lastLevel) + Ending(here->second, code, 0));
            const auto next = std::next(here);
            const bool partyEnds = next == sums.end() || std::get<0>(next->first) != number;
            for (int level = asked_.lastLevel - 1; level >= std::max(asked_.firstLevel, 1); --level) {
                const std::string category = CutTo(code, level);
                if (LevelOf(code) <= level) continue;
                if (!partyEnds && StandsIn(std::get<2>(next->first), category)) break;
                const Amounts total = Total(sums, [&](const auto& key) {
                    return std::get<0>(key) == std::get<0>(here->first) &&
                           StandsIn(std::get<2>(key), category);
                });
                rows.push_back(party + LevelNames(category, level) + TotalNames(level + 1, "小计") +
                               Ending(total, category, 1));
            }
            if (!partyEnds || !asked_.byParty) continue;
            const Amounts total =
                Total(sums, [&](const auto& key) { return std::get<0>(key) == std::get<0>(here->first); });
            rows.push_back(party + TotalNames(asked_.firstLevel, "小计") + Ending(total, "", 2));
        }
        if (sums.empty()) return rows;
        const std::string head = asked_.byParty ? "|合计|" + TotalNames(asked_.firstLevel, "")
                                                : "||" + TotalNames(asked_.firstLevel, "合计");
        rows.push_back(head + Ending(Total(sums, [](const auto&) { return true; }), "", 3));
        return rows;
    }

 private:
    /// The codes of the classes that carry bills, and of those that the filter takes.
    std::set<std::string> Codes(const PlainFilter* filter) const {
        std::set<std::string> all, details;
        for (const auto& [id, item] : books_.items) {
            if (item.itemClass != classes_) continue;
            if (!filter || (books_.Lies(id, filter->classes) && (filter->withDisabled || !item.disabled))) {
                details.insert(item.number);
            }
            all.insert(item.number);
        }
        std::erase_if(details, [&](const std::string& code) {
            return std::ranges::any_of(
                all, [&](const std::string& other) { return other.starts_with(code + "."); });
        });
        return details;
    }

    /// The class that a class's row is: cut to the last level, and no higher than the range allows.
    std::string RowOf(const std::set<std::string>& all, const std::set<std::string>& taken,
                      const std::string& code) const {
        for (int level = std::max(asked_.lastLevel, 1);; ++level) {
            const std::string row = CutTo(code, level);
            if (row == code) return code;
            const bool whole = std::ranges::all_of(all, [&](const std::string& other) {
                return !StandsIn(other, row) || taken.contains(other);
            });
            if (whole) return row;
        }
    }

    Sums Sum() const {
        Sums sums;
        const PlainFilter range{.classes = asked_.plain.classes, .withDisabled = true};
        const std::set<std::string> all = Codes(nullptr), taken = Codes(&range);
        std::map<std::string, std::string> rowOf;
        for (const std::string& code : Codes(&asked_.plain)) {
            rowOf[code] = RowOf(all, taken, code);
        }
        for (const BillKind kind : {kind_, otherKind_}) {
            if (kind == otherKind_ && !asked_.withOther) continue;
            for (const PlainLine* line : books_.Lines(kind, kind_, asked_.plain)) {
                const PlainBill& bill = *books_.BillOf(*line);
                const std::int64_t party = kind_ == BillKind::Expense ? bill.supplier : bill.customer;
                const PlainItem none, &item = party == 0 || !asked_.byParty ? none : books_.items.at(party);
                Amounts& row =
                    sums[{item.number, item.name, rowOf.at(books_.items.at(line->itemClass).number)}];
                row.amount += line->amount;
                row.settled += line->settled;
            }
        }
        if (!asked_.withIdle) return sums;
        std::set<std::string> known;
        for (const auto& [key, amounts] : sums) {
            known.insert(std::get<2>(key));
        }
        for (const auto& [code, row] : rowOf) {
            if (!known.contains(row)) sums[{"", "", row}];
        }
        return sums;
    }

    std::string NameOf(const std::string& code) const {
        for (const auto& [id, item] : books_.items) {
            if (item.itemClass == classes_ && item.number == code) return item.name;
        }
        return "?";
    }

    std::string LevelNames(const std::string& row, int lastLevel) const {
        std::string names;
        for (int level = asked_.firstLevel; level <= lastLevel; ++level) {
            std::string name;
            if (LevelOf(row) < level) {
                name = level == asked_.firstLevel ? NameOf(row) : "";
            } else if (level == lastLevel) {
                name = NameOf(row);
            } else if (level > 0) {
                name = NameOf(CutTo(row, level));
            }
            names += name + "|";
        }
        return names;
    }

    /// What a total says in the column of a level, and nothing in those up to the last.
    std::string TotalNames(int at, const std::string& says) const {
        std::string names;
        for (int level = at; level <= asked_.lastLevel; ++level) {
            names += (level == at ? says : "") + "|";
        }
        return names;
    }

    static std::string Ending(const Amounts& sums, const std::string& code, int sumSort) {
        return std::to_string(sums.amount - sums.settled) + "|" + std::to_string(sums.settled) + "|" +
               std::to_string(sums.amount) + "|" + code + "|" + std::to_string(sumSort) + "|";
    }

    template <class Takes>
    static Amounts Total(const Sums& sums, Takes&& takes) {
        Amounts total;
        for (const auto& [key, amounts] : sums) {
            if (!takes(key)) continue;
            total.amount += amounts.amount;
            total.settled += amounts.settled;
        }
        return total;
    }

    const SlowBooks& books_;
    const BillKind kind_, otherKind_;
    const std::int32_t classes_;
    const AskedTotals& asked_;
};

}  // namespace

std::vector<std::string> SlowTotals(const SlowBooks& books, BillKind kind, BillKind otherKind,
                                    const AskedTotals& asked) {
    return Totals(books, kind, otherKind, asked).Rows();
}

}  // namespace qor::test
