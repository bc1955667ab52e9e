// Line ends as a script's file has them on this system.
#pragma once

#include <string>

namespace orvane::test {

/// What a unit gives back of a script that a host handed it.
std::string withOwnLineEnds(const std::string& script);

}  // namespace orvane::test
