#include "tests/system/Process.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orvane::test {
namespace {

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

}  // namespace

struct Process::System {
    pid_t process = 0;
    std::optional<int> exitCode;
};

Process::Process(const std::vector<std::string>& words, const std::vector<std::string>& environment,
                 const std::filesystem::path& output, const std::filesystem::path& errors)
    : system_(std::make_unique<System>()) {
    std::vector<std::string> arguments = words, variables = environment;
    for (char** variable = environ; *variable; ++variable) variables.emplace_back(*variable);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_CREAT | O_WRONLY, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), O_CREAT | O_WRONLY, 0600);
    const int failed = posix_spawn(&system_->process, words[0].c_str(), &actions, nullptr,
                                   pointers(arguments).data(), pointers(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    if (failed) throw std::runtime_error("cannot start " + words[0]);
}

Process::~Process() {
    if (!exitCode()) wait(0);
}

void Process::interrupt() { kill(system_->process, SIGINT); }

std::optional<int> Process::exitCode() {
    int status = 0;
    if (!system_->exitCode && waitpid(system_->process, &status, WNOHANG) != 0)
        system_->exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return system_->exitCode;
}

int Process::wait(double seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!exitCode()) {
        if (std::chrono::steady_clock::now() > end) kill(system_->process, SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return *exitCode();
}

}  // namespace orvane::test
