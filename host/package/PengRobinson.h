// The Peng-Robinson equation of state of a mixture: fugacity coefficients, volume and departures of one
// phase.
// Not here: ideal gas properties (IdealGas), all properties of a phase together (PhaseProperties),
// equilibrium (PengRobinsonModel).
#pragma once

#include "package/Compound.h"
#include "package/Interaction.h"
#include "package/MixtureParameters.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace orvane::package {

/// Which root of the cubic is meant where there are three positive ones. Where there is one, all three mean
/// it.
enum class Root {
    vaporLike,   ///< the largest volume
    liquidLike,  ///< the smallest volume
    stable,      ///< the one of lower Gibbs energy
};

/// Departure from the ideal gas at the same temperature, pressure and composition.
struct Departure {
    double enthalpy = 0;  ///< J/mol
    double entropy = 0;   ///< J/mol/K
};

/// Peng-Robinson equation of state of a mixture with the van der Waals one-fluid mixing rules, without volume
/// translation. K, Pa, mol, J; immutable, so threads may share one.
///
/// Everywhere below x are the mole fractions in the order of compounds(), sum 1 (not normalised here); zero
/// fractions are allowed and give the figures at infinite dilution. All members throw PackageError when the
/// temperature or pressure is not finite and positive, x has another length, a fraction is negative or not a
/// number, or the sum is not within 1e-9 of 1. They never return NaN.
///
/// Source: D.-Y. Peng, D. B. Robinson, Ind. Eng. Chem. Fundam. 15 (1976) 59-64.
class PengRobinson {
public:
    /// One to maxCompounds compounds. Interaction parameters are those of CompoundTable, 0 where it has none,
    /// unless `overrides` gives the pair. Throws PackageError, naming the compound and the constant that it
    /// lacks, a compound that comes twice, or an override that names a compound outside of the mixture.
    explicit PengRobinson(std::vector<Compound> compounds, const std::vector<Interaction>& overrides = {});

    std::size_t size() const { return compounds_.size(); }
    const std::vector<Compound>& compounds() const { return compounds_; }
    double interaction(std::size_t i, std::size_t j) const;

    /// Compressibility factor PV/RT.
    double compressibilityFactor(double temperature, double pressure, std::span<const double> x,
                                 Root root) const;

    /// Molar volume [m3/mol].
    double volume(double temperature, double pressure, std::span<const double> x, Root root) const;

    /// ln of the fugacity coefficients, one per compound.
    std::vector<double> lnPhi(double temperature, double pressure, std::span<const double> x,
                              Root root) const;

    /// Derivatives of lnPhi by temperature [1/K] and by pressure [1/Pa], at constant composition.
    std::vector<double> lnPhiByTemperature(double temperature, double pressure, std::span<const double> x,
                                           Root root) const;
    std::vector<double> lnPhiByPressure(double temperature, double pressure, std::span<const double> x,
                                        Root root) const;

    /// Derivatives of lnPhi by amount in one mole of mixture, element i * size() + j: d lnPhi_i / d n_j
    /// [1/mol]. Symmetric.
    std::vector<double> lnPhiByAmount(double temperature, double pressure, std::span<const double> x,
                                      Root root) const;

    Departure departure(double temperature, double pressure, std::span<const double> x, Root root) const;

    /// What the solvers of the package work with.
    const MixtureParameters& parameters() const { return parameters_; }

private:
    std::vector<Compound> compounds_;
    MixtureParameters parameters_;
};

}  // namespace orvane::package
