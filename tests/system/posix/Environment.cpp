#include "tests/system/Environment.h"

#include <cstdlib>

namespace orvane::test {

void setVariable(const char* name, const std::string& value) { setenv(name, value.c_str(), 1); }

void unsetVariable(const char* name) { unsetenv(name); }

const char listSeparator = ':';

}  // namespace orvane::test
