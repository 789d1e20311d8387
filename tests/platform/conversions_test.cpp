#include "platform/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/dictionary.h"
#include "platform/record_set.h"
#include "support/raises.h"

namespace qor {
namespace {

using test::kNoError;
using test::RaisedBy;

constexpr std::int16_t operator""_i16(unsigned long long value) { return static_cast<std::int16_t>(value); }

Date Day(int year, int month, int day) { return *DateFromCalendar(year, month, day); }

TEST(ToInt16, RoundsHalfToEven) {
    const struct {
        double from;
        std::int16_t to;
    } rows[] = {
        {0.5, 0},      {1.5, 2},  {2.5, 2},         {-0.5, 0},          {-1.5, -2},
        {2.500001, 3}, {2.49, 2}, {32767.4, 32767}, {-32768.5, -32768}, {-2.5, -2},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ToInt16(row.from), row.to) << row.from;
        EXPECT_EQ(ToInt32(row.from), row.to) << row.from;
    }
}

TEST(ToInt16, RaisesOverflowOutsideSixteenBits) {
    for (const Value& value : {Value(32767.5), Value(-32768.6), Value(32768), Value("32768"), Value(1e300),
                               Value(std::nan("")), Value("&H10000")}) {
        EXPECT_EQ(RaisedBy([&] { ToInt16(value); }), Automation::Overflow);
    }
}

TEST(ToInt32, RaisesOverflowOutsideThirtyTwoBits) {
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    for (const Value& value : {Value(2147483647.5), Value("-2147483649"), Value("&H100000000")}) {
        EXPECT_EQ(RaisedBy([&] { ToInt32(value); }), Automation::Overflow);
    }
}

TEST(ToInt32, TakesEveryPlainType) {
    EXPECT_EQ(ToInt32(Value()), 0);
    EXPECT_EQ(ToInt32(true), -1);
    EXPECT_EQ(ToInt32(7_i16), 7);
    EXPECT_EQ(ToInt32(2.5F), 2);
    EXPECT_EQ(ToInt32(Date{44075.5}), 44076);
    EXPECT_EQ(ToInt32(" 12 "), 12);
}

TEST(ToInteger, TakesTheBitsOfHexadecimalTextAsTheyAre) {
    EXPECT_EQ(ToInt16("&HFFFF"), -1);
    EXPECT_EQ(ToInt32("&HFFFF"), 65535);
    EXPECT_EQ(ToInt32("&hFFFFFFFF"), -1);
    EXPECT_EQ(ToInt16("&O17"), 15);
    EXPECT_EQ(ToDouble("&HFFFF"), 65535);
}

TEST(Conversions, RaiseInvalidUseOfNull) {
    const Value null = Value::Null();
    EXPECT_EQ(RaisedBy([&] { ToBoolean(null); }), Automation::InvalidUseOfNull);
    EXPECT_EQ(RaisedBy([&] { ToInt16(null); }), Automation::InvalidUseOfNull);
    EXPECT_EQ(RaisedBy([&] { ToInt32(null); }), Automation::InvalidUseOfNull);
    EXPECT_EQ(RaisedBy([&] { ToSingle(null); }), Automation::InvalidUseOfNull);
    EXPECT_EQ(RaisedBy([&] { ToDouble(null); }), Automation::InvalidUseOfNull);
    EXPECT_EQ(RaisedBy([&] { ToDate(null); }), Automation::InvalidUseOfNull);
    EXPECT_EQ(RaisedBy([&] { ToText(null); }), Automation::InvalidUseOfNull);
}

TEST(Conversions, RaiseTypeMismatchForTextThatIsNoNumber) {
    for (const char* text : {"", " ", "abc", "1e", "1x", "--1", ".", ",1", "1.2.3", "&H", "&HG", "( )",
                             "(-1)", "1 2", "1.5,0", "True", "&H1 F"}) {
        EXPECT_EQ(RaisedBy([&] { ToInt16(text); }), Automation::TypeMismatch) << text;
        EXPECT_EQ(RaisedBy([&] { ToInt32(text); }), Automation::TypeMismatch) << text;
        EXPECT_EQ(RaisedBy([&] { ToDouble(text); }), Automation::TypeMismatch) << text;
        EXPECT_FALSE(IsNumeric(text)) << text;
    }
}

TEST(ToDouble, ReadsNumbersWrittenAsText) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"0", 0},      {"12", 12},          {"  -3.5 ", -3.5},    {"+4", 4},       {".5", 0.5},
        {"5.", 5},     {"1,234.5", 1234.5}, {"1e3", 1000},        {"1E-3", 0.001}, {"2d2", 200},
        {"2D+2", 200}, {"(7)", -7},         {"( 1,000 )", -1000}, {"- 5", -5},     {"1e-400", 0},
        {"0.1", 0.1},  {"&H1F", 31},        {"000012", 12},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ToDouble(row.text), row.value) << row.text;
        EXPECT_TRUE(IsNumeric(row.text)) << row.text;
    }
}

