#include "embedded/sample_firm.h"

#include <algorithm>
#include <map>
#include <set>

#include "embedded/bill_kinds.h"
#include "embedded/sample_names.h"

namespace qor {

namespace {

/// `number` with at least `width` digits.
std::string Digits(std::int64_t number, std::size_t width) {
    std::string digits = std::to_string(number);
    return digits.size() >= width ? digits : std::string(width - digits.size(), '0') + digits;
}

class FirmMaker {
 public:
    FirmMaker(Database& database, Dice& dice, std::int64_t bills)
        : dice_(dice),
          bills_(bills),
          item_(database, "INSERT INTO t_Item VALUES(?,?,?,?,?,?,?,?)"),
          party_(database, "INSERT INTO t_Party VALUES(?,?,?,?,?,?,?)"),
          match_(database, "UPDATE t_Party SET FMatchSupplyID=?2 WHERE FItemID=?1"),
          employee_(database, "INSERT INTO t_Employee VALUES(?,?)"),
          account_(database, "INSERT INTO t_Account VALUES(?,?,?)"),
          goods_(database, "INSERT INTO t_Goods VALUES(?,?,?,?,?,?)"),
          user_(database, "INSERT INTO t_User VALUES(?,?,?)") {}

    SampleFirm Make() {
        MakeUsers();
        MakeSmallLists();
        MakeDepartmentsAndEmployees();
        firm_.incomeClasses = MakeClasses(item_class::kIncome, kSampleIncomeClasses);
        firm_.expenseClasses = MakeClasses(item_class::kExpense, kSampleExpenseClasses);
        MakeAccounts();
        MakeGoods();
        MakeSuppliers();
        MakeCustomers();
        return std::move(firm_);
    }

 private:
    /// Adds an item; its parent is the category whose code stands ahead of the last point.
    std::int64_t AddItem(std::int32_t itemClass, const std::string& code, std::string_view name, bool detail,
                         bool disabled = false) {
        const std::int64_t id = nextItem_++;
        const std::size_t point = code.rfind('.');
        const auto level = 1 + std::ranges::count(code, '.');
        byCode_[{itemClass, code}] = id;
        item_.With(id, itemClass, code, name, level, nullptr, detail, disabled);
        if (point != std::string::npos) item_.Bind(6, byCode_.at({itemClass, code.substr(0, point)}));
        item_.Run();
        return id;
    }

    void MakeUsers() {
        for (const SampleUser& user : kSampleUsers) {
            user_.With(user.number, user.name, user.allRights).Run();
            firm_.users.push_back(user.number);
        }
    }

    void MakeSmallLists() {
        AddItem(item_class::kCurrency, "RMB", "人民币", true);
        AddItem(item_class::kCurrency, "USD", "美元", true);
        AddItem(item_class::kSettlementType, "01", "现金", true);
        AddItem(item_class::kSettlementType, "02", "转账支票", true);
        AddItem(item_class::kSettlementType, "03", "电汇", true);
    }

    void MakeDepartmentsAndEmployees() {
        std::vector<std::int64_t> departments;
        for (const SampleClass& row : kSampleDepartments) {
            const std::int64_t id = AddItem(item_class::kDepartment, std::string(row.code), row.name,
                                            row.typicalYuan > 0, row.disabled);
            if (row.typicalYuan > 0 && !row.disabled) departments.push_back(id);
        }
        const std::int64_t count = std::clamp<std::int64_t>(10 + bills_ / 25000, 10, 60);
        for (std::int64_t i = 1; i <= count; ++i) {
            const std::string name = PersonName();
            const std::int64_t id = AddItem(item_class::kEmployee, Digits(i, 3), name, true, i % 9 == 0);
            const std::int64_t department = dice_.Pick(departments);
            employee_.With(id, department).Run();
            if (i % 9 != 0) firm_.employees.push_back({id, department});
        }
    }

    std::vector<SampleFirm::Class> MakeClasses(std::int32_t itemClass, std::span<const SampleClass> rows) {
        std::vector<SampleFirm::Class> choices;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const SampleClass& row = rows[i];
            const bool category =
                i + 1 < rows.size() && rows[i + 1].code.starts_with(std::string(row.code) + ".");
            const std::int64_t id =
                AddItem(itemClass, std::string(row.code), row.name, !category, row.disabled);
            if (!category)
                choices.push_back({id, std::string(row.name), row.typicalYuan * 100, row.disabled});
        }
        return choices;
    }

    void MakeAccounts() {
        for (const SampleClass& row : kSampleAccounts) {
            const bool detail = row.typicalYuan > 0;
            const std::int64_t id =
                AddItem(item_class::kAccount, std::string(row.code), row.name, detail, row.disabled);
            if (!detail) continue;
            account_.With(id, row.code.starts_with("02"), std::int64_t{row.typicalYuan} * 100).Run();
            if (!row.disabled) firm_.accounts.push_back(id);
        }
    }

    std::int64_t UnitOf(std::string_view name) {
        const auto found = units_.find(name);
        if (found != units_.end()) return found->second;
        const std::string code = Digits(static_cast<std::int64_t>(units_.size()) + 1, 2);
        return units_[name] = AddItem(item_class::kUnit, code, name, true);
    }

    void MakeGoods() {
        for (const SampleGoods& row : kSampleGoods) {
            const std::int64_t id =
                AddItem(item_class::kGoods, std::string(row.code), row.name, row.priceFen > 0);
            if (row.priceFen == 0) continue;
            const std::int64_t unit = UnitOf(row.unit), showUnit = UnitOf(row.showUnit);
            goods_.With(id, row.model, unit, showUnit, row.showRate, std::int64_t{row.priceFen} * 100).Run();
            firm_.goods.push_back({id, unit, showUnit, row.showRate, row.priceFen, row.unit == "公斤"});
        }
    }

