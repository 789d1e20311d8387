// Rows that arrive as the bills lie in the book and are wanted account by account. They wait as they
// came and are dealt out once: thousands of small vectors that grow side by side would cost a miss of the
// cache for each row, and the more accounts there are, the more.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace qor {

template <class Row>
class RowsByAccount {
    static_assert(std::is_trivially_copyable_v<Row>);

 public:
    /// Accounts are numbered from 0.
    explicit RowsByAccount(std::size_t accounts) : firsts_(accounts + 1) {}

    void Add(std::size_t account, const Row& row) {
        if (arrived_.empty() || arrived_.back().size() == kPiece) arrived_.emplace_back().reserve(kPiece);
        arrived_.back().push_back({row, static_cast<std::uint32_t>(account)});
        ++firsts_[account + 1];
    }

    /// Puts each account's rows together, sorted by `order`. Once, behind the last Add.
    template <class Order>
    void Deal(Order order) {
        std::partial_sum(firsts_.begin(), firsts_.end(), firsts_.begin());
        std::vector<std::size_t> next(firsts_.begin(), firsts_.end() - 1);
        rows_.resize(firsts_.back());
        for (std::vector<Arrived>& piece : arrived_) {
            for (const Arrived& each : piece) {
                rows_[next[each.account]++] = each.row;
            }
            std::vector<Arrived>().swap(piece);
        }
        for (std::size_t account = 0; account + 1 < firsts_.size(); ++account) {
            const std::span<Row> rows = Of(account);
            if (!std::ranges::is_sorted(rows, {}, order)) std::ranges::stable_sort(rows, {}, order);
        }
    }

    /// The rows of an account, once they are dealt. Valid as long as this object, wherever it is moved to.
    std::span<Row> Of(std::size_t account) {
        return std::span(rows_).subspan(firsts_[account], firsts_[account + 1] - firsts_[account]);
    }

 private:
    struct Arrived {
        Row row;
        std::uint32_t account;
    };
    static constexpr std::size_t kPiece = 1024;  // rows

    std::vector<std::vector<Arrived>> arrived_;  // in pieces, which neither move nor leave half empty
    std::vector<Row> rows_;                      // once they are dealt
    std::vector<std::size_t> firsts_;  // where an account's rows begin; before that, how many it has
};

/// The texts of such rows, one behind the other. A text becomes a value when its row is written, so that the
/// values lie in the order in which they are read.
class RowTexts {
 public:
    /// Answers where the row's texts begin.
    std::size_t Add(std::initializer_list<std::string_view> texts) {
        const std::size_t place = bytes_.size();
        for (const std::string_view text : texts) {
            const auto length = static_cast<std::uint32_t>(text.size());
            bytes_.append(reinterpret_cast<const char*>(&length), sizeof length).append(text);
        }
        return place;
    }

    /// Reads a row's texts in their order.
    class Reader {
     public:
        explicit Reader(const char* at) : at_(at) {}
        std::string_view Next() {
            std::uint32_t length = 0;
            std::memcpy(&length, at_, sizeof length);
            const std::string_view text(at_ + sizeof length, length);
            at_ = text.data() + length;
            return text;
        }

     private:
        const char* at_;
    };
    Reader From(std::size_t place) const { return Reader(bytes_.data() + place); }

 private:
    std::string bytes_;
};

}  // namespace qor
