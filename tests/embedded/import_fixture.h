// The small firm of docs/examples, to be changed file by file and imported.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "embedded/import_folder.h"
#include "support/temp_folder.h"

namespace qor::test {

inline std::filesystem::path ExampleFirm() {
    return std::filesystem::path(QOR_SOURCE_DIR) / "docs" / "examples" / "firm";
}

class FirmFolder {
 public:
    FirmFolder() {
        std::filesystem::create_directory(firm());
        for (const auto& entry : std::filesystem::directory_iterator(ExampleFirm())) {
            PutContent(firm() / entry.path().filename().string(), ContentOf(entry.path()));
        }
    }

    std::filesystem::path firm() const { return folder_ / "firm"; }
    std::filesystem::path books() const { return folder_ / "books.db"; }
    const std::filesystem::path& path() const { return folder_.path(); }

    /// Puts `to` in place of the first `from`, or behind the last line where `from` is "". Answers the line.
    std::int64_t Edit(std::string_view file, std::string_view from, std::string_view to) const {
        std::string content = ContentOf(firm() / file);
        const std::size_t at = from.empty() ? content.size() : content.find(from);
        if (at == std::string::npos)
            throw std::runtime_error("no " + std::string(from) + " in " + std::string(file));
        const auto line = 1 + std::ranges::count(content.substr(0, at), '\n');
        content.replace(at, from.size(), to);
        PutContent(firm() / file, content);
        return line;
    }

    /// The mistakes of an import, one a line; "" where it was done.
    std::string Import() const {
        std::string text;
        const ImportOutcome outcome = ImportFolder(firm(), books());
        for (const ImportMistake& mistake : outcome.mistakes.kept()) {
            text += (text.empty() ? "" : "\n") + mistake.Text();
        }
        return text;
    }

 private:
    TempFolder folder_;
};

/// A mistake made in the example firm, and what the import says of it. A @ stands for the line.
struct Slip {
    const char* file;
    const char* from;  // "" adds a line; null writes the file anew
    const char* to;
    const char* mistakes;
};

inline std::string WithLine(std::string text, std::int64_t line) {
    for (std::size_t at; (at = text.find('@')) != std::string::npos;) {
        text.replace(at, 1, std::to_string(line));
    }
    return text;
}

/// Each slip is told as it should be, and nothing is written.
inline void ExpectTold(std::initializer_list<Slip> slips) {
    for (const Slip& slip : slips) {
        const FirmFolder folder;
        if (!slip.from) test::PutContent(folder.firm() / slip.file, slip.to);
        const std::int64_t line = slip.from ? folder.Edit(slip.file, slip.from, slip.to) : 0;
        EXPECT_EQ(folder.Import(), WithLine(slip.mistakes, line)) << slip.file << ": " << slip.to;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1)
            << "something was written";
    }
}

}  // namespace qor::test