TEST(ToDouble, RaisesOverflowForTextBeyondADouble) {
    const std::string manyDigits(400, '9');
    const std::string tiny = "0." + std::string(400, '0') + "1e10";
    EXPECT_EQ(RaisedBy([] { ToDouble("1e400"); }), Automation::Overflow);
    EXPECT_EQ(RaisedBy([] { ToDouble("1e99999999999"); }), Automation::Overflow);
    EXPECT_EQ(RaisedBy([&] { ToDouble(manyDigits); }), Automation::Overflow);
    EXPECT_EQ(ToDouble(tiny), 0);
    EXPECT_EQ(ToDouble("1e-99999999999"), 0);
    EXPECT_FALSE(IsNumeric("1e400"));
}

TEST(ToSingle, RaisesOverflowBeyondASingle) {
    EXPECT_EQ(ToSingle("1.5"), 1.5F);
    EXPECT_EQ(RaisedBy([] { ToSingle(1e39); }), Automation::Overflow);
}

TEST(ToBoolean, TakesWordsNumbersAndNothingElse) {
    EXPECT_TRUE(ToBoolean("True"));
    EXPECT_TRUE(ToBoolean("tRUE"));
    EXPECT_FALSE(ToBoolean("FALSE"));
    EXPECT_TRUE(ToBoolean("0.1"));
    EXPECT_FALSE(ToBoolean("0"));
    EXPECT_TRUE(ToBoolean(-1));
    EXPECT_TRUE(ToBoolean(0.4));
    EXPECT_FALSE(ToBoolean(Value()));
    EXPECT_TRUE(ToBoolean(Date{1}));
    EXPECT_EQ(RaisedBy([] { ToBoolean(""); }), Automation::TypeMismatch);
    EXPECT_EQ(RaisedBy([] { ToBoolean("yes"); }), Automation::TypeMismatch);
}

TEST(ToText, WritesNumbersWithFifteenSignificantDigits) {
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {0.1, "0.1"},
        {1.0 / 3, "0.333333333333333"},
        {100, "100"},
        {-2.5, "-2.5"},
        {-0.0, "0"},
        {1e14, "100000000000000"},
        {123456789012345, "123456789012345"},
        {1e15, "1E+15"},
        {1234567890123456, "1.23456789012346E+15"},
        {0.0001, "0.0001"},
        {0.00001, "1E-05"},
        {1.5e-7, "1.5E-07"},
        {1e100, "1E+100"},
        {0.1 + 0.2, "0.3"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ToText(row.value), row.text);
    }
}

TEST(ToText, WritesSinglesWithSevenSignificantDigits) {
    EXPECT_EQ(ToText(0.1F), "0.1");
    EXPECT_EQ(ToText(1.0F / 3), "0.3333333");
    EXPECT_EQ(ToText(1e7F), "1E+07");
}

TEST(ToText, WritesTheOtherTypes) {
    EXPECT_EQ(ToText(Value()), "");
    EXPECT_EQ(ToText(true), "True");
    EXPECT_EQ(ToText(false), "False");
    EXPECT_EQ(ToText(-7_i16), "-7");
    EXPECT_EQ(ToText(70000), "70000");
    EXPECT_EQ(ToText("往来"), "往来");
}

TEST(ToText, WritesADateAndItsTimeOnlyWhereItHasOne) {
    EXPECT_EQ(ToText(Day(2020, 9, 1)), "2020-09-01");
    EXPECT_EQ(ToText(Date{Day(2020, 9, 1).serial + 0.25}), "2020-09-01 06:00:00");
    EXPECT_EQ(ToText(Date{0}), "1899-12-30");
    EXPECT_EQ(ToText(Date{Day(2020, 2, 29).serial + 86399.6 / 86400}), "2020-03-01");
}

