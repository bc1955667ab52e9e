// The answer of a flash: the phases of a feed, their amounts and compositions.
// Not here: how it is found (Model).
#pragma once

#include "package/PengRobinson.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvane::package {

enum class PhaseKind { vapor, liquid };

/// The label of a phase in the package: "Vapor" or "Liquid".
constexpr std::string_view label(PhaseKind kind) { return kind == PhaseKind::vapor ? "Vapor" : "Liquid"; }

/// The root of the cubic that belongs to a phase of this name.
constexpr Root root(PhaseKind kind) { return kind == PhaseKind::vapor ? Root::vaporLike : Root::liquidLike; }

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
    /// What the user should know of the answer; see PengRobinsonModel on second liquids.
    std::vector<std::string> warnings;
    /// Not empty, with both liquids, when the phases are two liquids: an answer that only Model::phasesAt()
    /// gives.
    std::string refusal;
};

}  // namespace orvane::package
