// The bills that an import may refer to, each with as much as the checks need: those of the account set and
// those of the files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/bill_kinds.h"
#include "embedded/sqlite.h"

namespace qor {

struct BookedBill {
    std::int64_t id = 0;
    BillKind kind{};
    BillState state{};
    bool stood = false;     // in the account set before the import
    bool changed = false;   // stood, and the files bring it up to date
    bool unsound = false;   // something is wrong with its row: nothing is concluded from it
    std::int64_t line = 0;  // in bills.csv; 0 for what is only in the account set
    std::int64_t day = 0;
    std::int64_t customer = 0, supplier = 0, toParty = 0;
    std::int64_t amount = 0, settled = 0, discount = 0;
    std::int64_t open = 0;  // what other bills have left of it, see OpenAtFirst
    // What the files say of it, row by row.
    std::int32_t lines = 0, fields = 0, settlements = 0;
    std::int64_t lineAmount = 0, lineSettled = 0;
    std::int64_t settles = 0, letsGo = 0;
};

class BillBook {
 public:
    explicit BillBook(Database& database);

    /// Nothing for a number that no bill has. Valid until the next Add.
    BookedBill* Find(std::string_view number);
    /// A new bill with the next free id.
    BookedBill& Add(std::string_view number);
    BookedBill* WithId(std::int64_t id);
    std::vector<BookedBill>& all() { return bills_; }

 private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };

    BookedBill& Put(std::string_view number, std::int64_t id);
    void TakeOffSettled(Database& database);

    std::vector<BookedBill> bills_;
    std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> byNumber_;
    std::unordered_map<std::int64_t, std::size_t> byId_;  // those that stood in the account set
    std::int64_t nextId_ = 1;
};

}  // namespace qor
