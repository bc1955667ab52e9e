// The unit's report "Last Calculation", taken apart: what the script printed, without its frame.
#pragma once

#include <string>
#include <string_view>

namespace orvane::host {

/// A text of the unit with "\n" alone at the ends of its lines.
std::string plainLineEnds(std::string_view text);

/// What was printed, with plain line ends: the report without the lines that say when the calculation began
/// and how long it took, and without `error`, the error text that a failed calculation ends with (empty after
/// a success). A report of another form is given whole.
std::string printedOutput(std::string_view report, std::string_view error);

}  // namespace orvane::host
