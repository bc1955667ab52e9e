// `orvane info`: what a script declares. Nothing is connected or calculated.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace orvane::host {

struct InfoOptions {
    std::filesystem::path file;                   ///< a case file (.toml) or a script
    std::optional<std::filesystem::path> module;  ///< in place of the one beside the executable
    bool json = false;
};

/// Throws nothing: every failure becomes a message and an exit code.
int infoCommand(const InfoOptions& options);

}  // namespace orvane::host
