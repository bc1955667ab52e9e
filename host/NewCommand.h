// `orvane new`: a commented case to start from, which runs as it stands.
#pragma once

#include <filesystem>

namespace orvane::host {

/// Makes the folder, if need be, and writes the case and its script into it. What is there already is not touched: then
/// nothing is written. Gives the exit code.
int newCommand(const std::filesystem::path& folder);

}  // namespace orvane::host
