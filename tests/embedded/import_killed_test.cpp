// An import that is killed while it writes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "embedded/import_fixture.h"

namespace qor {
namespace {

using test::ContentOf;
using test::FirmFolder;
using test::PutContent;

/// A file whose reader waits for a writer, for as long as the test likes.
class WaitingFile {
 public:
    explicit WaitingFile(const std::filesystem::path& file) : file_(file) {
        std::filesystem::remove(file_);
        made_ = mkfifo(file_.c_str(), 0600) == 0;
    }
    ~WaitingFile() {
        if (writing_ >= 0) close(writing_);
    }
    WaitingFile(const WaitingFile&) = delete;
    WaitingFile& operator=(const WaitingFile&) = delete;

    /// Whether somebody has begun to read, now or within some seconds.
    bool IsRead() {
        for (int i = 0; made_ && writing_ < 0 && i < 1000; ++i) {
            writing_ = open(file_.c_str(), O_WRONLY | O_NONBLOCK);
            if (writing_ < 0) std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return writing_ >= 0;
    }

 private:
    std::filesystem::path file_;
    bool made_ = false;
    int writing_ = -1;
};

TEST(ImportKilled, HalfWayLeavesTheBooksAsTheyWere) {
    const FirmFolder folder;
    ASSERT_EQ(folder.Import(), "");
    const std::string before = ContentOf(folder.books());
    folder.Edit("bills.csv", "", "FY,FY-202506-003,2025-06-29,,,,,03,004,02.02,,7.00,7.00,,,,1,,,\n");
    folder.Edit("class_lines.csv", "", "FY-202506-003,03,7.00,,\n");
    const auto settlements = folder.firm() / "settlements.csv";
    const std::string content = ContentOf(settlements);
    {
        WaitingFile waiting(settlements);
        const pid_t importing = fork();
        ASSERT_GE(importing, 0);
        if (importing == 0) {
            ImportFolder(folder.firm(), folder.books());
            _exit(0);
        }
        EXPECT_TRUE(waiting.IsRead()) << "all bills are written by then";
        kill(importing, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(importing, &status, 0), importing);
        EXPECT_TRUE(WIFSIGNALED(status));
    }
    EXPECT_EQ(ContentOf(folder.books()), before);
    std::filesystem::remove(settlements);
    PutContent(settlements, content);
    EXPECT_EQ(folder.Import(), "");
    EXPECT_NE(ContentOf(folder.books()), before);
}

}  // namespace
}  // namespace qor
