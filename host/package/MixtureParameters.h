// The numbers of a mixture that its equation of state and its ideal gas work with, and nothing else, so that
// the mixture of the compounds that are present in a feed is quickly made.
// Not here: how they are computed (PengRobinson, from the compounds).
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace orvane::package {

/// Most compounds of one mixture: it sizes the working space of the solvers, which is on the stack.
inline constexpr std::size_t maxCompounds = 60;

/// Molar gas constant [J/mol/K]. Exact by the definition of the SI (2019).
inline constexpr double gasConstant = 8.31446261815324;

/// Constants of the Peng-Robinson equation, a = omegaA (R Tc)^2 / Pc and b = omegaB R Tc / Pc at the critical
/// point, to all digits from its criticality conditions. The article (see PengRobinson) rounds them to
/// 0.45724 and 0.07780.
inline constexpr double omegaA = 0.457235528921382;
inline constexpr double omegaB = 0.0777960739038885;

/// Working space of one figure per compound; only the first entries, as many as compounds, are used.
using CompoundArray = std::array<double, maxCompounds>;

/// Parameters of a Peng-Robinson mixture, all vectors one entry per compound.
struct MixtureParameters {
    std::size_t size = 0;
    std::vector<double> criticalTemperature;  ///< K
    std::vector<double> criticalPressure;     ///< Pa
    std::vector<double> acentricFactor;
    std::vector<double> covolume;  ///< b [m3/mol]
    /// sqrt(a) = |rootA - rootASlope sqrt(T)| [sqrt(J m3)/mol]: both factors of alpha's square root
    /// multiplied out.
    std::vector<double> rootA;
    std::vector<double> rootASlope;
    std::vector<double> oneMinusInteraction;          ///< 1 - kij, element i * size + j
    std::vector<std::array<double, 5>> heatCapacity;  ///< coefficients of Cp/R of the ideal gas

    /// The mixture of some of the compounds, in the order of `indices`.
    MixtureParameters subset(std::span<const std::size_t> indices) const;
};

}  // namespace orvane::package
