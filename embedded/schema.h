// The tables of an account set. A new file gets the tables first and the indices when its rows are in.
// Amounts are whole cents (fen), dates are days since 1899-12-30, quantities and prices are ten-thousandths.
#pragma once

#include <cstdint>

#include "embedded/sqlite.h"

namespace qor {

/// Marks a database file as an account set of ours.
inline constexpr std::int32_t kAccountSetMark = 0x514F5241;
/// The version of the tables; an account set of another one is refused.
inline constexpr std::int32_t kSchemaVersion = 1;

void CreateTables(Database& database);  // with the fixed rows of t_BillType and t_ItemClass
void CreateIndices(Database& database);

/// Declared types of columns whose stored integers mean something else to a reader of a plain statement.
inline constexpr const char* kDateColumn = "DATE";    // days since 1899-12-30
inline constexpr const char* kMoneyColumn = "MONEY";  // cents

}  // namespace qor
