// The result of a run as machines read it.
#pragma once

#include "host/RunResult.h"

#include <string>

namespace orvane::host {

/// One JSON object and a line end. Reals have 17 significant digits, so that they come back exactly; NaN,
/// infinity and what is not known are null.
std::string resultJson(const RunResult& result);

}  // namespace orvane::host
