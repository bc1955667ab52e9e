// Which simulator this process is, as far as we have to know.
#pragma once

#include <cstdint>
#include <string_view>

namespace orvane {

/// The numbers are those of the table of executable names in HostDetection.cpp.
enum class HostKind : std::int32_t { other = 0, kelvo = 1, tarnq = 2, vispa = 3, quorvelandix = 4, miro = 5 };

/// The kind by the executable that a command line names first, in double quotes or up to the first blank or
/// tab. Letter case does not matter. separators: the characters that end a folder in its path.
HostKind hostKindOf(std::string_view commandLine, std::string_view separators);

/// The kind of this process, found on the first call. Any thread.
HostKind hostKind();

}  // namespace orvane
