// Which of the known names someone may have meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace orvane::host {

/// The known name nearest to what was written, letter case aside; empty when none is near, which is when more
/// than half of its letters would have to change.
std::string nearestName(std::string_view written, std::span<const std::string> known);

/// ", did you mean 'NAME'?", or where none is near "; known: 'A', 'B' and 'C'", to end a message with.
std::string suggestion(std::string_view written, std::span<const std::string> known);

/// "'A', 'B' and 'C'", or "none".
std::string listed(std::span<const std::string> names);

}  // namespace orvane::host
