#include "reports/other/statement_dialog.h"

#include "platform/conversions.h"

namespace qor {

namespace {

// clang-format off
constexpr ItemBox kItems[] = {
    {"Label3",  "往来单位:",   1},
    {"Label4",  "至: ",        1, 0, true},
    {"Label6",  "部门代码:",   2},
    {"Label7",  "至: ",        2, 0, true},
    {"Label11", "经手人代码:", 3},
    {"Label12", "至: ",        3, 0, true},
};

constexpr ItemBox kCommonItems[] = {
    {"Label10", "往来单位:", 1},
    {"Label9",  "至: ",      1, 0, true},
};

constexpr PartyList kParties{"lblByItem", "cboByItem", "核算项目:"};
constexpr PartyList kCommonParties{"lblByCItem", "cboByCItem", "核算项目:"};

constexpr SchemeField kFields[] = {
    {"BDate",           "DtpBDate",           FieldDefault::Today},
    {"EDate",           "DtpEDate",           FieldDefault::Today},
    {"BItemNumber",     "txtItem(0)"},
    {"EItemNumber",     "txtItem(1)"},
    {"BDeptNumber",     "txtItem(2)",         FieldDefault::Leave, FieldSource::Trimmed},
    {"EDeptNumber",     "txtItem(3)",         FieldDefault::Leave, FieldSource::Trimmed},
    {"BEmpNumber",      "txtItem(4)",         FieldDefault::Leave, FieldSource::Trimmed},
    {"EEmpNumber",      "txtItem(5)",         FieldDefault::Leave, FieldSource::Trimmed},
    {"ShowDetail",      "ChkShowDetail",      FieldDefault::Zero},
    {"ShowCheckBill",   "ChkShowCheckBill",   FieldDefault::One},
    {"NotShowBalZero",  "chkNotShowBalZero",  FieldDefault::One},
    {"NotShowBillZero", "chkNotShowBillZero", FieldDefault::One},
    {"IncludeGJ",       "chkIncludeGJ",       FieldDefault::Zero},
    {"PrintByPg",       "chkPrintByPage",     FieldDefault::Zero},
    {"ByItem",          "cboByItem",          FieldDefault::FirstEntry},
    {"NotShowZero",     "chkNotShowZero",     FieldDefault::Zero},
    {.key = "UserID",                         .source = FieldSource::UserID},
    {.key = "RptID",                          .source = FieldSource::Own},
    {"CheckState",      "cmbCheckState",      FieldDefault::FirstEntry},
};

constexpr SchemeField kCommonFields[] = {
    {"BDate",       "BEGDate"},
    {"EDate",       "ENDDate"},
    {"ByItem",      "cboByCItem"},
    {"BItemNumber", "txtItem(6)"},
    {"EItemNumber", "txtItem(7)"},
};

constexpr CheckBoxRow kChecks[] = {
    {"ChkShowDetail",      "包括货品明细项"},
    {"ChkShowCheckBill",   "包括核销单"},
    {"chkNotShowBalZero",  "余额为零不显示"},
    {"chkNotShowBillZero", "发生额为零不显示"},
    {"chkNotShowZero",     "无发生额且余额为零不显示"},
    {"chkPrintByPage",     "分页打印"},
    {"chkIncludeGJ",       "包括估价业务"},
};

constexpr std::string_view kNotInType1[] = {"chkIncludeGJ"};
// clang-format on

constexpr SchemeDialogDescription kDialog{
    .formName = "frmFilter10506",
    .items = kItems,
    .commonItems = kCommonItems,
    .fields = kFields,
    .commonFields = kCommonFields,
    .checks = kChecks,
    .notInType1 = kNotInType1,
    .commonPanel = "FrameSearch",
    .parties = &kParties,
    .commonParties = &kCommonParties,
};

constexpr std::int32_t kCustomers = 1, kSuppliers = 8;  // item classes

bool IsOfParty(const SchemeField& field) { return field.key == "BItemNumber" || field.key == "EItemNumber"; }

}  // namespace

StatementDialog::StatementDialog(Process& process)
    : SchemeDialog(process, kDialog),
      chkIncludeGJ(The<CheckBox>("chkIncludeGJ")),
      chkPrintByPage(The<CheckBox>("chkPrintByPage")) {
    partyList_->onClick = [this] { PartiesChosen(*partyList_, items_.firstIndex()); };
    commonPartyList_->onClick = [this] { PartiesChosen(*commonPartyList_, commonItems_.firstIndex()); };
    chkPrintByPage.onClick = [this] { printByPageTouched_ = true; };
    FinishLayout();
}

void StatementDialog::OnLoad() {
    loading_ = true;
    SchemeDialog::OnLoad();
    loading_ = false;
}

void StatementDialog::FillLists() {
    for (DropDown* parties : {partyList_.get(), commonPartyList_.get()}) {
        parties->Clear();
        parties->AddItem(ResText("客户"));
        parties->AddItem(ResText("供应商"));
        parties->SetListIndex(0);
    }
}

void StatementDialog::PartiesChosen(const DropDown& parties, std::size_t firstBox) {
    // Customers have no estimated purchases.
    const bool ofCustomers = parties.listIndex() == 0;
    if (ofCustomers) chkIncludeGJ.SetValue(0);
    chkIncludeGJ.SetEnabled(!ofCustomers);
    if (loading_) return;
    ItemsWith(firstBox).txtItem(firstBox).SetText("");
    ItemsWith(firstBox).txtItem(firstBox + 1).SetText("");
}

bool StatementDialog::Writes(const SchemeField& field) const {
    if (!IsOfParty(field)) return true;
    const bool isCommon = Find(field.control)->container() == &PictureCommon;
    const DropDown& parties = isCommon ? *commonPartyList_ : *partyList_;
    return parties.listIndex() == 0 || parties.listIndex() == 1;
}

Value StatementDialog::OwnValue(std::string_view) const { return std::int16_t{10506}; }

void StatementDialog::LoadField(const SchemeField& field, const Dictionary& scheme) {
    if (field.control != "cboByItem") return SchemeDialog::LoadField(field, scheme);
    IgnoringErrors([&] { partyList_->SetListIndex(ToInt32(scheme.GetOr(field.key, 0)) == 0 ? 0 : 1); });
    // The selection has emptied the boxes that were read before it.
    for (const SchemeField& again : kFields) {
        if (IsOfParty(again)) IgnoringErrors([&] { SchemeDialog::LoadField(again, scheme); });
    }
}

std::int32_t StatementDialog::ItemClassOf(std::size_t index) const {
    const ItemBoxes& boxes = ItemsWith(index);
    if (index > boxes.firstIndex() + 1) return SchemeDialog::ItemClassOf(index);
    const DropDown& parties = &boxes == &items_ ? *partyList_ : *commonPartyList_;
    switch (parties.listIndex()) {
        case 0:
            return kCustomers;
        case 1:
            return kSuppliers;
        default:
            return 0;
    }
}

void StatementDialog::Confirmed() {
    if (!chkPrintByPage.IsChecked() && !printByPageTouched_) return;
    // A usage record of paged printing; the filter does not depend on it.
    IgnoringErrors([this] {
        const Ref<Object> frameData = process_.platform.CreateComponent("ZEP_APFC.FrameData");
        frameData->Put("PropString", process_.session.GetPropsString());
        frameData->Call("WriteMGLog", "C001C032", chkPrintByPage.IsChecked() ? "RPT1050601" : "RPT1050602");
    });
}

}  // namespace qor
