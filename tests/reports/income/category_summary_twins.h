// The income and the expense summary side by side, for the tests of the report and of its dialog.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "dialogs/plain_dialog_fixture.h"

namespace qor::test {

struct SummaryTwin {
    std::string reportClass, detailClass, name, dialog;
    std::string typeCaption, forbiddenCaption, groupKey, groupCaption, otherCaption;
    std::int32_t typeClass;
    std::string showType;                // without the last bar
    std::string beginDateName;           // above the grid
    std::string partyNumber, partyName;  // columns by party
    std::string level, receive, settle;  // captions of columns
    std::string typeRange;               // caption above the grid
    std::string partyField, beginParty, endParty;
};

inline void PrintTo(const SummaryTwin& twin, std::ostream* out) { *out << twin.reportClass; }

inline const SummaryTwin kSummaryTwins[] = {
    {
        .reportClass = "Rpt10521",
        .detailClass = "Rpt10522",
        .name = "收入类别汇总表",
        .dialog = "frmFilter10521",
        .typeCaption = "收入类别:",
        .forbiddenCaption = "显示禁用收入类别",
        .groupKey = "chkGrouyByCust",
        .groupCaption = "按客户汇总",
        .otherCaption = "包括其他应收",
        .typeClass = 1121,
        .showType = "InvoiceStyle,0|客户,0",
        .beginDateName = "DtpEDate",
        .partyNumber = R"("客户代码$" "" "1" "FCustNumber" int16(1) False)",
        .partyName = R"("客户名称$" "" "1" "FCustName" int16(1) False)",
        .level = "收入级别",
        .receive = "应收金额$",
        .settle = "收款结算$",
        .typeRange = "收入类别范围：",
        .partyField = "FCustNumber",
        .beginParty = "BCustNumber",
        .endParty = "ECustNumber",
    },
    {
        .reportClass = "Rpt10523",
        .detailClass = "Rpt10524",
        .name = "支出类别汇总表",
        .dialog = "frmFilter10523",
        .typeCaption = "支出类别:",
        .forbiddenCaption = "显示禁用支出类别",
        .groupKey = "chkGrouyBySupply",
        .groupCaption = "按供应商汇总",
        .otherCaption = "包括其他应付",
        .typeClass = 1122,
        .showType = "InvoiceStyle,0|供应商,0",
        .beginDateName = "DtpBDate",
        .partyNumber = R"("供应商代码$" "" "1" "FSupplyNumber" int16(1) False)",
        .partyName = R"("供应商名称$" "" "1" "FSupplyName" int16(1) False)",
        .level = "支出级别",
        .receive = "应付金额$",
        .settle = "费用结算$",
        .typeRange = "支出类别范围：",
        .partyField = "FSupplyNumber",
        .beginParty = "BSupplyNumber",
        .endParty = "ESupplyNumber",
    },
};

/// A test that holds for both.
class SummaryTest : public PlainDialogTest, public testing::WithParamInterface<SummaryTwin> {
 protected:
    void Filter(std::function<void(Person&)> person) {
        PlainDialogTest::Filter(GetParam().reportClass, std::move(person));
    }
    std::int32_t number() const { return ToInt32(GetParam().reportClass.substr(3)); }
    void LevelsAreDeep(const Value& deepest) {
        host.platform.Component("QORMArApRpt.Data").Answers("GetItemMaxLevel", deepest);
    }
};

}  // namespace qor::test
