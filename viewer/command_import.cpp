#include "viewer/command_import.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "embedded/import_folder.h"
#include "platform/error.h"

namespace qor::viewer {

namespace {

struct ImportRequest {
    std::string folder, file;
};

void TellMistakes(const ImportMistakes& mistakes, std::ostream& errors) {
    for (const ImportMistake& mistake : mistakes.kept()) {
        errors << mistake.Text() << '\n';
    }
    if (mistakes.count() > mistakes.kept().size())
        errors << "and " << mistakes.count() - mistakes.kept().size() << " more\n";
    errors << "qorview import: " << mistakes.count() << (mistakes.count() == 1 ? " mistake" : " mistakes")
           << "; nothing was imported\n";
}

void TellCount(const char* what, const ImportCount& count, std::ostream& out) {
    out << what << ": " << count.added << " new, " << count.changed << " changed, " << count.same
        << " as they were\n";
}

}  // namespace

int ImportBooksInto(const std::string& folder, const std::string& file, std::ostream& out,
                    std::ostream& errors) {
    try {
        const ImportOutcome outcome = ImportFolder(folder, file);
        if (outcome.mistakes.count() > 0) return TellMistakes(outcome.mistakes, errors), 1;
        TellCount("base data", outcome.baseData, out);
        TellCount("bills", outcome.bills, out);
        return 0;
    } catch (const Error& error) {
        errors << "qorview import: " << error.description() << '\n';
        return 1;
    }
}

void AddImportCommand(CLI::App& program, int& status) {
    const auto request = std::make_shared<ImportRequest>();
    CLI::App* command = program.add_subcommand(
        "import",
        "Takes a firm's books from a folder of CSV files into an account set, wholly or not at all");
    command
        ->add_option("DIR", request->folder, "The folder; docs/account-set.md says what stands in its files")
        ->required();
    command->add_option("--into", request->file, "The account set; it is made, or added to where it exists")
        ->required();
    command->callback([request, &status] {
        status = ImportBooksInto(request->folder, request->file, std::cout, std::cerr);
    });
}

}  // namespace qor::viewer
