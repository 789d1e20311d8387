#include "report/identifier_table.h"

#include <algorithm>

#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::string_view kFromAccountStart[] = {
    "-1",    "10501", "10507", "10508", "10521",  "10522", "10523", "10524", "10530",  "10211",
    "10212", "10219", "10220", "10229", "10230",  "10301", "10302", "10307", "10308",  "10309",
    "10325", "10332", "10311", "10312", "10313",  "10314", "10331", "10334", "103013", "10335",
    "127",   "128",   "135",   "137",   "138",    "10401", "10402", "10403", "10411",  "10412",
    "10413", "10414", "10415", "10416", "10417",  "101",   "10422", "10423", "105",    "106",
    "111",   "114",   "181",   "182",   "100303", "10424",
};

// Named, though every identifier outside the first list has the same answer: these were decided one by one.
constexpr std::string_view kFromOtherBounds[] = {
    "10502", "10503", "10504", "10505", "10506", "10525", "10526",
    "10215", "10216", "10227", "10317", "10318", "10333",
};

constexpr bool StandsInBoth() {
    return std::ranges::any_of(kFromOtherBounds, [](std::string_view identifier) {
        return std::ranges::find(kFromAccountStart, identifier) != std::end(kFromAccountStart);
    });
}
static_assert(!StandsInBoth());

}  // namespace

std::int32_t UsesAccountStartDate(std::string_view RptID) {
    return std::ranges::find(kFromAccountStart, Trimmed(RptID)) != std::end(kFromAccountStart) ? 1 : 0;
}

}  // namespace qor
