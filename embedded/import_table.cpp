#include "embedded/import_table.h"

#include <algorithm>

#include "platform/conversions.h"
#include "platform/error.h"

namespace qor {

ImportTable::ImportTable(const std::filesystem::path& folder, const CsvFile& file, ImportMistakes& mistakes)
    : file_(file), mistakes_(mistakes), cellOf_(file.columns.size(), kNone) {
    if (!std::filesystem::exists(folder / file.name)) return;
    in_.open(folder / file.name, std::ios::binary);
    if (!in_ || std::filesystem::is_directory(folder / file.name)) {
        incomplete_ = true;
        mistakes_.Add(file_.name, 0, "", "cannot be read");
        return;
    }
    reader_.emplace(in_);
    ReadHeader();
}

void ImportTable::ReadHeader() {
    if (!reader_->Next()) {
        incomplete_ = true;
        mistakes_.Add(file_.name, 0, "", "is empty; its first line names the columns");
        reader_.reset();
        return;
    }
    if (!RowIsReadable()) {
        reader_.reset();
        return;
    }
    const std::size_t before = mistakes_.count();
    width_ = reader_->cells().size();
    for (std::size_t cell = 0; cell < width_; ++cell) {
        TakeHeaderCell(Trimmed(reader_->cells()[cell]), cell);
    }
    for (std::size_t i = 0; i < cellOf_.size(); ++i) {
        if (!file_.columns[i].required || cellOf_[i] != kNone) continue;
        mistakes_.Add(file_.name, line(), file_.columns[i].name, "this column is missing");
    }
    if (mistakes_.count() == before) return;
    incomplete_ = true;
    reader_.reset();
}

void ImportTable::TakeHeaderCell(std::string_view name, std::size_t cell) {
    const auto found = std::ranges::find(file_.columns, name, &CsvColumn::name);
    if (found == file_.columns.end()) {
        std::string known;
        for (const CsvColumn& column : file_.columns) {
            known.append(known.empty() ? "" : ", ").append(column.name);
        }
        mistakes_.Add(file_.name, line(), "", Shown(name) + " is no column of this file; there are " + known);
        return;
    }
    std::size_t& place = cellOf_[static_cast<std::size_t>(found - file_.columns.begin())];
    if (place != kNone) mistakes_.Add(file_.name, line(), name, "this column stands twice");
    place = cell;
}

bool ImportTable::Refuse(std::string_view reason) {
    incomplete_ = true;
    mistakes_.Add(file_.name, line(), "", std::string(reason));
    return false;
}

bool ImportTable::RowIsReadable() {
    if (!reader_->mistake().empty()) return Refuse(reader_->mistake());
    const auto cells = reader_->cells();
    if (!std::ranges::all_of(cells, IsUtf8)) {
        Refuse("is not in UTF-8; save the file as CSV UTF-8");
        reader_.reset();  // so will all the others be
        return false;
    }
    if (width_ == 0 || cells.size() == width_) return true;
    return Refuse("has " + std::to_string(cells.size()) + " cells, the header " + std::to_string(width_));
}

bool ImportTable::Next() {
    while (reader_ && reader_->Next()) {
        mistakesBefore_ = mistakes_.count();
        if (!RowIsReadable()) continue;
        for (std::size_t i = 0; i < cellOf_.size(); ++i) {
            if (file_.columns[i].required && Word({i}).empty()) Mistake({i}, "is blank");
        }
        return true;
    }
    return false;
}

ImportTable::Column ImportTable::Find(std::string_view name) const {
    const auto found = std::ranges::find(file_.columns, name, &CsvColumn::name);
    if (found == file_.columns.end()) Raise(Automation::InvalidCall);
    return {static_cast<std::size_t>(found - file_.columns.begin())};
}

std::string_view ImportTable::Text(Column column) const {
    return Has(column) ? reader_->cells()[cellOf_[column.index]] : std::string_view();
}

std::string_view ImportTable::Word(Column column) const { return Trimmed(Text(column)); }

std::int64_t ImportTable::Read(Column column, CellReading (*read)(std::string_view), std::int64_t blank) {
    const std::string_view word = Word(column);
    return word.empty() ? blank : Taken(column, read(word));
}

std::int64_t ImportTable::ReadWholeNumber(Column column, std::int64_t low, std::int64_t high,
                                          std::int64_t blank) {
    const std::string_view word = Word(column);
    return word.empty() ? blank : Taken(column, ReadWhole(word, low, high));
}

std::int64_t ImportTable::Taken(Column column, CellReading reading) {
    if (!reading.mistake.empty()) Mistake(column, std::move(reading.mistake));
    return reading.value;
}

void ImportTable::Mistake(Column column, std::string reason) { MistakeAt(line(), column, std::move(reason)); }

void ImportTable::MistakeAt(std::int64_t line, Column column, std::string reason) {
    mistakes_.Add(file_.name, line, file_.columns[column.index].name, std::move(reason));
}

}  // namespace qor
