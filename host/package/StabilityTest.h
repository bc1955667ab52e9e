// Looks for a phase that would form from a phase, or from two phases in equilibrium, by the tangent plane.
// Not here: what comes of such a phase (PhaseSearch).
#pragma once

#include "package/CubicPhase.h"
#include "package/MixtureParameters.h"
#include "package/PhasePair.h"

#include <Eigen/Core>

#include <cstddef>
#include <limits>
#include <optional>

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
/// it cannot become negative any more, or W is in the valley that leads to z.
/// Source: M. L. Michelsen, Fluid Phase Equilib. 9 (1982) 1-19.
class StabilityTest {
public:
    /// tm below this counts as negative; rounding in d and tm stays well above it.
    static constexpr double unstableBelow = -1e-13;

    /// A gas of a larger reduced volume (v / b; 3.951 at the critical point) has no other gas beside it:
    /// gases part at the densities of liquids only. Starts that lead to a gas are left out for it.
    static constexpr double thinGas = 8;

    /// A phase that is there already; both live longer than the test.
    struct Known {
        const double* composition;  ///< n entries, all above zero
        const CubicPhase& phase;    ///< solved for the composition at the isotherm and pressure
    };

    /// known, d: the phase under test and its tangent plane, n entries. otherKnown: a second phase in
    /// equilibrium with it. d and the isotherm live longer than this.
    StabilityTest(const Isotherm& isotherm, double pressure, const double* d, Known known,
                  std::optional<Known> otherKnown = {});

    /// From a vapour, or a liquid, in the ratios K of wilsonRatios() to the phase under test. True when
    /// unstable; then found() is the phase. So are the others.
    bool tryVapor(const double* lnK);
    bool tryLiquid(const double* lnK);

    /// From the mixture as an ideal gas.
    bool tryIdealGas();

    /// From a composition between those known, such as the feed of two phases.
    bool tryComposition(const double* composition);

    /// Along the direction of negative curvature, where there is one: inside of the spinodal, which close to
    /// a critical point the other starts may miss.
    bool tryCurvature();

    /// From each compound as a dense phase of its own, unless its fugacity there is so far above the
    /// mixture's that no phase could consist mostly of it. Stops at the first that is unstable; called again, it
    /// goes on with the next.
    bool tryPureCompounds();

    /// The last phase found that would form; without one that of lowest tm so far, other than those known. Its
    /// distance is infinite when every start ended in a known phase.
    const TrialPhase& found() const { return found_; }

    int evaluations() const { return evaluations_; }

private:
    /// One figure per compound, on which Eigen works two at a time.
    using Figures = Eigen::Array<double, Eigen::Dynamic, 1, 0, maxCompounds, 1>;
    struct Trial;

    Figures lnComposition() const;
    bool minimise(const Figures& start);
    double newton(const Trial& trial, Figures& direction);
    void curvature(const CubicPhase& phase, const Figures& root, double total, SmallMatrix& out) const;
    bool isKnown(const Figures& W) const;
    bool nears(const Known& known, const Trial& trial) const;
    bool isFound(const Figures& w) const;
    void keep(const Trial& trial);

    const Isotherm& isotherm_;
    double pressure_;
    Known known_;
    std::optional<Known> otherKnown_;
    std::size_t n_;
    Figures d_;
    bool gasKnown_;
    CubicPhase phase_;
    TrialPhase found_;
    std::size_t nextPure_ = 0;
    int evaluations_ = 0;
};

/// ln K of each compound by Wilson's formula, K = Pc/P exp(5.373 (1 + omega)(1 - Tc/T)).
/// Source: G. M. Wilson, 65th National AIChE Meeting, Cleveland (1969), paper 15C.
void wilsonRatios(const Isotherm& isotherm, double pressure, double* lnK);

}  // namespace orvane::package
