// The surface tension between a liquid and its vapour.
// Not here: the composition of the liquid (Model).
#pragma once

#include "package/Compound.h"

#include <span>

namespace orvane::package {

/// N/m, of a pure compound; zero from its critical temperature on. Quantum gases (hydrogen, helium) are outside of
/// the correlation.
/// Source: S. R. S. Sastri, K. K. Rao, Chem. Eng. J. 59 (1995) 181-186.
double surfaceTension(const Compound& compound, double temperature);

/// N/m, of a liquid mixture: the mean over the mole fractions x of the liquid. Compounds above their critical
/// temperature count as zero, so a liquid with much dissolved gas comes out too high or too low by a third or more.
double surfaceTension(std::span<const Compound> compounds, std::span<const double> x, double temperature);

}  // namespace orvane::package
