// Phase equilibrium of a feed by two conditions.
// Not here: the search for a new phase (StabilityTest), the composition of two phases (TwoPhaseSplit).
#pragma once

#include "package/Equilibrium.h"
#include "package/PengRobinson.h"

#include <span>

namespace orvane::package {

/// Vapour-liquid equilibrium over an equation of state. Immutable, so threads may share one.
///
/// Feeds are mole fractions, sum 1, checked as in PengRobinson; compounds of fraction zero stay out. All
/// members throw PackageError for conditions out of range and for a solver that does not converge.
///
/// Naming of a single phase. Where the cubic has three roots, by the one that is stable. Where it has one, by
/// the critical point of the equation of state for a pure compound with the a and b of the mixture:
/// - below its temperature (where a/(b R T) has the critical value): Liquid if denser than its volume,
///   3.951 b;
/// - above: Liquid if the volume is below 1.75 b, which is the density of a compressed liquid and a choice
///   of ours, or if the stability test met a less dense phase that nearly forms, so that a liquid above its
///   bubble pressure keeps its name;
/// - Vapor otherwise.
///
/// Second liquids. The package has one liquid. A feed that would form a vapour and two liquids is answered by
/// the vapour-liquid split of lowest Gibbs energy, with a warning that describes the liquid left out. A feed
/// that forms two liquids and no vapour is refused with LiquidLiquidSplit. Where a second liquid begins to be
/// left out the enthalpy and entropy of the answer jump; a flash to a value within the jump is refused too.
class Flash {
public:
    explicit Flash(PengRobinson equation);

    const PengRobinson& equation() const { return equation_; }

    /// Temperature [K] and pressure [Pa]. A pure compound gives one phase.
    Equilibrium temperaturePressure(double temperature, double pressure, std::span<const double> feed) const;

    /// Pressure [Pa] and enthalpy [J/mol of feed]. A pure compound may give two phases.
    Equilibrium pressureEnthalpy(double pressure, double enthalpy, std::span<const double> feed) const;

    /// Pressure [Pa] and entropy [J/mol/K of feed].
    Equilibrium pressureEntropy(double pressure, double entropy, std::span<const double> feed) const;

private:
    PengRobinson equation_;
};

}  // namespace orvane::package
