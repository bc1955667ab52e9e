// The volume of liquids by corresponding states.
// Not here: the liquid root of an equation of state (CubicPhase).
#pragma once

#include "package/Compound.h"

#include <span>

namespace orvane::package {

/// Molar volume [m3/mol] of the saturated liquid of a compound below its critical temperature, the critical
/// volume from there on: V = Vc Z^((1 - Tr)^(2/7)), Z = 0.29056 - 0.08775 omega.
/// Source: T. Yamada, R. D. Gunn, J. Chem. Eng. Data 18 (1973) 234-236.
double saturatedLiquidVolume(const Compound& compound, double temperature);

/// Molar volume [m3/mol] of a liquid mixture for correlations that are sensitive to it, more so than an equation of
/// state is exact: the mean of the compounds' volumes over the mole fractions x. From nine tenths of its critical
/// temperature on a compound keeps its volume there, near to what a dissolved gas takes up.
double liquidMixtureVolume(std::span<const Compound> compounds, std::span<const double> x,
                           double temperature);

}  // namespace orvane::package