TEST(Conversions, ReadAnObjectAsItsDefaultMember) {
    const auto rows = MakeRef<ColumnarRecordSet>(std::vector<std::string>{"FQty"});
    rows->AddRow({"12"});
    const Value field = ObjectIn(rows->Get("Fields")).Get("Item", "FQty");
    EXPECT_EQ(ToInt32(field), 12);
    EXPECT_EQ(ToInt16(field), 12);
    EXPECT_EQ(ToDouble(field), 12);
    EXPECT_EQ(ToText(field), "12");
    EXPECT_TRUE(ToBoolean(field));
    EXPECT_EQ(ToDate(field), Date{12});
}

TEST(Conversions, RaiseForObjectsThatStandForNothing) {
    EXPECT_EQ(RaisedBy([] { ToText(Value::Nothing()); }), Automation::ObjectNotSet);
    EXPECT_EQ(RaisedBy([] { ToInt32(Value::Nothing()); }), Automation::ObjectNotSet);
    EXPECT_EQ(RaisedBy([] { ToText(MakeRef<OrderedDictionary>()); }), Automation::ArgumentNotOptional);
}

TEST(ToDate, ReadsEveryWrittenForm) {
    const double day = Day(2020, 9, 1).serial;
    const struct {
        const char* text;
        double serial;
    } rows[] = {
        {"2020-09-01", day},
        {"2020-9-1", day},
        {"2020/9/1", day},
        {"2020.9.1", day},
        {"2020年9月1日", day},
        {"9/1/2020", day},
        {"  2020-09-01  ", day},
        {"2020-09", day},
        {"2020/9", day},
        {"2020年9月", day},
        {"2020-09-01 06:00", day + 0.25},
        {"2020-09-01  18:00:00", day + 0.75},
        {"2020年9月1日 12:30:30", day + 45030 / 86400.0},
        {"06:00", 0.25},
        {"12:00:00", 0.5},
        {"1899-12-30", 0},
        {"1899-12-29 06:00", -1.25},
        {"2020-02-29", Day(2020, 2, 29).serial},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ToDate(row.text).serial, row.serial) << row.text;
        EXPECT_TRUE(IsDate(row.text)) << row.text;
    }
}

TEST(ToDate, RaisesTypeMismatchForTextThatIsNeitherDateNorNumber) {
    for (const char* text : {"",
                             "abc",
                             "2020-13-01",
                             "2021-02-29",
                             "1900-02-29",
                             "2020-00-10",
                             "2020-09-31",
                             "2020-9-1-1",
                             "2020-09/01",
                             "2020年9",
                             "2020年9月1",
                             "24:00",
                             "12:60",
                             "12:00:60",
                             "2020-09-01 25:00",
                             "2020-09-01T06:00",
                             "2020-09-01x",
                             "20200901-1",
                             "-2020-09-01",
                             "0099-12-31",
                             "2020--9"}) {
        EXPECT_EQ(RaisedBy([&] { ToDate(text); }), Automation::TypeMismatch) << text;
        EXPECT_FALSE(IsDate(text)) << text;
    }
}

TEST(ToDate, ReadsANumericTextAsASerialThoughItIsNoDate) {
    EXPECT_EQ(ToDate("44075"), Day(2020, 9, 1));
    EXPECT_EQ(ToDate("2020.9").serial, 2020.9);
    EXPECT_FALSE(IsDate("44075"));
    EXPECT_FALSE(IsDate("2020.9"));
    EXPECT_FALSE(IsDate(44075));
    EXPECT_TRUE(IsDate(Day(2020, 9, 1)));
}

TEST(ToDate, RaisesOverflowOutsideTheCalendar) {
    EXPECT_EQ(ToDate(2958465.5).serial, 2958465.5);
    EXPECT_EQ(ToDate(-657434).serial, -657434);
    for (const Value& value : {Value(2958466), Value(-657436), Value("99999999"), Value(1e300)}) {
        EXPECT_EQ(RaisedBy([&] { ToDate(value); }), Automation::Overflow);
    }
}

TEST(Calendar, HasLeapYears) {
    EXPECT_TRUE(DateFromCalendar(2000, 2, 29));
    EXPECT_TRUE(DateFromCalendar(2024, 2, 29));
    EXPECT_FALSE(DateFromCalendar(1900, 2, 29));
    EXPECT_FALSE(DateFromCalendar(2023, 2, 29));
}

