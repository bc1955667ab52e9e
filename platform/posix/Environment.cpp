#include "platform/Environment.h"

#include <cstdlib>

namespace orvane {

std::optional<std::string> environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

void setDefaultEnvironmentVariable(const char* name, const char* value) { ::setenv(name, value, 0); }

const char pathListSeparator = ':';

}  // namespace orvane
