// `orvane run` and the commands that run a case for a part of what comes out: a verdict, a report, an image.
// Not here: the words of the command line (CommandLine).
#pragma once

#include "host/ReportRequests.h"

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvane::host {

/// What goes to standard output.
enum class Show { tables, verdict, report, nothing };

struct RunOptions {
    std::filesystem::path caseFile;
    std::vector<std::string> settings;            ///< "NAME=VALUE"
    std::optional<std::filesystem::path> module;  ///< in place of the one beside the executable
    std::optional<std::string> json;              ///< a file, or "-" for standard output
    std::optional<double> timeout;                ///< s
    int repeat = 1;                               ///< calculations, at least 1
    std::optional<std::filesystem::path> load;    ///< a state file
    std::optional<std::filesystem::path> save;    ///< a state file, written after a success
    std::vector<std::string> reports;
    std::vector<std::string> images;               ///< "NAME=FILE"
    std::optional<std::pair<int, int>> imageSize;  ///< pixels
    std::vector<ImageRequest> drawings;            ///< images besides those
    Show show = Show::tables;                      ///< verdict: nothing is calculated
};

/// Results go to standard output; errors, warnings and progress to standard error. With JSON on standard
/// output nothing else goes there. Throws nothing: every failure becomes a message and an exit code.
int runCommand(const RunOptions& options);

}  // namespace orvane::host
