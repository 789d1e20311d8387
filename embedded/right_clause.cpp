#include "embedded/right_clause.h"

#include <algorithm>

#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kMostDigits = 5;  // a user's number is 16 bits wide

/// Reads a text from its beginning to its end; whatever is not as it must be is refused.
class ClauseReader {
 public:
    explicit ClauseReader(std::string_view clause) : rest_(clause) {}

    bool AtEnd() const { return rest_.empty(); }
    void Expect(std::string_view text) {
        if (!rest_.starts_with(text)) Refuse();
        rest_.remove_prefix(text.size());
    }
    std::string UserNumber() {
        const std::size_t sign = rest_.starts_with('-') ? 1 : 0;
        const std::size_t digits = std::min(rest_.find_first_not_of(kDigits, sign), rest_.size()) - sign;
        if (digits == 0 || digits > kMostDigits) Refuse();
        return Take(sign + digits);
    }
    std::string Alias() {
        const auto isLetterOrDigit = [](char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        };
        const auto end = std::ranges::find_if_not(rest_, isLetterOrDigit);
        if (end == rest_.begin()) Refuse();
        return Take(static_cast<std::size_t>(end - rest_.begin()));
    }

 private:
    [[noreturn]] static void Refuse() { RaiseAccountSetError("无法识别的数据权限条件"); }
    std::string Take(std::size_t count) {
        std::string taken(rest_.substr(0, count));
        rest_.remove_prefix(count);
        return taken;
    }

    std::string_view rest_;
};

}  // namespace

std::vector<RightCondition> ParseRightClause(std::string_view clause) {
    std::vector<RightCondition> conditions;
    if (Trimmed(clause).empty()) return conditions;
    ClauseReader reader(clause);
    for (;;) {
        RightCondition condition;
        reader.Expect(" (CharIndex('");
        condition.user = reader.UserNumber();
        reader.Expect("',");
        condition.alias = reader.Alias();
        reader.Expect(".FRightUserID)>0 OR ISNULL(");
        reader.Expect(condition.alias);
        reader.Expect(".FItemID,0)=0) ");
        conditions.push_back(std::move(condition));
        if (reader.AtEnd()) return conditions;
        reader.Expect(" And ");
    }
}

void AddRights(Conditions& conditions, SqlText column, std::string_view alias, std::string_view clause) {
    AddRights(conditions, {{alias, column}}, clause);
}

void AddRights(Conditions& conditions, std::initializer_list<RightColumn> columns, std::string_view clause) {
    for (RightCondition& right : ParseRightClause(clause)) {
        const RightColumn* meant = std::ranges::find(columns, right.alias, &RightColumn::alias);
        if (meant == columns.end()) RaiseAccountSetError("数据权限条件的表别名不符：" + right.alias);
        conditions.Add({"(", meant->column, " IS NULL OR ", meant->column,
                        " IN (SELECT FItemID FROM t_Party WHERE instr(FRightUserID,?)>0))"},
                       {std::move(right.user)});
    }
}

VisibleParties::VisibleParties(AccountSet& set, std::string_view alias, std::string_view clause) {
    Conditions conditions;
    AddRights(conditions, "p.FItemID", alias, clause);
    limited_ = !Trimmed(clause).empty();
    if (!limited_) return;
    Statement visible(set.database(), "SELECT p.FItemID FROM t_Party p WHERE " + conditions.Text());
    conditions.BindTo(visible);
    while (visible.Step()) {
        parties_.insert(visible.Int(0));
    }
}

}  // namespace qor
