#include "embedded/sqlite.h"

namespace qor {

void RaiseAccountSetError(std::string description) {
    throw Error(kAccountSetError, "QOREmbeddedAccountSet", std::move(description));
}

namespace {

[[noreturn]] void FailWith(sqlite3* database) {
    RaiseAccountSetError(std::string("账套数据库出错：") + sqlite3_errmsg(database));
}

}  // namespace

Database::Database(const std::filesystem::path& file, Mode mode) {
    const int flags =
        mode == Mode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    sqlite3* opened = nullptr;
    const int answer = sqlite3_open_v2(file.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    handle_.reset(opened);
    if (answer != SQLITE_OK) FailWith(opened);
}

void Database::Run(const std::string& statements) {
    if (sqlite3_exec(handle(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        FailWith(handle());
}

Statement::Statement(Database& database, std::string_view sql, std::string_view* rest) {
    sqlite3_stmt* prepared = nullptr;
    const char* end = nullptr;
    const int answer =
        sqlite3_prepare_v2(database.handle(), sql.data(), static_cast<int>(sql.size()), &prepared, &end);
    handle_.reset(prepared);
    if (answer != SQLITE_OK) FailWith(database.handle());
    if (rest) *rest = sql.substr(static_cast<std::size_t>(end - sql.data()));
}

void Statement::Fail() const { FailWith(sqlite3_db_handle(handle())); }

void Statement::Bind(int index, std::string_view text) {
    if (sqlite3_bind_text(handle(), index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT) !=
        SQLITE_OK) {
        Fail();
    }
}

void Statement::Bind(int index, std::nullptr_t) {
    if (sqlite3_bind_null(handle(), index) != SQLITE_OK) Fail();
}

void Statement::BindNumber(int index, std::int64_t number) {
    if (sqlite3_bind_int64(handle(), index, number) != SQLITE_OK) Fail();
}

bool Statement::Step() {
    switch (sqlite3_step(handle())) {
        case SQLITE_ROW:
            return true;
        case SQLITE_DONE:
            return false;
        default:
            Fail();
    }
}

void Statement::Run() {
    while (Step()) {
    }
    Reset();
}

std::string_view Statement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle(), column));
    if (!text) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(handle(), column))};
}

}  // namespace qor
