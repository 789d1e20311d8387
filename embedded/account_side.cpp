#include "embedded/account_side.h"

#include <string>

#include "platform/conversions.h"

namespace qor {

namespace {

constexpr std::int32_t kHeadFields = 6;

/// UserFormula1 to UserFormula6. A text that is "" asks for nothing.
std::vector<HeadFieldText> HeadFieldsOf(const ReportFilter& filter) {
    std::vector<HeadFieldText> fields;
    for (std::int32_t index = 1; index <= kHeadFields; ++index) {
        const std::string number = std::to_string(index);
        std::string text = filter.Code("UserFormula" + number);
        if (text.empty()) continue;
        fields.push_back({index, std::move(text), filter.Flag("CheckFormula" + number)});
    }
    return fields;
}

}  // namespace

LedgerQuery AccountQuery(const AccountSide& side, const Dictionary& dictionary) {
    const ReportFilter filter(dictionary);
    LedgerQuery query = LedgerQueryOf(side.side, dictionary);
    query.parties = {filter.Code(side.firstPartyKey), filter.Code(side.lastPartyKey)};
    query.switches = {.others = filter.Flag(side.includeOthersKey, true),
                      .rebates = filter.Flag("IncludeFL", true),
                      .consignments = filter.Flag("IncludeWT"),
                      .estimates = filter.Flag("IncludeGJ")};
    query.headFields = HeadFieldsOf(filter);
    return query;
}

}  // namespace qor
