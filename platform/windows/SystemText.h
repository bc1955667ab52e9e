// Text for and from Windows, which speaks UTF-16 as CAPE-OPEN does there; and the words for its error codes.
#pragma once

#include "cobia/Text.h"

#include <string>
#include <string_view>

namespace orvane {

/// For a Windows function.
inline std::wstring wide(std::string_view utf8) { return COBIA::toCape(utf8); }

inline std::string narrow(std::wstring_view text) { return COBIA::toUtf8(text); }

/// What an error code of GetLastError means, in the user's language, without a line end; UTF-8.
std::string systemMessage(unsigned long code);

}  // namespace orvane
