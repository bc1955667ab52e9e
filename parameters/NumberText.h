// Numbers in messages and unit texts: six significant digits, as C++ streams write them, whatever the locale.
#pragma once

#include <charconv>
#include <string>

namespace orvane {

/// "0.001", "1e+06", "300". Not through a stream: a host may set a global locale that groups digits or writes a comma.
inline std::string numberText(double value) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6).ptr;
    return std::string(text, end);
}

}  // namespace orvane
