#include "viewer/command_list.h"

#include <array>
#include <iostream>

#include "library.h"
#include "viewer/display_width.h"

namespace qor::viewer {

namespace {

constexpr std::size_t kNameWidth = 22;

std::string_view FamilyText(Family family) {
    switch (family) {
        case Family::DialogKept:
            return "dialog kept between runs";
        case Family::DialogOnce:
            return "a new dialog each time";
        case Family::NoDialog:
            return "no dialog";
    }
    return "";
}

}  // namespace

void PrintReportList(std::ostream& out) {
    for (const ReportEntry& report : Reports()) {
        out << report.description.number << "  " << Padded(report.description.name, kNameWidth, Align::Left)
            << FamilyText(report.description.family);
        if (report.description.detailRptID != 0) out << ", a row opens " << report.description.detailRptID;
        out << '\n';
    }
}

}  // namespace qor::viewer
