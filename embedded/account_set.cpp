#include "embedded/account_set.h"

#include "embedded/schema.h"
#include "platform/conversions.h"

namespace qor {

namespace {

Database OpenAccountSet(const std::filesystem::path& file) {
    if (!std::filesystem::exists(file)) RaiseAccountSetError("账套文件不存在：" + file.string());
    if (!std::filesystem::is_regular_file(file)) RaiseAccountSetError("不是账套文件：" + file.string());
    return Database(file, Database::Mode::ReadOnly);
}

std::int64_t Number(Database& database, std::string_view statement) {
    Statement asked(database, statement);
    return asked.Step() ? asked.Int(0) : 0;
}

}  // namespace

AccountSet::AccountSet(const std::filesystem::path& file) : database_(OpenAccountSet(file)) {
    std::int64_t mark = 0, version = 0;
    IgnoringErrors([&] {
        mark = Number(database_, "PRAGMA application_id");
        version = Number(database_, "PRAGMA user_version");
    });
    if (mark != kAccountSetMark) RaiseAccountSetError("不是账套文件：" + file.string());
    if (version != kSchemaVersion) {
        RaiseAccountSetError("账套文件的版本是 " + std::to_string(version) + "，需要的版本是 " +
                             std::to_string(kSchemaVersion) + "：" + file.string());
    }
    database_.Run(
        "PRAGMA query_only=ON; PRAGMA cache_size=-65536;"
        "PRAGMA temp_store=MEMORY");
}

std::optional<std::string> AccountSet::Profile(std::string_view category, std::string_view key) {
    Statement entry(database_, "SELECT FValue FROM t_SystemProfile WHERE FCategory=? AND FKey=?");
    entry.With(category, key);
    if (!entry.Step() || entry.IsNull(0)) return std::nullopt;
    return std::string(entry.Text(0));
}

std::string AccountSet::Name() { return Profile("Base", "CompanyName").value_or(""); }

std::optional<std::string> AccountSet::UserName(std::int32_t user) {
    Statement entry(database_, "SELECT FName FROM t_User WHERE FUserID=?");
    if (!entry.With(user).Step()) return std::nullopt;
    return std::string(entry.Text(0));
}

bool AccountSet::HasAllRights(std::int32_t user) {
    Statement entry(database_, "SELECT FAllRights FROM t_User WHERE FUserID=?");
    return entry.With(user).Step() && entry.Int(0) != 0;
}

std::int32_t AccountSet::DeepestLevel(std::int32_t itemClass) {
    Statement deepest(database_, "SELECT ifnull(max(FLevel),0) FROM t_Item WHERE FItemClassID=?");
    deepest.With(itemClass).Step();
    return static_cast<std::int32_t>(deepest.Int(0));
}

std::optional<std::int64_t> AccountSet::OwnToday() {
    if (today_) return today_;
    const auto day = Profile("Base", "Today");
    return day ? std::optional(static_cast<std::int64_t>(ToDate(*day).serial)) : std::nullopt;
}

std::int64_t AccountSet::Today() {
    if (const auto day = OwnToday()) return *day;
    constexpr std::string_view kDaysSinceDayZero =
        "SELECT CAST(julianday('now','localtime','start of day') - julianday('1899-12-30') AS INTEGER)";
    Statement day(database_, kDaysSinceDayZero);
    day.Step();
    return day.Int(0);
}

}  // namespace qor
