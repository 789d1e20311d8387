// One CSV file of an import, row by row: its header is checked against the columns that it may have, and
// whatever a cell should be and is not becomes a mistake with its place.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "embedded/csv_reader.h"
#include "embedded/import_files.h"
#include "embedded/import_mistakes.h"
#include "embedded/import_values.h"

namespace qor {

class ImportTable {
 public:
    /// A column of the file, whether this file has it or not.
    struct Column {
        std::size_t index = 0;
    };

    /// A file that is missing has no rows. `file` and `mistakes` are borrowed.
    ImportTable(const std::filesystem::path& folder, const CsvFile& file, ImportMistakes& mistakes);
    ImportTable(const ImportTable&) = delete;
    ImportTable& operator=(const ImportTable&) = delete;

    /// Moves to the next row that has the cells of the header; the others are mistakes.
    bool Next();
    /// The column of that name; one that the file cannot have raises an error.
    Column Find(std::string_view name) const;
    /// Whether this file has the column.
    bool Has(Column column) const { return cellOf_[column.index] != kNone; }

    /// The cell as it stands; "" where the file leaves its column out.
    std::string_view Text(Column column) const;
    /// The cell without blanks around it, as all that is no free text is read.
    std::string_view Word(Column column) const;
    /// A cell as a value; `blank` where there is nothing in it. A mistake is told, and reads as 0.
    std::int64_t Read(Column column, CellReading (*read)(std::string_view), std::int64_t blank = 0);
    std::int64_t ReadWholeNumber(Column column, std::int64_t low, std::int64_t high, std::int64_t blank = 0);

    void Mistake(Column column, std::string reason);
    /// A mistake in a column of another row of this file.
    void MistakeAt(std::int64_t line, Column column, std::string reason);
    /// Whether nothing is wrong with the row so far.
    bool RowIsSound() const { return mistakes_.count() == mistakesBefore_; }
    std::int64_t line() const { return reader_ ? reader_->line() : 0; }

    /// Some row could not be read, so that what other files refer to may stand there.
    bool incomplete() const { return incomplete_; }
    void MarkIncomplete() { incomplete_ = true; }

 private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    void ReadHeader();
    void TakeHeaderCell(std::string_view name, std::size_t cell);
    bool Refuse(std::string_view reason);
    bool RowIsReadable();
    std::int64_t Taken(Column column, CellReading reading);

    const CsvFile& file_;
    ImportMistakes& mistakes_;
    std::ifstream in_;
    std::optional<CsvReader> reader_;
    std::vector<std::size_t> cellOf_;  // by column
    std::size_t width_ = 0;
    std::size_t mistakesBefore_ = 0;
    bool incomplete_ = false;
};

}  // namespace qor
