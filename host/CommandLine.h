// The words of the command line: which command, which options.
#pragma once

namespace orvane::host {

/// Carries out what the arguments say and gives the exit code.
int commandLine(int count, const char* const* arguments);

}  // namespace orvane::host
