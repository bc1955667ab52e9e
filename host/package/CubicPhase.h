// The solution of the Peng-Robinson equation for one phase, and everything that follows from it analytically.
// Not here: checks of what the caller gives (PengRobinson) and ideal gas properties (IdealGas).
#pragma once

#include "package/MixtureParameters.h"
#include "package/PengRobinson.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace orvane::package {

/// v / b of a pure compound at its critical point, 3.951, from the criticality conditions of the equation.
inline const double criticalReducedVolume =
    1 + std::cbrt(4 - 2 * std::numbers::sqrt2) + std::cbrt(4 + 2 * std::numbers::sqrt2);

/// The parameters of a mixture at one temperature, shared by all phases at it.
struct Isotherm {
    const MixtureParameters& mixture;  ///< lives longer than this
    double temperature;
    CompoundArray rootA;     ///< square root of a
    CompoundArray rootAByT;  ///< its first and second derivative by temperature
    CompoundArray rootAByTT;

    Isotherm(const MixtureParameters& mixture, double temperature);
};

/// One phase: a root of the cubic with its fugacity coefficients, from which derivatives and departures
/// follow through the residual Helmholtz energy F = -n ln(1 - B / V) - D / T f(V, B), where B = n b, D = n^2
/// a.
/// Derivation: M. L. Michelsen, J. M. Mollerup, Thermodynamic Models: Fundamentals & Computational Aspects,
/// 2nd ed., Tie-Line (2007), chapters 2 and 3. The isotherm must live longer than this.
class CubicPhase {
public:
    CubicPhase() = default;

    /// Solves for the root. x: mole fractions, one per compound, sum 1.
    void solve(const Isotherm& isotherm, double pressure, const double* x, Root root);

    double Z = 0;       ///< compressibility factor
    double volume = 0;  ///< m3/mol
    double a = 0;       ///< J m3/mol2, of the mixture
    double b = 0;       ///< m3/mol, of the mixture
    bool threeRoots = false;
    bool largestRoot = false;  ///< where there are three: whether this is the largest
    CompoundArray lnPhi;

    /// Volume relative to the covolume; 3.951 at the critical point of a pure compound.
    double reducedVolume() const { return volume / b; }

    Departure departure() const;
    /// Departure of Cp and Cv [J/mol/K] from the ideal gas; derivative of pressure by volume [Pa mol/m3] at
    /// constant temperature.
    void heatCapacityDepartures(double& cp, double& cv) const;
    double pressureByVolume() const;
    double pressureByTemperature() const;  ///< at constant volume [Pa/K]

    void lnPhiByTemperature(double* out) const;  ///< 1/K
    void lnPhiByPressure(double* out) const;     ///< 1/Pa
    /// d lnPhi_i / d n_j in one mole [1/mol], row i column j at out[i * stride + j]; symmetric, both halves
    /// set.
    void lnPhiByAmount(double* out, std::size_t stride) const;

private:
    struct VolumeDerivatives;  // of F and its parts

    const Isotherm* isotherm_ = nullptr;
    double pressure_ = 0;
    double free_ = 0;  // V - B [m3/mol], which a dense phase would lose by subtraction
    double f_ = 0;     // f(V, B) of the class's formula
    CompoundArray x_;
    CompoundArray attraction_;  // sum over j of (1 - kij) sqrt(a_j) x_j
};

}  // namespace orvane::package
