#include "embedded/csv_reader.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t kBlock = 1 << 18;
constexpr std::size_t kLongestRecord = 1 << 20;  // what is longer has a quote that nobody closed

}  // namespace

CsvReader::CsvReader(std::istream& in) : in_(in), block_(kBlock) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (!Fill()) return;
    if (std::string_view(block_.data(), size_).starts_with(kByteOrderMark)) at_ = kByteOrderMark.size();
}

bool CsvReader::Next() {
    while (ReadRecord()) {
        if (!mistake_.empty() || !AllEmpty()) return true;
    }
    return false;
}

bool CsvReader::ReadRecord() {
    text_.clear();
    ends_.clear();
    cells_.clear();
    mistake_ = {};
    line_ = nextLine_;
    int c = Get();
    if (c == kEnd) return false;
    for (;;) {
        c = c == '"' ? ReadQuoted() : ReadPlain(c);
        ends_.push_back(text_.size());
        if (c != ',') break;
        c = Get();
    }
    std::size_t begin = 0;
    for (const std::size_t end : ends_) {
        cells_.push_back(std::string_view(text_).substr(begin, end - begin));
        begin = end;
    }
    if (text_.find('\0') != std::string::npos) Tell("a NUL character: this is no text file");
    return true;
}

int CsvReader::ReadPlain(int c) {
    for (;; c = Get()) {
        if (c == ',' || c == '\n' || c == kEnd) return c;
        if (c == '\r') return AfterReturn();
        if (c == '"') {
            Tell("a quote inside a cell: put the whole cell in quotes and write the quote twice");
        }
        text_ += static_cast<char>(c);
    }
}

int CsvReader::ReadQuoted() {
    for (;;) {
        int c = Get();
        if (c == kEnd || text_.size() > kLongestRecord) {
            Tell("a quote that is not closed");
            return c == kEnd ? kEnd : SkipToDelimiter(c);
        }
        if (c == '"') {
            c = Get();
            if (c == '\r') return AfterReturn();
            if (c == ',' || c == '\n' || c == kEnd) return c;
            if (c != '"') {
                Tell("text behind the closing quote of a cell: a quote inside a cell is written twice");
                return SkipToDelimiter(c);
            }
        }
        text_ += static_cast<char>(c);
    }
}

int CsvReader::SkipToDelimiter(int c) {
    while (c != ',' && c != '\n' && c != kEnd) {
        c = Get();
    }
    return c;
}

/// A carriage return belongs to the line feed behind it.
int CsvReader::AfterReturn() {
    if (Peek() == kEnd) return kEnd;
    if (Peek() == '\n') return Get();
    Tell("a carriage return without a line feed: lines end in LF or CRLF");
    return SkipToDelimiter(Get());
}

int CsvReader::Get() {
    const int c = Peek();
    if (c == kEnd) return c;
    ++at_;
    if (c == '\n') ++nextLine_;
    return c;
}

int CsvReader::Peek() {
    if (at_ == size_ && !Fill()) return kEnd;
    return static_cast<unsigned char>(block_[at_]);
}

bool CsvReader::Fill() {
    in_.read(block_.data(), static_cast<std::streamsize>(block_.size()));
    at_ = 0;
    size_ = static_cast<std::size_t>(in_.gcount());
    return size_ > 0;
}

bool CsvReader::AllEmpty() const {
    return std::ranges::all_of(cells_, [](std::string_view cell) { return cell.empty(); });
}

void CsvReader::Tell(std::string_view mistake) {
    if (mistake_.empty()) mistake_ = mistake;
}

bool IsUtf8(std::string_view text) {
    const auto at = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
    for (std::size_t i = 0; i < text.size();) {
        const unsigned head = at(i);
        const std::size_t more = head < 0x80   ? 0u
                                 : head < 0xC2 ? 9u
                                 : head < 0xE0 ? 1u
                                 : head < 0xF0 ? 2u
                                               : 3u;
        if (more == 9 || head > 0xF4) return false;
        for (std::size_t k = 1; k <= more; ++k) {
            if ((at(i + k) & 0xC0) != 0x80) return false;
        }
        const bool tooShort = (head == 0xE0 && at(i + 1) < 0xA0) || (head == 0xF0 && at(i + 1) < 0x90);
        const bool noCharacter = (head == 0xED && at(i + 1) > 0x9F) || (head == 0xF4 && at(i + 1) > 0x8F);
        if (tooShort || noCharacter) return false;
        i += more + 1;
    }
    return true;
}

}  // namespace qor
