#include "host/System.h"

#include <cstdlib>

namespace orvane::host {

std::vector<std::string> programArguments(int count, char** arguments) {
    return {arguments, arguments + count};
}

void prepareStreams() {}

std::optional<std::string> environmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

}  // namespace orvane::host
