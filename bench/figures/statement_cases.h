// For each report the least that one could ask SQLite for its rows: the same bills with their texts in the
// same order, no dialog, no objects, no switches.
#pragma once

#include <string>
#include <vector>

#include "viewer/run_host.h"

namespace qor::bench {

struct StatementCase {
    std::int32_t number;
    std::string what;                         // besides the report's name
    std::vector<viewer::FilterValue> values;  // of the run
    std::string statement;
};

const std::vector<StatementCase>& StatementCases();

}  // namespace qor::bench
