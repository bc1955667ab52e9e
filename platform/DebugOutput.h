// Words for whoever looks into why something fails, where no interface takes a text.
#pragma once

#include <string>

namespace orvane {

/// Writes a line to standard error, and on Windows for the debugger too. UTF-8; never fails.
void debugOutput(const std::string& line) noexcept;

}  // namespace orvane
