// Reads comma-separated values as RFC 4180 has them: cells in quotes may hold commas, line ends and doubled
// quotes; lines end in LF or CRLF; a byte order mark at the head is no part of the text. Lines whose cells
// are all empty are passed over. One record is held at a time, whatever the size of the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

class CsvReader {
 public:
    /// Borrows the stream.
    explicit CsvReader(std::istream& in);

    /// Moves to the next record; false behind the last one.
    bool Next();
    /// Valid until the next move.
    std::span<const std::string_view> cells() const { return cells_; }
    /// The line on which the record begins, counted from 1.
    std::int64_t line() const { return line_; }
    /// What is wrong with the quotes or characters of this record; "" where it can be trusted.
    std::string_view mistake() const { return mistake_; }

 private:
    static constexpr int kEnd = -1;

    bool ReadRecord();
    int ReadPlain(int c);
    int ReadQuoted();
    int SkipToDelimiter(int c);
    int AfterReturn();
    int Get();
    int Peek();
    bool Fill();
    bool AllEmpty() const;
    void Tell(std::string_view mistake);

    std::istream& in_;
    std::vector<char> block_;
    std::size_t at_ = 0, size_ = 0;
    std::string text_;               // the cells of the record, one behind the other
    std::vector<std::size_t> ends_;  // where each of them ends
    std::vector<std::string_view> cells_;
    std::int64_t line_ = 0, nextLine_ = 1;
    std::string_view mistake_;
};

/// Whether the bytes are well-formed UTF-8.
bool IsUtf8(std::string_view text);

}  // namespace qor
