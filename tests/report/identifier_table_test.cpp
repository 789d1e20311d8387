#include "report/identifier_table.h"

#include <gtest/gtest.h>

#include <string>

namespace qor {
namespace {

TEST(UsesAccountStartDate, IsOneForTheReportsThatStartWithTheAccountSet) {
    for (const char* identifier :
         {"-1",    "10501", "10507", "10508", "10521",  "10522", "10523", "10524", "10530",  "10211",
          "10212", "10219", "10220", "10229", "10230",  "10301", "10302", "10307", "10308",  "10309",
          "10325", "10332", "10311", "10312", "10313",  "10314", "10331", "10334", "103013", "10335",
          "127",   "128",   "135",   "137",   "138",    "10401", "10402", "10403", "10411",  "10412",
          "10413", "10414", "10415", "10416", "10417",  "101",   "10422", "10423", "105",    "106",
          "111",   "114",   "181",   "182",   "100303", "10424"}) {
        EXPECT_EQ(UsesAccountStartDate(identifier), 1) << identifier;
    }
}

TEST(UsesAccountStartDate, IsZeroForTheReportsWithOtherBounds) {
    for (const char* identifier : {"10502", "10503", "10504", "10505", "10506", "10525", "10526", "10215",
                                   "10216", "10227", "10317", "10318", "10333"}) {
        EXPECT_EQ(UsesAccountStartDate(identifier), 0) << identifier;
    }
}

TEST(UsesAccountStartDate, IsZeroForEveryIdentifierThatNobodyListed) {
    for (const char* identifier : {"10527", "10528", "10529", "10531", "10532", "", " ", "1", "10", "0",
                                   "99999", "1050", "105011", "Rpt10501"}) {
        EXPECT_EQ(UsesAccountStartDate(identifier), 0) << identifier;
    }
}

TEST(UsesAccountStartDate, ComparesTextsAfterDroppingBlanks) {
    EXPECT_EQ(UsesAccountStartDate("  10501  "), 1);
    EXPECT_EQ(UsesAccountStartDate(" -1 "), 1);
    EXPECT_EQ(UsesAccountStartDate("010501"), 0);
    EXPECT_EQ(UsesAccountStartDate("10501.0"), 0);
    EXPECT_EQ(UsesAccountStartDate("- 1"), 0);
    EXPECT_EQ(UsesAccountStartDate("\t10501"), 0);
}

}  // namespace
}  // namespace qor
