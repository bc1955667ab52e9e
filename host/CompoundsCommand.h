// `orvane compounds`: the compounds that a case file can name.
#pragma once

#include <string_view>

namespace orvane::host {

/// Those whose id, name, formula or CAS number holds the filter, letter case aside; all for an empty filter.
/// Gives the exit code: a filter that finds nothing is wrong usage.
int compoundsCommand(std::string_view filter);

}  // namespace orvane::host
