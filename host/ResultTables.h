// The results of a run as people read them.
#pragma once

#include "host/Closure.h"
#include "host/RunResult.h"

#include <optional>
#include <string>

namespace orvane::host {

/// Streams, parameters and balances, each a table under its heading; what there is nothing of is left out.
std::string resultTables(const RunResult& result, const std::optional<Closure>& closure);

}  // namespace orvane::host
