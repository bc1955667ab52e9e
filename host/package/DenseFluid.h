// Viscosity and thermal conductivity of a fluid of known density.
// Not here: which density is taken for which phase (Transport).
#pragma once

#include "package/Compound.h"

#include <span>

namespace orvane::package {

/// Corresponding states of dense polar and associating fluids, for gases and liquids alike, from the critical
/// constants, acentric factor, dipole moment and association of the compounds, and the density of the phase.
/// Source: T.-H. Chung, M. Ajlan, L. L. Lee, K. E. Starling, Ind. Eng. Chem. Res. 27 (1988) 671-679.
class DenseFluid {
public:
    /// x: mole fractions; density: mol/m3; idealHeatCapacity: Cv of the ideal gas [J/mol/K]. Throws PackageError
    /// where a compound lacks its critical volume or the correlation gives no positive number.
    DenseFluid(std::span<const Compound> compounds, std::span<const double> x, double temperature,
               double density, double idealHeatCapacity);

    double viscosity() const { return viscosity_; }                      ///< Pa s
    double thermalConductivity() const { return thermalConductivity_; }  ///< W/m/K

private:
    double viscosity_ = 0;
    double thermalConductivity_ = 0;
};

}  // namespace orvane::package
