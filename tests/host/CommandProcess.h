// The orvane command as a process of its own, with what it printed and how it ended.
#pragma once

#include "tests/system/Process.h"
#include "tests/TemporaryFolder.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace orvane::host {

/// A folder for one test, gone afterwards.
class TestFolder {
public:
    std::filesystem::path file(const std::string& name) const { return folder_.path() / name; }
    /// Writes a file and gives its path.
    std::string write(const std::string& name, const std::string& text) const;
    std::string read(const std::string& name) const;
    std::vector<std::string> names() const;

private:
    test::TemporaryFolder folder_;
};

struct Finished {
    int exitCode;  ///< 128 + signal when a signal ended it, where there are such
    std::string out;
    std::string error;
    double seconds;
};

/// Runs orvane to its end. `environment` are "NAME=VALUE" beside those of the test; `meanwhile` gets the
/// process, once it is running. After a minute the process is killed.
Finished command(const std::vector<std::string>& arguments, const std::vector<std::string>& environment = {},
                 const std::function<void(test::Process&)>& meanwhile = nullptr);

}  // namespace orvane::host
