// The script that a new unit starts with, a file linked into the library.
#pragma once

#include <string_view>

namespace orvane {

/// Its bytes, with CR LF line ends.
std::string_view defaultScriptText();

}  // namespace orvane
