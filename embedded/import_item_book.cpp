#include "embedded/import_item_book.h"

#include <algorithm>

namespace qor {

ItemBook::ItemBook(Database& database) {
    Statement item(database, "SELECT FItemClassID, FNumber, FItemID, FDetail FROM t_Item");
    while (item.Step()) {
        classes_[static_cast<std::int32_t>(item.Int(0))][std::string(Lowered(item.Text(1)))] = {
            .id = item.Int(2), .detail = item.Int(3) != 0, .stood = true};
        nextId_ = std::max(nextId_, item.Int(2) + 1);
    }
}

BookedItem* ItemBook::Find(std::int32_t itemClass, std::string_view code) {
    Codes& codes = classes_[itemClass];
    const auto found = codes.find(std::string(Lowered(code)));
    return found == codes.end() ? nullptr : &found->second;
}

BookedItem& ItemBook::Add(std::int32_t itemClass, std::string_view code) {
    BookedItem& item = classes_[itemClass][std::string(Lowered(code))];
    item.id = nextId_++;
    return item;
}

std::string_view ItemBook::Lowered(std::string_view code) {
    lowered_ = code;
    std::ranges::transform(lowered_, lowered_.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lowered_;
}

}  // namespace qor
