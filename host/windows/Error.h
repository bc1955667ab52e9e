// The words for Windows' error codes.
#pragma once

#include <stdexcept>
#include <string>
#include <windows.h>

namespace orvane::host {

/// What a code of GetLastError means, in the user's language, without a line end; UTF-8.
std::string errorText(DWORD code);

[[noreturn]] inline void fail(const std::string& what, DWORD code) {
    throw std::runtime_error(what + ": " + errorText(code));
}

}  // namespace orvane::host
