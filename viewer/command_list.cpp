#include "viewer/command_list.h"

#include <CLI/CLI.hpp>
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

void AddListCommand(CLI::App& program, int& status) {
    CLI::App* command = program.add_subcommand("list", "The reports with number, name and family");
    command->callback([&status] {
        PrintReportList(std::cout);
        status = 0;
    });
}

}  // namespace qor::viewer
