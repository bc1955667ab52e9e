// What a flash finds: the phases that are present, their amounts and compositions.
// Not here: how it is found (Flash).
#pragma once

#include "package/PengRobinson.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvane::package {

enum class PhaseKind { vapor, liquid };

/// The label of a phase in the package: "Vapor" or "Liquid".
std::string_view label(PhaseKind kind);

/// The root of the cubic that belongs to a phase of this name.
Root root(PhaseKind kind);

struct PhaseResult {
    PhaseKind kind;
    double fraction = 0;              ///< moles of the phase per mole of feed; 0 for an incipient phase
    std::vector<double> composition;  ///< mole fractions
};

/// One mole of feed in equilibrium.
struct Equilibrium {
    double temperature = 0;           ///< K
    double pressure = 0;              ///< Pa
    std::vector<PhaseResult> phases;  ///< one or two, the vapour first
    double vaporFraction = 0;         ///< moles of vapour per mole of feed, 0 to 1
    int iterations = 0;  ///< evaluations of the equation of state for a pair of phases, all solvers
    /// What the user should know of the answer; see Flash on second liquids.
    std::vector<std::string> warnings;
};

/// Enthalpy [J/mol], entropy [J/mol/K] and volume [m3/mol] of one mole of feed over all phases.
double enthalpy(const PengRobinson& equation, const Equilibrium& equilibrium);
double entropy(const PengRobinson& equation, const Equilibrium& equilibrium);
double volume(const PengRobinson& equation, const Equilibrium& equilibrium);

}  // namespace orvane::package
