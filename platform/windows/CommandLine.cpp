#include "platform/CommandLine.h"

#include "platform/windows/SystemText.h"

#include <windows.h>

namespace orvane {

const std::string_view pathSeparators = "\\";

std::string commandLine() { return narrow(GetCommandLineW()); }

}  // namespace orvane
