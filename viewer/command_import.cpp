#include "viewer/command_import.h"

#include <iostream>

#include "embedded/import_folder.h"
#include "platform/error.h"

namespace qor::viewer {

namespace {

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

}  // namespace qor::viewer
