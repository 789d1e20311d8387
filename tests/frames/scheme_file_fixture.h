// A scheme file in a folder of its own, and the store under test on it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "frames/file_scheme_store.h"
#include "platform/conversions.h"
#include "support/raises.h"
#include "support/temp_folder.h"

namespace qor::test {

namespace fs = std::filesystem;

inline const SavedScheme kScheme{{"BDate", DateFromCalendar(2020, 9, 1).value()},
                                 {"BCustNumber", "客户“甲”|a=b;c\r\n\\"},
                                 {"UserID", std::int32_t{16}},
                                 {"CheckState", std::int16_t{2}},
                                 {"Rate", 7.0},
                                 {"Share", 0.1F},
                                 {"OptByCust", true},
                                 {"Nothing", Value::Null()},
                                 {"Unset", Value()},
                                 {"", ""}};
inline const SavedScheme kOther{{"K", "V"}};

inline std::string Numbered(int number) { return "方案" + std::to_string(number); }

class SchemeFile : public testing::Test {
 protected:
    std::vector<std::string> FilesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(file.parent_path())) {
            names.push_back(entry.path().filename());
        }
        std::ranges::sort(names);
        return names;
    }
    std::string MessageOf(auto&& step) const {
        const auto error = ErrorOf(step);
        return error ? error->description() : "";
    }

    TempFolder folder;
    const fs::path file = folder / "schemes.json";
    FileSchemeStore store{file};
};

/// Runs `work` in a process of its own and answers its exit status; -1 where it did not come to its end.
int InOwnProcess(auto&& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        int status = 99;
        IgnoringErrors([&] { status = work(); });
        ::_exit(status);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace qor::test
