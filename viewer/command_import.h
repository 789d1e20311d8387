// `qorview import`: takes a firm's books from a folder of CSV files into an account set.
#pragma once

#include <iosfwd>
#include <string>

namespace qor::viewer {

/// Answers the exit status: 0 where the books are in `file`, 1 where they are not; the mistakes are then
/// lines on `errors`.
int ImportBooksInto(const std::string& folder, const std::string& file, std::ostream& out,
                    std::ostream& errors);

}  // namespace qor::viewer
