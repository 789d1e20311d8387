// The goods lines of bills, as reports show them below a bill.
#pragma once

#include <cstdint>
#include <vector>

#include "embedded/account_set.h"
#include "embedded/item_texts.h"

namespace qor {

struct GoodsLineRow {
    const ItemTexts::Texts* item = nullptr;
    Value model, aux, batch;
    Value unit, showUnit;
    std::int64_t quantity = 0, price = 0;  // of the base unit, in ten-thousandths
    std::int64_t showRate = 1;             // base units in the unit that the line was entered in
    std::int64_t amount = 0;               // cents

    double Quantity() const { return static_cast<double>(quantity) / kTenThousandths; }
    double Price() const { return static_cast<double>(price) / kTenThousandths; }
    /// The same in the unit that the line was entered in.
    double ShownQuantity() const { return static_cast<double>(quantity) / (Rate() * kTenThousandths); }
    double ShownPrice() const { return static_cast<double>(price) * Rate() / kTenThousandths; }
    double Rate() const { return showRate < 1 ? 1 : static_cast<double>(showRate); }

    static constexpr double kTenThousandths = 10000;
};

class GoodsLineReader {
 public:
    GoodsLineReader(AccountSet& set, bool shortNumbers);

    /// The lines of a bill, in their order; none for a bill without goods. Valid as long as the reader.
    std::vector<GoodsLineRow> Of(std::int64_t bill);

 private:
    Statement lines_;
    ItemTexts items_;
    SharedTexts texts_;
};

}  // namespace qor
