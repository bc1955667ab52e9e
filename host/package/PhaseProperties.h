// The properties of one phase at a temperature, pressure and composition.
// Not here: which phases there are (Model), properties that a model does not give (Transport).
#pragma once

#include "package/PengRobinson.h"

#include <span>
#include <utility>
#include <vector>

namespace orvane::package {

/// What a model gives of one phase, molar; all other properties follow from it.
struct PhaseFigures {
    double temperature = 0;          ///< K
    double pressure = 0;             ///< Pa
    double molecularWeight = 0;      ///< g/mol, mean
    double volume = 0;               ///< m3/mol
    double enthalpy = 0;             ///< J/mol, zero points as in IdealGas
    double entropy = 0;              ///< J/mol/K
    double heatCapacityCp = 0;       ///< J/mol/K
    double heatCapacityCv = 0;       ///< J/mol/K
    double idealHeatCapacityCp = 0;  ///< J/mol/K, of the ideal gas
    double volumeByTemperature = 0;  ///< at constant pressure [m3/mol/K]
    double volumeByPressure = 0;     ///< at constant temperature [m3/mol/Pa]; 0: incompressible
    std::vector<double> composition;
    std::vector<double> lnPhi;  ///< ln of the fugacity coefficients
};

/// Thermodynamic properties of one phase. Molar unless said otherwise; enthalpy, entropy and what is made of
/// them are zero for each pure compound as an ideal gas at 298.15 K and 101325 Pa. Immutable.
class PhaseProperties {
public:
    explicit PhaseProperties(PhaseFigures figures) : of_(std::move(figures)) {}

    /// root: Root::vaporLike for a phase named Vapor, Root::liquidLike for one named Liquid. The equation of
    /// state need not live longer than this call. Throws PackageError as PengRobinson does.
    PhaseProperties(const PengRobinson& equation, double temperature, double pressure,
                    std::span<const double> x, Root root);

    double temperature() const { return of_.temperature; }          ///< K
    double pressure() const { return of_.pressure; }                ///< Pa
    double molecularWeight() const { return of_.molecularWeight; }  ///< g/mol, mean
    double compressibilityFactor() const;
    double volume() const { return of_.volume; }                                             ///< m3/mol
    double density() const { return 1 / of_.volume; }                                        ///< mol/m3
    double enthalpy() const { return of_.enthalpy; }                                         ///< J/mol
    double entropy() const { return of_.entropy; }                                           ///< J/mol/K
    double gibbsEnergy() const { return enthalpy() - temperature() * entropy(); }            ///< J/mol
    double internalEnergy() const { return enthalpy() - pressure() * volume(); }             ///< J/mol
    double helmholtzEnergy() const { return internalEnergy() - temperature() * entropy(); }  ///< J/mol
    double heatCapacityCp() const { return of_.heatCapacityCp; }                             ///< J/mol/K
    double heatCapacityCv() const { return of_.heatCapacityCv; }                             ///< J/mol/K
    double idealHeatCapacityCp() const { return of_.idealHeatCapacityCp; }  ///< of the ideal gas, J/mol/K
    double volumeByTemperature() const { return of_.volumeByTemperature; }  ///< m3/mol/K
    double volumeByPressure() const { return of_.volumeByPressure; }        ///< m3/mol/Pa

    /// m/s. Throws PackageError where Cv or the square of the speed is not positive, which happens where the
    /// polynomial of the ideal gas heat capacity is used far outside of its range, and where the model takes
    /// the phase to be incompressible.
    double speedOfSound() const;

    /// Change of temperature with pressure at constant enthalpy [K/Pa].
    double jouleThomsonCoefficient() const;

    const std::vector<double>& composition() const { return of_.composition; }
    const std::vector<double>& logFugacityCoefficient() const { return of_.lnPhi; }  ///< one per compound
    std::vector<double> fugacityCoefficient() const;
    std::vector<double> fugacity() const;  ///< Pa; zero for a compound that is absent
    /// ln of the fugacities over 1 Pa; minus infinity for a compound that is absent.
    std::vector<double> logFugacity() const;

private:
    PhaseFigures of_;
};

}  // namespace orvane::package
