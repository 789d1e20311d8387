// What is wrong with the files of an import: each mistake with the place where it stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

struct ImportMistake {
    std::string file;       // such as "bills.csv"
    std::int64_t line = 0;  // 0 where the whole file is meant
    std::string column;     // "" where the whole line is meant
    std::string reason;

    /// "bills.csv:12: amount: "1,000" has thousands commas; write 1000"
    std::string Text() const;
};

/// All are counted; the first hundred are kept.
class ImportMistakes {
 public:
    static constexpr std::size_t kKept = 100;

    void Add(std::string_view file, std::int64_t line, std::string_view column, std::string reason);

    std::size_t count() const { return count_; }
    const std::vector<ImportMistake>& kept() const { return kept_; }

 private:
    std::vector<ImportMistake> kept_;
    std::size_t count_ = 0;
};

/// A text of the files between quotes, so that blanks at its ends show.
std::string Shown(std::string_view text);

}  // namespace qor
