// `orvane run` and `orvane validate`: a case from its file to its results and the exit code.
// Not here: the words of the command line (CommandLine).
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orvane::host {

struct RunOptions {
    std::filesystem::path caseFile;
    std::vector<std::string> settings;            ///< "NAME=VALUE"
    std::optional<std::filesystem::path> module;  ///< in place of the one beside the executable
    std::optional<std::string> json;              ///< a file, or "-" for standard output
    std::optional<double> timeout;                ///< s
    int repeat = 1;                               ///< calculations, at least 1
    bool validateOnly = false;
};

/// Results go to standard output; errors, warnings and progress to standard error. With JSON on standard
/// output nothing else goes there. Throws nothing: every failure becomes a message and an exit code.
int runCommand(const RunOptions& options);

}  // namespace orvane::host
