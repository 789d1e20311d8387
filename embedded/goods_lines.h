// The goods lines of bills, as reports show them below a bill.
#pragma once

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/item_texts.h"

namespace qor {

/// What all lines of one article share.
struct LineGoods {
    const ItemTexts::Texts* item = nullptr;
    const ItemTexts::Texts* unit = nullptr;  // the base unit
    Value model = "";
};

struct GoodsLineRow {
    const LineGoods* goods = nullptr;
    const ItemTexts::Texts* shownUnit = nullptr;  // the unit that the line was entered in
    Value aux, batch;
    std::int64_t quantity = 0, price = 0;  // of the base unit, in ten-thousandths
    std::int64_t showRate = 1;             // base units in the shown unit
    std::int64_t amount = 0;               // cents

    double Quantity() const { return static_cast<double>(quantity) / kTenThousandths; }
    double Price() const { return static_cast<double>(price) / kTenThousandths; }
    /// The same in the shown unit.
    double ShownQuantity() const { return static_cast<double>(quantity) / (Rate() * kTenThousandths); }
    double ShownPrice() const { return static_cast<double>(price) * Rate() / kTenThousandths; }
    double Rate() const { return showRate < 1 ? 1 : static_cast<double>(showRate); }

    static constexpr double kTenThousandths = 10000;
};

/// The lines of many bills, read ahead of the rows that show them: bills come by party and day, their lines
/// lie by bill, so that one pass in the order of the book reads each page once.
class GoodsLines {
 public:
    /// `bills` by id, in any order, with or without goods.
    GoodsLines(AccountSet& set, bool shortNumbers, std::vector<std::int64_t> bills);

    /// The lines of one of the bills, in their order. Valid as long as this object.
    std::span<const GoodsLineRow> Of(std::int64_t bill) const;

 private:
    void Read(AccountSet& set);
    void ReadLine(const Statement& found);
    const LineGoods& GoodsOf(std::int64_t id);

    ItemTexts items_;
    SharedTexts texts_;
    Statement article_;
    std::unordered_map<std::int64_t, LineGoods> goods_;
    std::vector<std::int64_t> bills_;  // by id, each once
    std::vector<std::size_t> ends_;    // behind the last line of each bill
    std::vector<GoodsLineRow> lines_;  // by bill
};

/// The bills of all accounts.
template <class Account>
std::vector<std::int64_t> BillsOf(const std::vector<Account>& accounts) {
    std::vector<std::int64_t> bills;
    for (const Account& account : accounts) {
        for (const auto& bill : account.bills) {
            bills.push_back(bill.bill);
        }
    }
    return bills;
}

}  // namespace qor
