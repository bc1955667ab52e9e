// The registrations of COBIA runtimes in registry files.
#pragma once

#include "platform/RuntimeRegistry.h"

#include <string>
#include <vector>

namespace orvane {

/// Those of the given files, in their order. A file that is missing, cannot be read or names no folder is left out.
std::vector<RuntimeRegistration> runtimesIn(const std::vector<std::string>& files);

}  // namespace orvane
