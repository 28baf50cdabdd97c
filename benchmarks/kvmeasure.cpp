// Runs a command and prints what it took, as shell assignments:
//   wall=1.234 own=0.012 children=1.100 peak=34567
// wall, own and children in seconds (own: processor time of the command itself with all its threads;
// children: of all processes that it waited for), peak in KiB (the largest resident size of the command
// itself). Exits as the command did.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <thread>

namespace {

long peakResidentKilobytes(pid_t child) {
    std::ifstream status("/proc/" + std::to_string(child) + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
    return 0;
}

struct ProcessorTime {
    double own = 0;
    double children = 0;
};

// Of a child that has exited and has not been reaped yet.
ProcessorTime processorTime(pid_t child) {
    std::ifstream file("/proc/" + std::to_string(child) + "/stat");
    std::string text;
    std::getline(file, text);
    text.erase(0, text.rfind(')') + 2); // the name may hold anything
    unsigned long user = 0, system = 0;
    long childrenUser = 0, childrenSystem = 0;
    std::sscanf(text.c_str(), "%*c %*d %*d %*d %*d %*d %*u %*u %*u %*u %*u %lu %lu %ld %ld", &user, &system,
                &childrenUser, &childrenSystem);
    const auto tick = static_cast<double>(sysconf(_SC_CLK_TCK));
    return {static_cast<double>(user + system) / tick,
            static_cast<double>(childrenUser + childrenSystem) / tick};
}

} // namespace

int main(int argc, char **argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: kvmeasure COMMAND [ARGUMENT...]\n");
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, STDERR_FILENO, STDOUT_FILENO); // standard output is ours
    if (const int error = posix_spawnp(&child, argv[1], &actions, nullptr, argv + 1, environ)) {
        std::fprintf(stderr, "kvmeasure: %s: %s\n", argv[1], std::strerror(error));
        return 127;
    }

    std::atomic<bool> isRunning = true;
    long peak = 0;
    std::thread sampler([&] {
        while (isRunning) {
            peak = std::max(peak, peakResidentKilobytes(child));
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    });
    siginfo_t info{};
    waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOWAIT);
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
    isRunning = false;
    sampler.join();
    const ProcessorTime time = processorTime(child);
    int status = 0;
    waitpid(child, &status, 0);
    std::printf("wall=%.3f own=%.3f children=%.3f peak=%ld\n", wall.count(), time.own, time.children, peak);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
