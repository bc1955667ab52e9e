// The constants of one pure compound.
// Not here: where they come from (CompoundTable) and what is computed from them (IdealGas, PengRobinson).
#pragma once

#include <array>
#include <string>

namespace orvane::package {

/// Which form of the correlation of SurfaceTension a compound takes.
enum class SurfaceFamily { general, alcohol, acid };

/// Constants of a pure compound, as data/compounds.csv and data/polarity.csv give them with their literature
/// source.
struct Compound {
    std::string id;       ///< lower case, hyphenated, unique in the table
    std::string name;     ///< as chemists write it
    std::string formula;  ///< Hill order for organic compounds; isomers share it
    std::string cas;      ///< CAS registry number

    double molecularWeight = 0;  ///< g/mol
    double normalBoilingPoint =
        0;  ///< K, at 101325 Pa; the sublimation point of carbon dioxide and acetylene
    double criticalTemperature = 0;  ///< K
    double criticalPressure = 0;     ///< Pa
    double criticalVolume = 0;       ///< m3/mol
    double acentricFactor = 0;

    double idealGasFormationEnthalpy = 0;  ///< J/mol at 298.15 K, from the elements in their standard states
    double idealGasAbsoluteEntropy = 0;    ///< J/mol/K at 298.15 K and 100000 Pa

    /// Ideal gas heat capacity: Cp/R = c[0] + c[1] T + c[2] T^2 + c[3] T^3 + c[4] T^4, T in K.
    std::array<double, 5> heatCapacity{};
    double heatCapacityMinimumTemperature = 0;  ///< K, range of the polynomial as its source states it
    double heatCapacityMaximumTemperature = 0;  ///< K

    double dipoleMoment = 0;  ///< debye
    double association = 0;   ///< of DenseFluid, for compounds that form hydrogen bonds
    SurfaceFamily surfaceFamily = SurfaceFamily::general;

    std::string source;  ///< literature of each group of figures
    std::string notes;   ///< flags, often empty
};

}  // namespace orvane::package
