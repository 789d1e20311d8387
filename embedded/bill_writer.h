// Writes bills with their lines and settlements into a new account set, as fast as SQLite takes them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "embedded/bill_kinds.h"
#include "embedded/sqlite.h"

namespace qor {

/// One row of t_Bill. An id or a day of 0 and an empty text are stored as Null; amounts in cents.
struct Bill {
    std::int64_t id = 0;
    BillKind kind{};
    std::string number;
    std::int64_t day = 0;
    BillState state = BillState::Audited;
    std::int64_t customer = 0, supplier = 0, toParty = 0;
    std::int64_t department = 0, employee = 0;
    std::int64_t account = 0, toAccount = 0;
    std::int64_t amount = 0, settled = 0, discount = 0;
    std::int64_t dueDay = 0;
    std::int64_t related = 0;
    std::int64_t biller = 0;
    std::string invoice, voucher, explanation;
};

struct ClassLine {
    std::int64_t itemClass = 0;
    std::int64_t amount = 0, settled = 0;
    std::string note;
};

/// Quantity and price are of the base unit, in ten-thousandths.
struct GoodsLine {
    std::int64_t item = 0;
    std::int64_t quantity = 0, price = 0;
    std::int64_t amount = 0;
    std::int64_t showUnit = 0, showRate = 1;
    std::string aux, batch, note;
};

/// A source of 0 is none.
struct SettlementRow {
    std::int64_t bill = 0, source = 0, target = 0;
    std::int64_t day = 0;
    std::int64_t amount = 0, discount = 0;
};

class BillWriter {
 public:
    explicit BillWriter(Database& database);

    void Write(const Bill& bill);
    void Write(const Bill& bill, int index, const ClassLine& line);  // lines of a bill count from 1
    void Write(const Bill& bill, int index, const GoodsLine& line);
    void Write(const SettlementRow& settlement);
    void WriteHeadField(const Bill& bill, int index, std::string_view text);

 private:
    Statement bill_, classLine_, goodsLine_, settlement_, headField_;
};

}  // namespace qor
