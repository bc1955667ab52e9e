// The orvane command as a process of its own, with what it printed and how it ended.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace orvane::host {

/// A folder for one test, gone afterwards.
class TestFolder {
public:
    TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder();

    std::filesystem::path file(const std::string& name) const { return path_ / name; }
    /// Writes a file and gives its path.
    std::string write(const std::string& name, const std::string& text) const;
    std::string read(const std::string& name) const;
    std::vector<std::string> names() const;

private:
    std::filesystem::path path_;
};

struct Finished {
    int exitCode;  ///< 128 + signal when a signal ended it
    std::string out;
    std::string error;
    double seconds;
};

/// Runs orvane to its end. `environment` are "NAME=VALUE" beside those of the test; `meanwhile` gets the
/// process, once it is running. After a minute the process is killed.
Finished command(const std::vector<std::string>& arguments, const std::vector<std::string>& environment = {},
                 const std::function<void(pid_t)>& meanwhile = nullptr);

}  // namespace orvane::host
