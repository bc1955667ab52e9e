#include "tests/host/CommandProcess.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace orvane::host {
namespace {

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

}  // namespace

TestFolder::TestFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "orvane-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder: " + name);
    path_ = name;
}

TestFolder::~TestFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

std::string TestFolder::write(const std::string& name, const std::string& text) const {
    std::ofstream(file(name), std::ios::binary) << text;
    return file(name).string();
}

std::string TestFolder::read(const std::string& name) const { return contentOf(file(name)); }

std::vector<std::string> TestFolder::names() const {
    std::vector<std::string> result;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
        result.push_back(entry.path().filename().string());
    }
    return result;
}

Finished command(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
                 const std::function<void(pid_t)>& meanwhile) {
    const TestFolder folder;
    std::vector<std::string> words = {ORVANE_BIN "/orvane"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = environment;
    for (char** variable = environ; *variable; ++variable) variables.emplace_back(*variable);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const std::string out = folder.file("out").string();
    const std::string error = folder.file("error").string();
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), O_CREAT | O_WRONLY, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, error.c_str(), O_CREAT | O_WRONLY, 0600);

    const auto start = std::chrono::steady_clock::now();
    const auto elapsed = [start] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    pid_t process = 0;
    const int failed = posix_spawn(&process, words[0].c_str(), &actions, nullptr, pointers(words).data(),
                                   pointers(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    if (failed) throw std::runtime_error("cannot start " + words[0]);
    if (meanwhile) meanwhile(process);

    int status = 0;
    while (waitpid(process, &status, WNOHANG) == 0) {
        if (elapsed() > 60) kill(process, SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    const double seconds = elapsed();
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), contentOf(out),
            contentOf(error), seconds};
}

}  // namespace orvane::host
