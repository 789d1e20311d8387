// Single keys of the cash reports' filter.
#include <gtest/gtest.h>

#include "embedded/built_firm.h"
#include "embedded/cash_rows.h"

namespace qor {
namespace {

using test::BuiltFirm;
using test::Filter;

TEST(CashFilter, TheSampleFirmHasMoneyOfOtherClaimsToShow) {
    AccountSet set(test::SampleFile());
    const auto rows = [&](const char* withOtherClaims) {
        return CashJournal(set, *Filter({{"IncludARAP", withOtherClaims}}))->RowCount();
    };
    EXPECT_GT(rows("1"), rows("0"));
}

TEST(CashFilter, AnAccountIsFoundByAPartOfItsNameInEitherCase) {
    BuiltFirm firm;
    firm.database().Run("UPDATE t_Item SET FName='Bank of 100% Öl' WHERE FItemID=" +
                        std::to_string(firm.Account(0)));
    AccountSet set = firm.Open();
    for (const char* name : {"BANK", "0% ö", "100% Öl"}) {
        const bool isIts = std::string_view(name) != "0% ö";  // only letters of ASCII have two cases here
        EXPECT_EQ(CashLedger(set, *Filter({{"AcctName", name}}))->RowCount(), isIts ? 2 : 0) << name;
    }
}

}  // namespace
}  // namespace qor
