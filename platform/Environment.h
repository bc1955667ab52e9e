// The environment variables of this process. UTF-8.
#pragma once

#include <optional>
#include <string>

namespace orvane {

/// Nothing when the variable is not set.
std::optional<std::string> environmentVariable(const char* name);

/// Sets a variable that is not set yet. Not while other threads read the environment.
void setDefaultEnvironmentVariable(const char* name, const char* value);

/// What separates the entries of a search path: ":" or ";".
extern const char pathListSeparator;

}  // namespace orvane
