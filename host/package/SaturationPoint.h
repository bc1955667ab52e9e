// Where the vapour and the liquid of a pure compound are in equilibrium.
// Not here: mixtures (QualityLine).
#pragma once

#include "package/MixtureParameters.h"
#include "package/Target.h"

namespace orvane::package {

/// The saturation temperature at a pressure, or the saturation pressure at a temperature, of the one compound
/// of a mixture, by the equation of state.
struct SaturationPoint {
    double temperature = 0;  ///< K
    double pressure = 0;     ///< Pa
    int evaluations = 0;     ///< of both phases

    /// Throws PackageError at the critical point and above it, and where the vapour pressure is below 1e-250 Pa.
    SaturationPoint(const MixtureParameters& mixture, Variable given, double value);
};

}  // namespace orvane::package
