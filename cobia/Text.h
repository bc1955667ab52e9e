// Text between the two sides: UTF-8 `std::string` inside, CapeCharacter on the binary interface.
// This is the one place that knows how the two relate; nothing else converts.
#pragma once

#include "cobia/Types.h"

#include <string>
#include <string_view>

namespace COBIA {

/// A text as the binary interface carries it: UTF-16 on Windows, UTF-8 elsewhere.
using CapeText = std::basic_string<CapeCharacter>;
using CapeTextView = std::basic_string_view<CapeCharacter>;

/// Null is the empty text; ill-formed units become U+FFFD.
std::string toUtf8(CapeTextView text);

/// Ill-formed bytes become U+FFFD.
CapeText toCape(std::string_view utf8);

/// The same text with ill-formed bytes replaced by U+FFFD.
std::string wellFormed(std::string_view utf8);

/// Unicode simple lower-casing, the same on every platform and in every locale (so I becomes i in Turkish too).
std::string lowerCase(std::string_view utf8);

/// Unicode simple upper-casing, likewise.
std::string upperCase(std::string_view utf8);

/// True when the lower-cased texts are the same.
bool equalIgnoringCase(std::string_view a, std::string_view b);

}  // namespace COBIA
