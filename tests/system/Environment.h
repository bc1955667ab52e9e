// The environment of the test's own process, for the module and the interpreter in it to read.
#pragma once

#include <string>

namespace orvane::test {

/// UTF-8. Not while other threads read the environment.
void setVariable(const char* name, const std::string& value);
void unsetVariable(const char* name);

/// What separates the entries of a search path.
extern const char listSeparator;

}  // namespace orvane::test
