// Whether the atoms that go into the unit come out again, which holds in a reaction too.
// Not here: the other balances (Closure).
#pragma once

#include "host/Closure.h"

#include <vector>

namespace orvane::host {

/// Balances of the elements [mol/s] of what flows of each compound, by id; in the order in which they first appear in
/// the compounds' formulas. Relative to the atoms in what the compounds differ by, so that a little of a compound that
/// is lost from a large flow is not taken for a reaction.
std::vector<Balance> elementBalances(const std::vector<Balance>& compounds);

}  // namespace orvane::host
