// The books of an account set as the journal of a plain-text accounting program: an account for each bill
// below its customer's or supplier's, so that balances and open bills are both balances.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace qor::bench {

/// Audited bills only, without goods that were not billed yet. Answers the number of transactions.
std::int64_t WriteJournal(const std::filesystem::path& accountSet, const std::filesystem::path& journal);

/// "   123.45  Receivable:01.001:45800-17" a line: the cents by customer; and of the bills' accounts by age
/// group on a day, 30 days each, four groups.
struct JournalFigures {
    std::map<std::string, std::int64_t> byCustomer;
    std::map<int, std::int64_t> byAge;
};
JournalFigures ReadBalances(const std::string& output, std::int64_t cutOff);

/// The same figures from the CSV that a report prints: amounts in the named column by the code in `code`.
std::map<std::string, std::int64_t> ReadReportColumn(const std::string& csv, const std::string& code,
                                                     const std::string& amount);

}  // namespace qor::bench
