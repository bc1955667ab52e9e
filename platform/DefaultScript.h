// The script that a new unit starts with, a file that travels in the library.
#pragma once

#include <string_view>

namespace orvane {

/// Its bytes, with CR LF line ends. Empty when the library has lost it.
std::string_view defaultScriptText();

}  // namespace orvane
