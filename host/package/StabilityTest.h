// Looks for a phase that would form from a phase, or from two phases in equilibrium, by the tangent plane.
// Not here: what comes of such a phase (PhaseSearch).
#pragma once

#include "package/CubicPhase.h"
#include "package/MixtureParameters.h"
#include "package/PhasePair.h"

#include <cstddef>
#include <limits>

namespace orvane::package {

/// A stationary point of the tangent plane distance, or a phase met on the way to one that lies below the
/// plane.
struct TrialPhase {
    CompoundArray composition;
    double reducedVolume = 0;  ///< volume over covolume
    double distance =
        std::numeric_limits<double>::infinity();  ///< tm, see StabilityTest; below 0: it would form
    CompoundArray lnPhi;
};

/// Michelsen's test of a phase of composition z against all others at its temperature and pressure:
///     tm(W) = 1 + sum W_i (ln W_i + lnPhi_i(W) - d_i - 1),   d_i = ln z_i + lnPhi_i(z),
/// is negative for some W if and only if the phase is not stable. It is minimised from the starts of the
/// members try..., by successive substitution and then Newton's method, until it is negative, or so flat that
/// it cannot become negative any more, or W has become z.
/// Source: M. L. Michelsen, Fluid Phase Equilib. 9 (1982) 1-19.
class StabilityTest {
public:
    /// tm below this counts as negative; rounding in d and tm stays well above it.
    static constexpr double unstableBelow = -1e-13;

    /// A gas of a larger reduced volume (v / b; 3.951 at the critical point) has no other gas beside it:
    /// gases part at the densities of liquids only. Starts that lead to a gas are left out for it.
    static constexpr double thinGas = 8;

    /// known, d: composition and tangent plane of the phase under test, n entries each, all fractions above
    /// zero. otherKnown: a second phase in equilibrium with it, or null. All live longer than this, as does
    /// isotherm. reducedVolume: of the phase, or the larger of both.
    StabilityTest(const Isotherm& isotherm, double pressure, const double* d, double reducedVolume,
                  const double* known, const double* otherKnown = nullptr);

    /// From a vapour, or a liquid, in the ratios of Wilson's formula to the phase under test. True when
    /// unstable; then found() is the phase. So are the others.
    bool tryVapor();
    bool tryLiquid();

    /// From the mixture as an ideal gas.
    bool tryIdealGas();

    /// From a composition between those known, such as the feed of two phases.
    bool tryComposition(const double* composition);

    /// Along the direction of negative curvature, where there is one: inside of the spinodal, which close to
    /// a critical point the other starts may miss.
    bool tryCurvature();

    /// From each compound as a dense phase of its own, unless its fugacity there is so far above the
    /// mixture's that no phase could consist mostly of it.
    bool tryPureCompounds();

    /// The phase of lowest tm so far, other than those known. Its distance is infinite when every start ended
    /// in a known phase.
    const TrialPhase& found() const { return found_; }

    int evaluations() const { return evaluations_; }

private:
    bool tryWilson(double sign);
    bool minimise(const CompoundArray& start);
    double newton(const CompoundArray& W, const CompoundArray& gradient, double total,
                  CompoundArray& direction);
    void curvature(const double* W, double total, SmallMatrix& out) const;
    bool isKnown(const CompoundArray& W) const;
    bool isFound(const CompoundArray& w) const;
    void keep(double tm, const CompoundArray& W, double total);

    const Isotherm& isotherm_;
    double pressure_;
    const double* d_;
    bool gasKnown_;
    const double* known_;
    const double* otherKnown_;
    std::size_t n_;
    CubicPhase phase_;
    TrialPhase found_;
    int evaluations_ = 0;
};

/// ln K of each compound by Wilson's formula, K = Pc/P exp(5.373 (1 + omega)(1 - Tc/T)).
/// Source: G. M. Wilson, 65th National AIChE Meeting, Cleveland (1969), paper 15C.
void wilsonRatios(const Isotherm& isotherm, double pressure, double* lnK);

}  // namespace orvane::package
