// Bills that the files bring once more: they must say what the account set says. Only an audit moves a bill
// on: its state and its voucher may change, and a bill that becomes void lets go what it had settled.
#pragma once

#include "embedded/bill_writer.h"
#include "embedded/import_books.h"

namespace qor {

class StandingBills {
 public:
    /// `table` is bills.csv; both are borrowed.
    StandingBills(ImportBooks& books, ImportTable& table);

    /// Compares the file's row with the bill that stands, and moves it on.
    void BringUpToDate(BookedBill& booked, const Bill& read);
    void CheckRelated(const BookedBill& booked, std::int64_t related);

 private:
    Bill Stored(std::int64_t id);
    void Refuse(std::int64_t line, std::string_view column, const std::string& standing);
    void LetGo(std::int64_t id);

    ImportBooks& books_;
    ImportTable& table_;
    Statement stored_, move_, settled_, letGo_;
};

}  // namespace qor
