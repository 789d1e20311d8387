#include "embedded/csv_reader.h"

#include <gtest/gtest.h>

#include <sstream>

namespace qor {
namespace {

/// All records: cells between brackets, each record with its line; a mistake instead of the cells.
std::string Read(const std::string& text) {
    std::istringstream in(text);
    CsvReader reader(in);
    std::string all;
    while (reader.Next()) {
        all += std::to_string(reader.line());
        if (!reader.mistake().empty()) {
            all += " " + std::string(reader.mistake());
        } else {
            for (const std::string_view cell : reader.cells()) {
                all += "[" + std::string(cell) + "]";
            }
        }
        all += ";";
    }
    return all;
}

struct Reading {
    const char* text;
    const char* records;
};

constexpr Reading kReadings[] = {
    {"", ""},
    {"a", "1[a];"},
    {"a,b\n1,2\n", "1[a][b];2[1][2];"},
    {"a,b\r\n1,2\r\n", "1[a][b];2[1][2];"},
    {"a,b\r\n1,2", "1[a][b];2[1][2];"},
    {"\xEF\xBB\xBF"
     "a,b\n",
     "1[a][b];"},
    {"\xEF\xBB\xBF\"a\",b\n", "1[a][b];"},
    {"a,\n,b\n", "1[a][];2[][b];"},
    {"\n\na\n\r\n\nb\n", "3[a];6[b];"},
    {"a\n,,\nb\n", "1[a];3[b];"},
    {"\"a,b\",\"say \"\"yes\"\"\"\n", "1[a,b][say \"yes\"];"},
    {"\"two\nlines\",x\ny\n", "1[two\nlines][x];3[y];"},
    {"\"two\r\nlines\"\r\ny\r\n", "1[two\r\nlines];3[y];"},
    {"\"\",\"\"\n", ""},
    {"\"\",\"x\"\n", "1[][x];"},
    {"\"x\"", "1[x];"},
    {"\"x\"\r", "1[x];"},
    {"客户,\"名,称\"\n", "1[客户][名,称];"},
    {" a , b \n", "1[ a ][ b ];"},
    {"a\"b\nc\n", "1 a quote inside a cell: put the whole cell in quotes and write the quote twice;2[c];"},
    {"\"a\"b,c\nd\n",
     "1 text behind the closing quote of a cell: a quote inside a cell is written twice;2[d];"},
    {"x\n\"a\nb\n", "1[x];2 a quote that is not closed;"},
    {"a\rb\nc\n", "1 a carriage return without a line feed: lines end in LF or CRLF;2[c];"},
};

TEST(CsvReader, ReadsWhatTheStandardSays) {
    for (const Reading& row : kReadings) {
        EXPECT_EQ(Read(row.text), row.records) << row.text;
    }
    EXPECT_EQ(Read(std::string("a\0b\nc", 5)), "1 a NUL character: this is no text file;2[c];");
}

TEST(CsvReader, ALongFileIsReadInBlocks) {
    std::string text, expected;
    for (int i = 1; i <= 60'000; ++i) {
        const std::string number = std::to_string(i);
        text += number + ",\"客户 " + number + ", \"\"x\"\"\"\r\n";
        expected += number + "[" + number + "][客户 " + number + ", \"x\"];";
    }
    ASSERT_GT(text.size(), std::size_t{1} << 20);
    EXPECT_EQ(Read(text), expected);
}

TEST(CsvReader, AQuoteLeftOpenDoesNotSwallowTheFile) {
    std::string text = "a\n\"open\n";
    text.append(std::size_t{3} << 20, 'x');
    text += "\nb\n";
    EXPECT_EQ(Read(text), "1[a];2 a quote that is not closed;4[b];");
}

TEST(CsvReader, TellsUtf8FromOtherBytes) {
    for (const char* good :
         {"", "abc", "客户", "é", "\xF0\x9F\x92\xB0", "\xEF\xBF\xBF", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(IsUtf8(good)) << good;
    }
    for (const char* bad :
         {"\x80", "\xBF", "\xC0\xAF", "\xC1\x81", "\xE5\xAE", "\xE5\xAEx", "\xE0\x80\xAF", "\xED\xA0\x80",
          "\xF0\x80\x80\xAF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "\xBF\xCD\xBB\xA7"}) {
        EXPECT_FALSE(IsUtf8(bad)) << bad;
    }
}

}  // namespace
}  // namespace qor
