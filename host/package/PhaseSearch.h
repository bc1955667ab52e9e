// Finds the phases of a feed at a temperature and pressure.
// Not here: the two solvers it uses (StabilityTest, TwoPhaseSplit), the form of the answer (PengRobinsonModel).
#pragma once

#include "package/Equilibrium.h"
#include "package/PhasePair.h"
#include "package/StabilityTest.h"

#include <optional>

namespace orvane::package {

/// The phases of one mole of feed of n compounds, all fractions above zero, by the rules stated at PengRobinsonModel.
class PhaseSearch {
public:
    /// The feed and the isotherm live longer than this.
    PhaseSearch(const Isotherm& isotherm, double pressure, const double* feed);

    /// Searches. lnK: ratios to try first, from a state nearby, or null. Throws PackageError when a solver
    /// does not converge.
    void run(const double* lnK = nullptr);

    /// Takes two phases in equilibrium, found otherwise, and looks for a third as run() does in the end.
    /// Another pair may come of it; then changed() is true.
    void examine(const PhasePair& pair);

    bool twoPhases() const { return two_; }
    const PhasePair& pair() const { return pair_; }       ///< of two phases, ordered
    const CubicPhase& single() const { return single_; }  ///< the feed in one phase, stable root; after run()
    PhaseKind singleKind() const { return singleKind_; }  ///< of one phase
    bool changed() const { return changed_; }

    /// Of two phases: both are liquids.
    bool liquidLiquid() const { return liquidLiquid_; }

    /// Of two phases: mole fractions of a third that would form too. Beside a vapour it is a liquid; beside
    /// two liquids it is a vapour so small that neither liquid alone has a vapour.
    const std::optional<CompoundArray>& thirdPhase() const { return thirdPhase_; }

    int evaluations() const { return evaluations_; }

private:
    bool splitFromRatios(const double* lnK);
    bool splitFromTrial(const TrialPhase& trial);
    bool isLiquid(const CubicPhase& phase) const;
    PhaseKind kindOfSingle(const TrialPhase& nearest) const;
    void lookForThird();

    const Isotherm& isotherm_;
    double pressure_;
    const double* feed_;
    std::size_t n_;
    CompoundArray d_;  // ln of the fugacity of the feed in one phase, over the pressure
    double feedGibbs_ = 0;
    CubicPhase single_;
    PhasePair pair_;
    bool two_ = false;
    bool changed_ = false;
    bool liquidLiquid_ = false;
    PhaseKind singleKind_ = PhaseKind::vapor;
    std::optional<CompoundArray> thirdPhase_;
    int evaluations_ = 0;
};

}  // namespace orvane::package
