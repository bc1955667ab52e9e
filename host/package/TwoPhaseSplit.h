// Amounts and compositions of two phases at a temperature and pressure.
// Not here: whether there are two phases (StabilityTest) and which they are (PhaseSearch).
#pragma once

#include "package/PhasePair.h"

#include <string>

namespace orvane::package {

/// Minimises the Gibbs energy of two phases: a few successive substitutions, then Newton's method with
/// analytic second derivatives, shifted where these are not positive definite, and a search along each step
/// that only takes lower Gibbs energies. Needs all n fractions of the feed above zero.
/// Source of the method: M. L. Michelsen, Fluid Phase Equilib. 9 (1982) 21-40.
class TwoPhaseSplit {
public:
    /// feed and isotherm live longer than this.
    TwoPhaseSplit(const Isotherm& isotherm, double pressure, const double* feed);

    /// Begins with phases of these ratios of mole fractions, vapour to liquid. False when no positive amounts
    /// of two such phases make up the feed.
    bool startFromRatios(const double* lnK);

    /// Begins with a small amount of a phase of this composition, as much as lowers the Gibbs energy below
    /// that of the feed in one phase. False when no amount down to 1e-12 does.
    bool startFromTrial(const double* composition, double feedGibbs);

    enum class Verdict {
        twoPhases,     ///< equal fugacities, to rounding
        onePhase,      ///< the phases became equal, or nothing was left of one of them
        notConverged,  ///< neither within the steps allowed; see complaint()
    };

    /// From the start to a verdict.
    Verdict solve();

    /// What to say of Verdict::notConverged: conditions, steps and the largest difference in ln fugacity
    /// left.
    std::string complaint() const;

    const PhasePair& pair() const { return pair_; }
    int evaluations() const { return evaluations_; }

private:
    void evaluate();
    bool substitute();
    bool newton(double& length);

    const Isotherm& isotherm_;
    double pressure_;
    const double* feed_;
    std::size_t n_;
    PhasePair pair_;
    bool belowFeed_ = false;  // whether the start is known to have less Gibbs energy than one phase
    int evaluations_ = 0;
};

}  // namespace orvane::package
