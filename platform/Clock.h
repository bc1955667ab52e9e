// Date, time and durations as the run report shows them.
#pragma once

#include <chrono>
#include <string>

namespace orvane {

/// A moment in UTC, in UTF-8: the date in the short form of the user's locale, ", ", the time of day in 24 hours, as
/// HH:MM:SS or, on Windows, as the locale of the system writes that. The process's own locale is neither asked nor
/// changed. A locale that is not installed counts as C. Any thread.
std::string utcDateAndTime(std::chrono::system_clock::time_point moment = std::chrono::system_clock::now());

/// Seconds without the unit, cut to whole milliseconds, then three significant digits: 1234.5678 ms is "1.23"
/// and 1234567 ms is "1.23e+03".
std::string elapsedText(std::chrono::nanoseconds elapsed);

}  // namespace orvane
