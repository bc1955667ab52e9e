// The properties of one phase at a temperature, pressure and composition.
// Not here: which phases there are (Flash), properties that the equation of state does not give.
#pragma once

#include "package/PengRobinson.h"

#include <span>
#include <vector>

namespace orvane::package {

/// Thermodynamic properties of one phase. Molar unless said otherwise; enthalpy, entropy and what is made of
/// them are zero for each pure compound as an ideal gas at 298.15 K and 101325 Pa. Immutable.
class PhaseProperties {
public:
    /// root: Root::vaporLike for a phase named Vapor, Root::liquidLike for one named Liquid. The equation of
    /// state need not live longer than this call. Throws PackageError as PengRobinson does.
    PhaseProperties(const PengRobinson& equation, double temperature, double pressure,
                    std::span<const double> x, Root root);

    double temperature() const { return temperature_; }          ///< K
    double pressure() const { return pressure_; }                ///< Pa
    double molecularWeight() const { return molecularWeight_; }  ///< g/mol, mean
    double compressibilityFactor() const { return compressibilityFactor_; }
    double volume() const { return volume_; }                                              ///< m3/mol
    double density() const { return 1 / volume_; }                                         ///< mol/m3
    double enthalpy() const { return enthalpy_; }                                          ///< J/mol
    double entropy() const { return entropy_; }                                            ///< J/mol/K
    double gibbsEnergy() const { return enthalpy_ - temperature_ * entropy_; }             ///< J/mol
    double internalEnergy() const { return enthalpy_ - pressure_ * volume_; }              ///< J/mol
    double helmholtzEnergy() const { return internalEnergy() - temperature_ * entropy_; }  ///< J/mol
    double heatCapacityCp() const { return heatCapacityCp_; }                              ///< J/mol/K
    double heatCapacityCv() const { return heatCapacityCv_; }                              ///< J/mol/K

    /// m/s. Throws PackageError where Cv or the square of the speed is not positive, which happens only where
    /// the polynomial of the ideal gas heat capacity is used far outside of its range.
    double speedOfSound() const;

    const std::vector<double>& logFugacityCoefficient() const { return lnPhi_; }  ///< one per compound
    std::vector<double> fugacityCoefficient() const;
    std::vector<double> fugacity() const;  ///< Pa; zero for a compound that is absent

private:
    double temperature_;
    double pressure_;
    double molecularWeight_ = 0;
    double compressibilityFactor_ = 0;
    double volume_ = 0;
    double enthalpy_ = 0;
    double entropy_ = 0;
    double heatCapacityCp_ = 0;
    double heatCapacityCv_ = 0;
    double pressureByVolume_ = 0;  // dP/dV at constant temperature [Pa mol/m3]
    std::vector<double> composition_;
    std::vector<double> lnPhi_;
};

}  // namespace orvane::package
