// The least that one could write by hand for the income category detail: the same columns and the same
// captions in plain structs, from a filter that is a struct too. No late binding, no dialog, no window, no
// session. It is the mark that the library's own cost is measured against.
#pragma once

#include <string>
#include <vector>

namespace qor::bench {

struct PlainRange {
    std::string begin, end;
};

struct PlainFilter {
    std::string beginDate, endDate;
    PlainRange type, customer, department, employee;
    int checkState = 0;
    int userID = 0;
    bool longNumber = false;
    std::string dataRight;
};

struct PlainColumn {
    std::string caption, second, type, field;
    short visible;
    bool forceHide;
};

struct PlainCaption {
    std::string caption;
    short index;
};

struct PlainReport {
    PlainFilter filter;
    std::string dates;
    std::vector<PlainColumn> columns;
    std::vector<PlainCaption> captions;
};

std::vector<PlainColumn> PlainColumns(int appType);
PlainReport RunPlainReport(int appType);

}  // namespace qor::bench
