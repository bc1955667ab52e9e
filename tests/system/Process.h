// A process that a test starts, watches and ends.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvane::test {

class Process {
public:
    /// words: the program, then its arguments. environment: "NAME=VALUE", beside those of the test or in place of them.
    /// What it writes goes into the two files. Throws when it cannot be started.
    Process(const std::vector<std::string>& words, const std::vector<std::string>& environment,
            const std::filesystem::path& output, const std::filesystem::path& errors);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    /// Ends it by force when it still runs.
    ~Process();

    /// What Ctrl-C does.
    void interrupt();

    /// Nothing while it runs. 128 + signal when a signal ended it, where there are such.
    std::optional<int> exitCode();

    /// Waits for its end; after that time ends it by force.
    int wait(double seconds);

private:
    struct System;
    std::unique_ptr<System> system_;
};

}  // namespace orvane::test