TEST(Calendar, EndsAtTheYears100And9999) {
    EXPECT_EQ(DateFromCalendar(100, 1, 1), Date{-657434});
    EXPECT_EQ(DateFromCalendar(9999, 12, 31), Date{2958465});
    EXPECT_FALSE(DateFromCalendar(99, 12, 31));
    EXPECT_FALSE(DateFromCalendar(10000, 1, 1));
    EXPECT_FALSE(DateFromCalendar(2020, 0, 1));
    EXPECT_FALSE(DateFromCalendar(2020, 1, 0));
    EXPECT_FALSE(DateFromCalendar(2020, -1, 1));
}

TEST(Calendar, CountsTheTimeForwardAlsoBeforeDayZero) {
    const CalendarTime time = ToCalendar(Date{-1.25});
    EXPECT_EQ(time.year, 1899);
    EXPECT_EQ(time.month, 12);
    EXPECT_EQ(time.day, 29);
    EXPECT_EQ(time.hour, 6);
    EXPECT_EQ(ToText(Date{-1.25}), "1899-12-29 06:00:00");
}

TEST(Calendar, GoesThereAndBackForEveryDayOfFourCenturies) {
    for (double serial = Day(1800, 1, 1).serial; serial <= Day(2200, 1, 1).serial; ++serial) {
        const CalendarTime day = ToCalendar(Date{serial});
        ASSERT_EQ(DateFromCalendar(day.year, day.month, day.day), Date{serial});
    }
}

TEST(Calendar, HoldsValuesThatNoConversionMakesAtItsEnds) {
    EXPECT_EQ(FormatIsoDate(Date{1e18}), "9999-12-31");
    EXPECT_EQ(FormatIsoDate(Date{-1e18}), "0100-01-01");
    EXPECT_EQ(FormatIsoDate(Date{std::nan("")}), "0100-01-01");
}

TEST(Calendar, IsFormattedWithDashesOrSlashes) {
    EXPECT_EQ(FormatIsoDate(Date{Day(2020, 9, 1).serial + 0.9}), "2020-09-01");
    EXPECT_EQ(FormatSlashDate(Day(2020, 9, 1)), "2020/09/01");
    EXPECT_EQ(FormatIsoDate(Day(987, 6, 5)), "0987-06-05");
}

TEST(Val, ReadsTheNumberAtTheHeadOfAText) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"", 0},
        {"abc", 0},
        {"10502xyz", 10502},
        {"1 2", 12},
        {" 1 2 x", 12},
        {"&H1F", 31},
        {"&O17", 15},
        {"&HFFFF", -1},
        {"&HFFFF&", 65535},
        {"&HFFFFFFFF", -1},
        {"&H", 0},
        {"1e3", 1000},
        {"1e", 1},
        {"1d2", 100},
        {"1e+x", 1},
        {".5", 0.5},
        {"5.", 5},
        {"-", 0},
        {"+", 0},
        {"-3.5kg", -3.5},
        {"- 7", -7},
        {"1,234", 1},
        {"(5)", 0},
        {"1.2.3", 1.2},
        {"1\t2\n3", 123},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Val(row.text), row.value) << row.text;
    }
}

TEST(Val, RaisesOverflowBeyondADouble) {
    EXPECT_EQ(RaisedBy([] { Val("1e999"); }), Automation::Overflow);
    EXPECT_EQ(RaisedBy([] { Val("-1e999"); }), Automation::Overflow);
    EXPECT_EQ(RaisedBy([] { Val("1e-999"); }), kNoError);
}

TEST(IsNumeric, HoldsForNumbersBooleansEmptyAndNumericText) {
    for (const Value& value :
         {Value(), Value(true), Value(1_i16), Value(1), Value(1.5F), Value(1.5), Value("(1)")}) {
        EXPECT_TRUE(IsNumeric(value));
    }
    for (const Value& value :
         {Value::Null(), Value::Nothing(), Value(Date{1}), Value(""), Value("2020-09-01")}) {
        EXPECT_FALSE(IsNumeric(value));
    }
}

TEST(Trimmed, DropsBlanksAndNothingElse) {
    EXPECT_EQ(Trimmed("  a b  "), "a b");
    EXPECT_EQ(Trimmed("   "), "");
    EXPECT_EQ(Trimmed("\ta\t"), "\ta\t");
    EXPECT_EQ(Trimmed("　a"), "　a");
}

}  // namespace
}  // namespace qor
