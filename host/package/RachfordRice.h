// Splits a feed into two phases of given equilibrium ratios.
// Not here: where the ratios come from (TwoPhaseSplit).
#pragma once

#include "package/MixtureParameters.h"

#include <cstddef>

namespace orvane::package {

/// Amounts of the compounds in a vapour and a liquid that together are one mole of feed.
struct PhaseAmounts {
    CompoundArray vapor;
    CompoundArray liquid;
};

/// Solves sum z_i (K_i - 1) / (1 + beta (K_i - 1)) = 0 for the vapour fraction beta and sets the amounts with
/// y_i = K_i x_i. The unknown is the fraction of the lesser phase, so that its amounts keep their digits.
/// feed: n fractions above zero, sum 1; lnK: n logarithms, taken as +-600 beyond that. Returns false, and
/// leaves the amounts alone, when beta is not inside of 0 to 1.
/// Source: H. H. Rachford, J. D. Rice, J. Petroleum Technol. 4 (1952) 327.
bool rachfordRice(std::size_t n, const double* feed, const double* lnK, PhaseAmounts& amounts);

}  // namespace orvane::package
