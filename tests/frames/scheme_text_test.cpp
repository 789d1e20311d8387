#include "frames/scheme_text.h"

#include <gtest/gtest.h>

#include "platform/conversions.h"

namespace qor {
namespace {

constexpr std::string_view kAwkward[] = {
    "",
    " ",
    "101",
    "a=b",
    "a;b",
    "=;=;",
    "\\",
    "\\\\;",
    "ends in a backslash\\",
    "line\r\nbreak\ttab",
    "\"quoted\" 'single'",
    "客户：全部｜“甲”；",
    "客户                                                  |FCustNumber",
    "{\"$date\": \"2020-09-01\"}",
};

TEST(SchemeText, AnyTextComesBack) {
    std::string scheme;
    for (std::size_t i = 0; i < std::size(kAwkward); ++i) {
        PutIntoSchemeText(scheme, "K" + std::to_string(i), kAwkward[i]);
    }
    for (std::size_t i = 0; i < std::size(kAwkward); ++i) {
        EXPECT_EQ(FindInSchemeText(scheme, "K" + std::to_string(i)), kAwkward[i]) << scheme;
    }
}

TEST(SchemeText, AnyKeyIsFoundAgain) {
    std::string scheme;
    for (const std::string_view key : kAwkward) {
        PutIntoSchemeText(scheme, key, "value of " + std::string(key));
    }
    for (const std::string_view key : kAwkward) {
        EXPECT_EQ(FindInSchemeText(scheme, key), "value of " + std::string(key)) << scheme;
    }
    EXPECT_EQ(ParseSchemeText(scheme).size(), std::size(kAwkward));
}

TEST(SchemeText, AMissingKeyReadsAsEmpty) {
    EXPECT_EQ(FindInSchemeText("", "BDate"), "");
    EXPECT_EQ(FindInSchemeText("BDate=1", "EDate"), "");
    EXPECT_EQ(FindInSchemeText("BDate=1", "bdate"), "");
}

TEST(SchemeText, ASecondPutReplacesInPlace) {
    std::string scheme;
    PutIntoSchemeText(scheme, "A", "1");
    PutIntoSchemeText(scheme, "B", "2");
    PutIntoSchemeText(scheme, "C", "3");
    PutIntoSchemeText(scheme, "B", "two; and more");
    PutIntoSchemeText(scheme, "C", "");
    PutIntoSchemeText(scheme, "A", "one");
    const SavedScheme expected{{"A", "one"}, {"B", "two; and more"}, {"C", ""}};
    EXPECT_EQ(ParseSchemeText(scheme), expected);
}

TEST(SchemeText, ValuesBecomeTextAsTheSystemWritesThem) {
    const SavedScheme scheme{{"Date", DateFromCalendar(2020, 9, 1).value()},
                             {"Index", std::int16_t{2}},
                             {"Option", true},
                             {"Amount", 7.5},
                             {"Gone", Value::Null()},
                             {"Unset", Value()}};
    const SavedScheme texts{{"Date", "2020-09-01"}, {"Index", "2"}, {"Option", "True"},
                            {"Amount", "7.5"},      {"Gone", ""},   {"Unset", ""}};
    EXPECT_EQ(ParseSchemeText(MakeSchemeText(scheme)), texts);
}

TEST(SchemeText, TextThatIsNoSchemeDoesNotHarm) {
    for (const char* text : {";", "=", ";;;", "key", "key;", "\\", "a=\\"}) {
        EXPECT_NO_THROW(ParseSchemeText(text)) << text;
        EXPECT_EQ(FindInSchemeText(text, "missing"), "") << text;
    }
}

}  // namespace
}  // namespace qor
