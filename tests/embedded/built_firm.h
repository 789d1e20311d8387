// Firms that a test builds bill by bill, and copies of sample firms that it writes into.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "embedded/bill_writer.h"
#include "embedded/sample_fixture.h"

namespace qor::test {

class BuiltFirm {
 public:
    /// The base data of a sample firm without bills.
    BuiltFirm() {
        MakeSample(file_, {.bills = 0});
        Prepare();
    }
    /// A copy of a sample firm with its bills.
    explicit BuiltFirm(std::uint64_t seed) {
        std::filesystem::copy_file(SampleFile(seed), file_);
        Prepare();
    }

    AccountSet Open() const { return AccountSet(file_); }
    Database& database() { return *database_; }
    std::int64_t Customer(std::size_t place) { return ItemOf(item_class::kCustomer, place); }
    std::int64_t Supplier(std::size_t place) { return ItemOf(item_class::kSupplier, place); }
    std::int64_t Account(std::size_t place) { return ItemOf(item_class::kAccount, place); }
    std::int64_t Goods(std::size_t place) { return ItemOf(item_class::kGoods, place); }
    std::string NumberOf(std::int64_t item) {
        Statement number(*database_, "SELECT FNumber FROM t_Item WHERE FItemID=?");
        number.With(item).Step();
        return std::string(number.Text(0));
    }

    /// Writes the bill under the next id, and under a number of its own where it has none.
    std::int64_t Add(Bill bill) {
        bill.id = ++lastBill_;
        if (bill.number.empty()) bill.number = "T-" + std::to_string(bill.id);
        writer_->Write(bill);
        return bill.id;
    }
    void Settle(const SettlementRow& row) { writer_->Write(row); }
    template <class Line>
    void AddLine(std::int64_t bill, int index, const Line& line) {
        writer_->Write(Bill{.id = bill}, index, line);
    }

 private:
    void Prepare() {
        database_ = std::make_unique<Database>(file_, Database::Mode::Create);
        database_->Run("PRAGMA journal_mode=MEMORY; PRAGMA synchronous=OFF");
        writer_ = std::make_unique<BillWriter>(*database_);
        Statement last(*database_, "SELECT ifnull(max(FBillID),0) FROM t_Bill");
        last.Step();
        lastBill_ = last.Int(0);
    }
    /// The detail item at a place of its class, by code.
    std::int64_t ItemOf(std::int32_t itemClass, std::size_t place) {
        Statement item(*database_,
                       "SELECT FItemID FROM t_Item WHERE FItemClassID=? AND FDetail=1 AND FDeleted=0 "
                       "ORDER BY FNumber LIMIT 1 OFFSET ?");
        item.With(itemClass, place).Step();
        return item.Int(0);
    }

    TempFolder folder_;
    std::filesystem::path file_ = folder_ / "firm";
    std::unique_ptr<Database> database_;
    std::unique_ptr<BillWriter> writer_;
    std::int64_t lastBill_ = 0;
};

}  // namespace qor::test
