#include "platform/CommandLine.h"

#include "cobia/Error.h"
#include "platform/Files.h"

namespace orvane {

// The backslash too: a Windows simulator on a compatibility layer shows its path as Windows does.
const std::string_view pathSeparators = "\\/";

std::string commandLine() {
    std::string arguments;
    try {
        arguments = readFile("/proc/self/cmdline");
    }
    catch (const COBIA::StringException&) {
        return {};  // no /proc in this container
    }
    // Arguments end in a null byte, so a path may hold blanks.
    return '"' + arguments.substr(0, arguments.find('\0')) + '"';
}

}  // namespace orvane
