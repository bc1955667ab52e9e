// Names that no two objects share.
#pragma once

#include <string>

namespace orvane {

/// A fresh random GUID (version 4) as 32 upper-case hexadecimal digits without hyphens. Any thread.
std::string randomIdentifier();

}  // namespace orvane
