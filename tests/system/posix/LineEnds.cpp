#include "tests/system/LineEnds.h"

namespace orvane::test {

std::string withOwnLineEnds(const std::string& script) { return script; }

}  // namespace orvane::test
