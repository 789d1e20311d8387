// The base data that an import may refer to: what the account set has and what the files bring.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "embedded/sqlite.h"

namespace qor {

struct BookedItem {
    std::int64_t id = 0;
    bool detail = true;     // no category
    bool stood = false;     // in the account set before the import
    std::int64_t line = 0;  // in the file; 0 for what is only in the account set
};

class ItemBook {
 public:
    explicit ItemBook(Database& database);

    /// Nothing for a code that the class does not have. Letters match whatever their case.
    BookedItem* Find(std::int32_t itemClass, std::string_view code);
    /// A new item with the next free number.
    BookedItem& Add(std::int32_t itemClass, std::string_view code);

 private:
    using Codes = std::unordered_map<std::string, BookedItem>;

    std::string_view Lowered(std::string_view code);

    std::map<std::int32_t, Codes> classes_;
    std::int64_t nextId_ = 1001;
    std::string lowered_;
};

}  // namespace qor