    std::string PersonName() {
        const std::string surname(dice_.Pick(kSampleSurnames));
        return surname + std::string(dice_.Pick(kSampleGivenNames));
    }

    /// A name that no other party has.
    std::string CompanyName(std::string_view city) {
        for (;;) {
            std::string name(city);
            name += dice_.Pick(kSampleWords);
            if (taken_.size() > 2000) name += dice_.Pick(kSampleSurnames);
            name += dice_.Pick(kSampleTrades);
            name += dice_.Pick(kSampleEndings);
            if (taken_.insert(name).second) return name;
        }
    }

    /// The users who see a party: the administrator always; the clerk of its region; a few others.
    std::string RightUsers(std::size_t region) {
        std::string users = "1";
        if (dice_.Chance(60)) return users;
        users.append(",").append(std::to_string(firm_.users[1 + region % (firm_.users.size() - 2)]));
        if (dice_.Chance(150)) users += ",42";
        return users;
    }

    SampleFirm::Party AddParty(std::int32_t itemClass, const std::string& code, const std::string& name,
                               std::size_t region) {
        const bool disabled = dice_.Chance(30);
        const std::int64_t id = AddItem(itemClass, code, name, true, disabled);
        const std::int64_t limitYuan = dice_.Chance(200) ? 0 : dice_.Between(1, 60) * 10000;
        const auto creditDays = static_cast<std::int32_t>(dice_.Between(0, 6) * 15);
        const std::string rights = RightUsers(region);
        const std::string contact = PersonName();
        const std::string phone = std::to_string(13000000000 + dice_.Between(0, 999999999));
        party_.With(id, rights, 0, limitYuan * 100, creditDays, contact, phone).Run();
        return {
            .id = id, .employee = dice_.Index(firm_.employees.size()), .creditDays = creditDays, .open = {}};
    }

    void MakeSuppliers() {
        for (const SampleClass& group : kSampleSupplierGroups) {
            AddItem(item_class::kSupplier, std::string(group.code), group.name, false);
        }
        const std::int64_t count = std::clamp<std::int64_t>(bills_ / 800, 12, 1200);
        std::map<std::string, std::int64_t> used;
        for (std::int64_t i = 0; i < count; ++i) {
            const std::size_t group = dice_.Index(kSampleSupplierGroups.size());
            const std::string prefix(kSampleSupplierGroups[group].code);
            const std::string code = prefix + "." + Digits(++used[prefix], 3);
            const std::string name = CompanyName(dice_.Pick(dice_.Pick(kSampleRegions).cities));
            supplierNames_.push_back(name);
            firm_.suppliers.push_back(AddParty(item_class::kSupplier, code, name, group));
        }
    }

    /// The category of a customer's code: its region, or its city where the region is parted by cities.
    std::string CustomerCategory(const SampleRegion& region, std::size_t city) {
        const std::string code(region.code);
        if (!region.byCity) return code;
        return code + "." + Digits(static_cast<std::int64_t>(city) + 1, 2);
    }

    void MakeCustomerCategories() {
        for (const SampleRegion& region : kSampleRegions) {
            AddItem(item_class::kCustomer, std::string(region.code), region.name, false);
            for (std::size_t city = 0; region.byCity && city < region.cities.size(); ++city) {
                AddItem(item_class::kCustomer, CustomerCategory(region, city), region.cities[city], false);
            }
        }
    }

    void MakeCustomers() {
        MakeCustomerCategories();
        const std::int64_t count = std::clamp<std::int64_t>(bills_ / 200, 30, 5000);
        std::map<std::string, std::int64_t> used;
        for (std::int64_t i = 0; i < count; ++i) {
            const std::size_t region = dice_.Index(kSampleRegions.size());
            const std::size_t city = dice_.Index(kSampleRegions[region].cities.size());
            const std::string category = CustomerCategory(kSampleRegions[region], city);
            const std::string code = category + "." + Digits(++used[category], 3);
            const bool odd = static_cast<std::size_t>(i) < kSampleOddNames.size();
            const bool matched = !odd && i % 12 == 7 && nextMatch_ < firm_.suppliers.size();
            const std::string name = odd       ? std::string(kSampleOddNames[static_cast<std::size_t>(i)])
                                     : matched ? supplierNames_[nextMatch_]
                                               : CompanyName(kSampleRegions[region].cities[city]);
            firm_.customers.push_back(AddParty(item_class::kCustomer, code, name, region));
            if (matched) Match();
        }
    }

    /// Links the customer made last to the next supplier.
    void Match() {
        SampleFirm::Party& customer = firm_.customers.back();
        SampleFirm::Party& supplier = firm_.suppliers[nextMatch_];
        customer.match = nextMatch_++;
        supplier.match = firm_.customers.size() - 1;
        match_.With(customer.id, supplier.id).Run();
    }

    Dice& dice_;
    std::int64_t bills_;
    Statement item_, party_, match_, employee_, account_, goods_, user_;
    SampleFirm firm_;
    std::int64_t nextItem_ = 1001;
    std::map<std::pair<std::int32_t, std::string>, std::int64_t> byCode_;
    std::map<std::string_view, std::int64_t> units_;
    std::set<std::string> taken_;
    std::vector<std::string> supplierNames_;
    std::size_t nextMatch_ = 0;
};

}  // namespace

SampleFirm MakeSampleFirm(Database& database, Dice& dice, std::int64_t bills) {
    return FirmMaker(database, dice, bills).Make();
}

}  // namespace qor
