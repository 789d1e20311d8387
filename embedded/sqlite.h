// The embedded account set's thin cover over SQLite: a database and its prepared statements, with every
// failure as an Error. Texts reach a statement as bound values only.
#pragma once

#include <sqlite3.h>

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace qor {

/// The number of every error that the embedded account set raises on its own account.
inline constexpr std::int32_t kAccountSetError = -2147217900;

[[noreturn]] void RaiseAccountSetError(std::string description);

class Database {
 public:
    enum class Mode { ReadOnly, Create };

    /// Opens `file`. Raises an error where it cannot be opened; whether it is a database shows at the first
    /// statement.
    Database(const std::filesystem::path& file, Mode mode);

    /// Runs statements that answer nothing, parted by semicolons. For the project's own texts only.
    void Run(const std::string& statements);
    sqlite3* handle() const { return handle_.get(); }

 private:
    struct Closer {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };
    std::unique_ptr<sqlite3, Closer> handle_;
};

/// A prepared statement. Bound texts are copied; columns count from 0, parameters from 1.
class Statement {
 public:
    /// Prepares the first statement of `sql`; `rest`, where given, takes what stands behind it.
    Statement(Database& database, std::string_view sql, std::string_view* rest = nullptr);

    /// Starts anew with these values for the parameters, in their order; the parameters that are left out
    /// keep what they have.
    template <class... A>
    Statement& With(const A&... values) {
        Reset();
        int index = 0;
        (Bind(++index, values), ...);
        return *this;
    }
    void Bind(int index, std::string_view text);
    void Bind(int index, std::nullptr_t);
    template <std::integral T>
    void Bind(int index, T number) {
        BindNumber(index, static_cast<std::int64_t>(number));
    }

    /// Moves to the next row; false behind the last one.
    bool Step();
    /// Steps through all rows and starts anew.
    void Run();
    void Reset() { sqlite3_reset(handle_.get()); }

    std::int64_t Int(int column) const { return sqlite3_column_int64(handle_.get(), column); }
    bool IsNull(int column) const { return sqlite3_column_type(handle_.get(), column) == SQLITE_NULL; }
    /// Valid until the next step.
    std::string_view Text(int column) const;
    sqlite3_stmt* handle() const { return handle_.get(); }

 private:
    void BindNumber(int index, std::int64_t number);
    [[noreturn]] void Fail() const;

    struct Finalizer {
        void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

}  // namespace qor
