#include "reports/other/ageing.h"

#include "platform/conversions.h"
#include "reports/other/ageing_dialog.h"

namespace qor {

namespace {

constexpr ColumnRow kFixedColumns[] = {
    {"往来单位代码$", "", "1", "FItemNumber", 1, 7},
    {"往来单位名称$", "", "1", "FItemName", 1, 7},
    {"金额$", "", "6", "FAmount", 1, 7},
};

constexpr RightItem kCustomers[] = {{"t_organization", "B", "1"}};
constexpr RightItem kSuppliers[] = {{"t_Supplier", "B", "8"}};

constexpr ReportDescription kAgeing{
    .number = 10530,
    .name = "账龄分析表",
    .rptProperty = 6,
    .frozenColumn = 4,
    .defaultIdentifier = 10530,
    .family = Family::DialogOnce,
    .checksAccess = false,
    .sendsLongNumber = false,
    .rightsStep = RightsStep::InsideColumnTable,
    .dataComponent = "QORMArApRpt.Data10530",
    .dataMember = "GetRpt10530Data",
    .releasesComponentLast = true,
};

/// Where the user profile remembers that the user has seen the reminder.
constexpr std::string_view kProduct = "QOR", kSection = "ARAP", kReminderSeen = "ZLFXB";

class Ageing final : public Report {
 public:
    explicit Ageing(Process& process) : Report(process, kAgeing) { process.ageingLongNumber = m_LongNumber; }

 private:
    Ref<FilterDialog> NewDialog() override { return MakeRef<AgeingDialog>(process_); }
    bool BeforeDialog() override;
    void BuildTitle() override { m_Result->Put("RptTitleObject", process_.platform.NewDictionary()); }
    void BuildColumns() override;
    std::span<const RightItem> RightItems() const override;
    void TakeFetchError(const Error& error) override;
};

/// Reminds each user once, whatever he then does in the dialog.
bool Ageing::BeforeDialog() {
    const Value seen = process_.userProfile.GetUserProfileValue(kProduct, kSection, kReminderSeen, "0");
    if (seen == Value("0")) {
        process_.platform.windows().MessageBox(
            ResText("请先审核所有收付款类单据，以确保应收或应付账龄数据准确分析!"), ResText("信息提示"),
            kInformationIcon);
        process_.userProfile.SaveUserProfileValue(kProduct, kSection, kReminderSeen, "1");
    }
    return true;
}

void Ageing::BuildColumns() {
    AddColumns(kFixedColumns);
    const Ref<Vector> groups = As<Vector>(FilterValue("Vect"));
    for (std::int32_t i = 1; groups && i <= groups->Count(); ++i) {
        const Ref<Dictionary> group = As<Dictionary>(groups->Item(i));
        if (!group) Raise(Automation::ObjectNotSet);
        const std::string caption = JoinedText(group->Get("FCaption")) + "$";
        const std::string field = "F" + JoinedText(group->Get("FValue"));
        AddColumn({caption, "", "6", field, 1, 7});
    }
}

std::span<const RightItem> Ageing::RightItems() const {
    return Val(ToText(FilterValue("cmbClassType"))) == 0 ? kCustomers : kSuppliers;
}

/// The data set of the run before stays, and the error's source is not told.
void Ageing::TakeFetchError(const Error& error) {
    m_Result->Put("OK", false);
    m_Result->Put("Error", error.description());
}

}  // namespace

const ReportDescription& kRpt10530 = kAgeing;

Ref<Report> MakeRpt10530(Process& process) { return MakeRef<Ageing>(process); }

}  // namespace qor
