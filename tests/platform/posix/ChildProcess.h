// Runs a piece of a test in a process of its own: for what happens once a process, or would disturb other
// tests.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

/// What the body returns in a copy of this process. Throws when the body does, or the copy dies.
inline std::string inChildProcess(const std::function<std::string()>& body) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no child process");
    if (child == 0) {
        int status = 1;
        try {
            const std::string result = body();
            if (write(ends[1], result.data(), result.size()) == static_cast<ssize_t>(result.size()))
                status = 0;
        }
        catch (...) {
        }
        _exit(status);  // no destructors: the test runner's state belongs to the parent
    }
    close(ends[1]);
    std::string result;
    char block[1024];
    for (ssize_t count; (count = read(ends[0], block, sizeof block)) > 0;)
        result.append(block, static_cast<std::size_t>(count));
    close(ends[0]);
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("the child process failed");
    return result;
}
