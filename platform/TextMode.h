// The line ends that text files have here.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// A text as a file opened in text mode holds it: on Windows every line ends in CR LF, also one that did before; elsewhere
/// the text as it is.
std::string inTextMode(std::string_view text);

}  // namespace orvane
