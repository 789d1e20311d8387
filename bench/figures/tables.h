// The tables of docs/performance.md that are about whole firms.
#pragma once

#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace qor::bench {

struct FiguresBench {
    std::string self;                 // this program, which measures in children of itself
    std::string qorview;              // the program that is measured with its start
    std::filesystem::path folder;     // where sample firms are kept from run to run
    std::vector<std::int64_t> sizes;  // bills
    int runs = 3;                     // the best of so many, each in a process of its own
    std::ostream& out;

    /// Time and memory of every report at every size.
    void GrowthTable() const;
    /// The whole run beside the bare statement.
    void StatementTable() const;
    /// Balances and ageing beside plain-text accounting programs.
    void JournalTable() const;
    /// What limiting a report to a user's parties costs where he may see them all.
    void RightsTable() const;
    /// Filters that ask for little, beside the same report on everything.
    void NarrowTable() const;

 private:
    std::filesystem::path Firm(std::int64_t bills) const;
    std::filesystem::path FirmOfClerk(std::int64_t bills) const;
};

}  // namespace qor::bench
