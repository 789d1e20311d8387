#include "frames/value_json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/conversions.h"
#include "platform/dictionary.h"
#include "support/raises.h"

namespace qor {
namespace {

const Value kValues[] = {
    Value(),
    Value::Null(),
    true,
    false,
    std::int16_t{0},
    std::numeric_limits<std::int16_t>::min(),
    std::numeric_limits<std::int16_t>::max(),
    std::int32_t{7},
    std::numeric_limits<std::int32_t>::min(),
    std::numeric_limits<std::int32_t>::max(),
    7.0,
    7.5,
    0.1,
    -0.0,
    1e300,
    std::numeric_limits<double>::denorm_min(),
    std::numeric_limits<double>::infinity(),
    -std::numeric_limits<double>::infinity(),
    0.1F,
    3.0F,
    std::numeric_limits<float>::max(),
    DateFromCalendar(2020, 9, 1).value(),
    Date{DateFromCalendar(2020, 9, 1)->serial + 0.75},
    Date{44075.123456789},
    Date{0.5},
    Date{-1.25},
    Date{1e300},
    "",
    " ",
    "客户：“甲”｜全角；",
    "a|b=c;d",
    "line\r\nbreak \"quoted\" \\ ' \t end",
    "$date",
    std::string_view("zero\0inside", 11),
};

TEST(ValueJson, TheVerySameValueComesBackFromAFile) {
    for (const Value& value : kValues) {
        const std::string text = PlainValueToJson(value).dump();
        const Value back = PlainValueFromJson(OrderedJson::parse(text));
        EXPECT_EQ(back.type(), value.type()) << text;
        EXPECT_TRUE(back == value) << text;
    }
}

TEST(ValueJson, NotANumberComesBackAsSuch) {
    const Value back = PlainValueFromJson(
        OrderedJson::parse(PlainValueToJson(std::numeric_limits<double>::quiet_NaN()).dump()));
    ASSERT_EQ(back.type(), Value::Type::Double);
    EXPECT_TRUE(std::isnan(back.number()));
}

TEST(ValueJson, DatesAreReadable) {
    EXPECT_EQ(PlainValueToJson(DateFromCalendar(2020, 9, 1).value()).dump(), R"({"$date":"2020-09-01"})");
}

TEST(ValueJson, ObjectsHaveNoPlaceInAScheme) {
    EXPECT_EQ(test::RaisedBy([] { PlainValueToJson(MakeRef<OrderedDictionary>()); }),
              Automation::TypeMismatch);
    EXPECT_EQ(test::RaisedBy([] { PlainValueToJson(Value::Nothing()); }), Automation::TypeMismatch);
}

TEST(ValueJson, WhatIsNoValueIsRefused) {
    for (const char* text :
         {"[]", "{}", R"({"$int16": 7.5})", R"({"$int16": "7"})", R"({"$date": 7})", R"({"$date": "no day"})",
          R"({"$double": "x"})", R"({"$other": 1})", R"({"$int16": 1, "$double": 2})"}) {
        EXPECT_EQ(test::RaisedBy([&] { PlainValueFromJson(OrderedJson::parse(text)); }),
                  Automation::TypeMismatch)
            << text;
    }
    for (const char* text : {"2147483648", "-2147483649", R"({"$int16": 32768})", "99999999999999999999"}) {
        const auto raised = test::RaisedBy([&] { PlainValueFromJson(OrderedJson::parse(text)); });
        // A number beyond all integers reads as a double.
        EXPECT_EQ(raised, std::string_view(text).size() == 20 ? test::kNoError : Automation::Overflow)
            << text;
    }
}

}  // namespace
}  // namespace qor
