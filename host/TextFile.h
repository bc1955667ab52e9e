// Texts of files that the user names.
// Not here: writing them (System.h).
#pragma once

#include <filesystem>
#include <string>

namespace orvane::host {

/// All of a file. Throws std::runtime_error with the reason alone: "it is a folder".
std::string readText(const std::filesystem::path& file);

/// As readText, of a script: also throws for what is no UTF-8.
std::string readScript(const std::filesystem::path& file);

}  // namespace orvane::host
