#include "bench/figures/child_process.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <ctime>
#include <fstream>
#include <stdexcept>

namespace qor::bench {

namespace {

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

[[noreturn]] void Become(const std::vector<std::string>& command, int output) {
    std::vector<char*> arguments;
    for (const std::string& word : command) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    ::dup2(output, STDOUT_FILENO);
    ::execvp(arguments[0], arguments.data());
    ::_exit(127);
}

}  // namespace

ChildCost RunChild(const std::vector<std::string>& command) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child == 0) Become(command, pipe[1]);
    ::close(pipe[1]);
    ChildCost cost;
    std::array<char, 1 << 16> block{};
    for (ssize_t size; (size = ::read(pipe[0], block.data(), block.size())) > 0;) {
        cost.output.append(block.data(), static_cast<std::size_t>(size));
    }
    ::close(pipe[0]);
    int status = 0;
    rusage used{};
    if (child < 0 || ::wait4(child, &status, 0, &used) != child || status != 0)
        throw std::runtime_error(command.front() + " failed");
    cost.seconds = Seconds(used.ru_utime) + Seconds(used.ru_stime);
    cost.peakKiB = used.ru_maxrss;
    return cost;
}

double ProcessorSeconds() {
    timespec now{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

std::int64_t PeakKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::int64_t peak = 0;
        if (word == "VmHWM:" && status >> peak) return peak;
    }
    throw std::runtime_error("no peak memory in /proc/self/status");
}

}  // namespace qor::bench
