// The simulator that this process is, by the name that it was started under.
#include "platform/HostDetection.h"

#include <doctest/doctest.h>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Whether a process of this program under another name takes itself for none of the simulators: it runs the one test that
/// says so.
bool isNoSimulator(const char* name) {
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no child process");
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        execl("/proc/self/exe", name, "--test-case=A test is none of the simulators", nullptr);
        _exit(127);
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) > 1)
        throw std::runtime_error("the child process failed");
    return WEXITSTATUS(status) == 0;
}

}  // namespace

TEST_CASE("The process is known by the name that it was started under") {
    for (const char* name : {"tarnq.exe", "/opt/sim/TARNQ.EXE", "/opt/my simulators/kelvo.exe"})
        CHECK_MESSAGE(!isNoSimulator(name), name);
    for (const char* name : {"simulator", "/opt/tarnq.exe/simulator", "/opt/my tarnq.exe simulator"})
        CHECK_MESSAGE(isNoSimulator(name), name);
}
