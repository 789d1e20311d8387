#include "embedded/import_values.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

struct Case {
    const char* text;
    std::int64_t value;
    const char* mistake;
};

using Reader = CellReading (*)(std::string_view);

void Expect(Reader read, std::initializer_list<Case> cases) {
    for (const Case& row : cases) {
        const CellReading reading = read(row.text);
        EXPECT_EQ(reading.mistake, row.mistake) << row.text;
        EXPECT_EQ(reading.value, row.value) << row.text;
    }
}

TEST(ImportValues, AmountsAreExactToTheCent) {
    Expect(ReadCents, {{"0", 0, ""},
                       {"0.29", 29, ""},
                       {"1.1", 110, ""},
                       {"-0.01", -1, ""},
                       {"-1234.50", -123450, ""},
                       {"0012", 1200, ""},
                       {"1234567890123.45", 123456789012345, ""},
                       {"90071992547409.93", 0,
                        "\"90071992547409.93\" is too large: at most 13 digits stand before the point"},
                       {"4503599627370.97", 450359962737097, ""},
                       {"1.005", 0, "\"1.005\" has more than two decimals; round it yourself"},
                       {"1.000", 0, "\"1.000\" has more than two decimals; round it yourself"},
                       {"1,234", 0, "\"1,234\" has thousands commas; write 1234"},
                       {"-1,234,567.89", 0, "\"-1,234,567.89\" has thousands commas; write -1234567.89"},
                       {"1,5", 0, "\"1,5\" is no amount; write it like 1234.50 or -1234.50"},
                       {"12,34,567", 0, "\"12,34,567\" is no amount; write it like 1234.50 or -1234.50"},
                       {"1.2E+05", 0, "\"1.2E+05\" is no amount; write it like 1234.50 or -1234.50"},
                       {"(5)", 0, "\"(5)\" is no amount; write it like 1234.50 or -1234.50"},
                       {"+5", 0, "\"+5\" is no amount; write it like 1234.50 or -1234.50"},
                       {"-", 0, "\"-\" is no amount; write it like 1234.50 or -1234.50"},
                       {"5.", 0, "\"5.\" is no amount; write it like 1234.50 or -1234.50"},
                       {".5", 0, "\".5\" is no amount; write it like 1234.50 or -1234.50"},
                       {"1.2.3", 0, "\"1.2.3\" is no amount; write it like 1234.50 or -1234.50"},
                       {"￥5", 0, "\"￥5\" is no amount; write it like 1234.50 or -1234.50"},
                       {"１", 0, "\"１\" is no amount; write it like 1234.50 or -1234.50"}});
}

TEST(ImportValues, EveryAmountComesBackAsItWasWritten) {
    for (std::int64_t cents = -100'000; cents <= 100'000; cents += 7) {
        EXPECT_EQ(ReadCents(CentsText(cents)).value, cents);
    }
    EXPECT_EQ(CentsText(-5), "-0.05");
    EXPECT_EQ(CentsText(123456789012345), "1234567890123.45");
}

TEST(ImportValues, QuantitiesHaveFourDecimals) {
    Expect(ReadTenThousandths, {{"12", 120000, ""},
                                {"-0.0001", -1, ""},
                                {"1.00001", 0, "\"1.00001\" has more than four decimals; round it yourself"},
                                {"x", 0, "\"x\" is no quantity or price; write it like 12 or 12.5"}});
}

TEST(ImportValues, DaysAreRealDays) {
    Expect(ReadDay, {{"2025-06-30", 45838, ""},
                     {"1900-01-01", 2, ""},
                     {"2024-02-29", 45351, ""},
                     {"2025-02-29", 0, "\"2025-02-29\" is no day of the calendar"},
                     {"2025-13-01", 0, "\"2025-13-01\" is no day of the calendar"},
                     {"2025-00-10", 0, "\"2025-00-10\" is no day of the calendar"},
                     {"1899-12-31", 0, "\"1899-12-31\" is no day of the calendar"},
                     {"2025/6/30", 0, "\"2025/6/30\" is no date; write it as YYYY-MM-DD"},
                     {"2025-6-30", 0, "\"2025-6-30\" is no date; write it as YYYY-MM-DD"},
                     {"2025-06-30 12:00", 0, "\"2025-06-30 12:00\" is no date; write it as YYYY-MM-DD"},
                     {"45838", 0, "\"45838\" is no date; write it as YYYY-MM-DD"}});
    Expect(ReadMonth, {{"2025-06", 45809, ""},
                       {"2025-13", 0, "\"2025-13\" is no month of the calendar"},
                       {"2025-06-01", 0, "\"2025-06-01\" is no month; write it as YYYY-MM"}});
}

TEST(ImportValues, SwitchesAreYesOrNo) {
    Expect(ReadYesNo, {{"yes", 1, ""},
                       {"no", 0, ""},
                       {"1", 0, "\"1\" is neither yes nor no"},
                       {"Yes", 0, "\"Yes\" is neither yes nor no"}});
}

TEST(ImportValues, WholeNumbersLieBetweenTheirBounds) {
    EXPECT_EQ(ReadWhole("9999", 0, 9999).value, 9999);
    EXPECT_EQ(ReadWhole("0", 0, 9999).mistake, "");
    for (const char* text : {"10000", "-1", "1.0", "", "x", "99999999999999999999"}) {
        EXPECT_EQ(ReadWhole(text, 0, 9999).mistake,
                  "\"" + std::string(text) + "\" is no whole number from 0 to 9999");
    }
}

}  // namespace
}  // namespace qor
