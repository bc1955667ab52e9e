#include "tests/system/LineEnds.h"

#include <regex>

namespace orvane::test {

std::string withOwnLineEnds(const std::string& script) {
    return std::regex_replace(script, std::regex("\r?\n"), "\r\n");
}

}  // namespace orvane::test
