// A finished report as text: a table for people, CSV and JSON for programs. The table groups thousands and
// shows cents; CSV and JSON keep every value in full precision.
#pragma once

#include <iosfwd>

#include "viewer/report_view.h"

namespace qor::viewer {

/// Name, dates, conditions, both header lines with their groups, the rows. Answers the number of rows.
std::size_t PrintTable(const ReportView& view, std::ostream& out);

/// One header line of captions, then a line a row; fields in quotes where they need them.
std::size_t PrintCsv(const ReportView& view, std::ostream& out);

/// One object: name, dates, conditions, columns, rows as objects by field name.
std::size_t PrintJson(const ReportView& view, std::ostream& out);

/// An amount with two decimals and thousands commas where it is whole cents, else in full precision.
std::string FormatAmount(double amount);

}  // namespace qor::viewer
