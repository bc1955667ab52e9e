#include "platform/DebugOutput.h"

#include "platform/windows/SystemText.h"

#include <cstdio>
#include <windows.h>

namespace orvane {

void debugOutput(const std::string& line) noexcept {
    std::fprintf(stderr, "%s\n", line.c_str());
    try {
        OutputDebugStringW((wide(line) + L"\r\n").c_str());
    }
    catch (const std::bad_alloc&) {
        // It stands on standard error.
    }
}

}  // namespace orvane
