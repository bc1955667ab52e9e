#include "platform/DebugOutput.h"

#include <cstdio>

namespace orvane {

void debugOutput(const std::string& line) noexcept { std::fprintf(stderr, "%s\n", line.c_str()); }

}  // namespace orvane
