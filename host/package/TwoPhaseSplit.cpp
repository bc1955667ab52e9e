#include "package/TwoPhaseSplit.h"

#include "package/SmallCholesky.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace orvane::package {
namespace {

constexpr int substitutions = 3;  // before Newton's method; they bring traces to their orders of magnitude
constexpr int maxSteps = 150;
constexpr double finestError = 1e-13;   // in ln fugacity: below this rounding rules
constexpr double acceptedError = 1e-9;  // when steps no longer make it smaller
constexpr double leastPhase = 1e-15;    // moles: less than rounding leaves of the feed is no phase
constexpr double samePhase = 1e-6;      // largest ln K of phases that are held to be one

double rounding(double gibbs) { return 1e-14 * std::max(1.0, std::abs(gibbs)); }

}  // namespace

TwoPhaseSplit::TwoPhaseSplit(const Isotherm& isotherm, double pressure, const double* feed)
    : isotherm_(isotherm), pressure_(pressure), feed_(feed), n_(isotherm.mixture.size) {}

void TwoPhaseSplit::evaluate() {
    pair_.evaluate(isotherm_, pressure_);
    ++evaluations_;
}

bool TwoPhaseSplit::startFromRatios(const double* lnK) {
    if (!rachfordRice(n_, feed_, lnK, pair_.amounts)) return false;
    evaluate();
    return true;
}

bool TwoPhaseSplit::startFromTrial(const double* composition, double feedGibbs) {
    double most = 0.5;
    for (std::size_t i = 0; i < n_; ++i)
        if (composition[i] > 0) most = std::min(most, 0.9 * feed_[i] / composition[i]);
    for (double amount = most; amount > 1e-12; amount *= 0.25) {
        for (std::size_t i = 0; i < n_; ++i) {
            pair_.amounts.vapor[i] = amount * composition[i];
            pair_.amounts.liquid[i] = feed_[i] - pair_.amounts.vapor[i];
        }
        evaluate();
        if (pair_.gibbs < feedGibbs) return belowFeed_ = true;
    }
    return false;
}

bool TwoPhaseSplit::substitute() {
    CompoundArray lnK;
    for (std::size_t i = 0; i < n_; ++i) lnK[i] = pair_.liquid.lnPhi[i] - pair_.vapor.lnPhi[i];
    const PhaseAmounts before = pair_.amounts;
    const double gibbsBefore = pair_.gibbs;
    if (!rachfordRice(n_, feed_, lnK.data(), pair_.amounts)) return false;
    evaluate();
    // What is below one phase already must not climb back to it.
    if (!belowFeed_ || pair_.gibbs <= gibbsBefore + rounding(gibbsBefore)) return true;
    pair_.amounts = before;
    evaluate();
    return false;
}

// One step of Newton's method. False, without a step, when no length of it lowers the Gibbs energy. `length`:
// the largest change of a compound's ln amount, in either phase, that the whole step would make.
bool TwoPhaseSplit::newton(double& length) {
    const auto rows = static_cast<Eigen::Index>(n_);
    CompoundArray scale;
    pair_.scale(n_, feed_, scale);
    SmallMatrix second(rows, rows), factor(rows, rows);
    pair_.secondDerivatives(n_, scale, second);
    SmallVector gradient(rows);
    for (Eigen::Index i = 0; i < rows; ++i) {
        const auto k = static_cast<std::size_t>(i);
        gradient[i] = -scale[k] * pair_.imbalance[k];
    }

    const PhaseAmounts before = pair_.amounts;
    const double gibbsBefore = pair_.gibbs, errorBefore = pair_.error;
    // Close to a saddle, where the gradient is small, a large shift would crawl.
    const double first = std::clamp(gradient.norm(), 1e-8, 1e-3);
    for (double shift = 0; shift < 1e3; shift = std::max(first, 10 * shift)) {
        factor = second;
        factor.diagonal().array() += shift;
        if (!factorise(factor)) continue;
        SmallVector step = gradient;
        solveFactorised(factor, step);
        length = 0;
        for (Eigen::Index i = 0; i < rows; ++i) {
            const auto k = static_cast<std::size_t>(i);
            step[i] *= scale[k];
            length = std::max(length, std::abs(step[i]) / std::min(before.vapor[k], before.liquid[k]));
        }
        for (double fraction = 1; fraction > 1e-3; fraction *= 0.4) {
            pair_.transfer(n_, step, fraction);
            evaluate();
            // Close to the solution the Gibbs energy has only rounding left to tell, the imbalance still a
            // lot.
            if (pair_.gibbs < gibbsBefore ||
                (pair_.gibbs <= gibbsBefore + rounding(gibbsBefore) && pair_.error <= errorBefore))
                return true;
            pair_.amounts = before;
        }
    }
    evaluate();
    return false;
}

TwoPhaseSplit::Verdict TwoPhaseSplit::solve() {
    double smallest = pair_.error;
    int stalled = 0;
    for (int step = 0; step < maxSteps; ++step) {
        if (!(std::min(pair_.vaporAmount, pair_.liquidAmount) > leastPhase)) return Verdict::onePhase;
        if (pair_.distance(n_) < samePhase) return Verdict::onePhase;
        if (step < substitutions) {
            if (pair_.error <= finestError) return Verdict::twoPhases;
            if (substitute()) continue;
            if (step == 0 && !belowFeed_) return Verdict::onePhase;
        }
        double length = 0;
        const bool moved = newton(length);
        const bool finished = !moved || length <= 1e-9;
        if (pair_.error <= finestError || (finished && pair_.error <= acceptedError))
            return Verdict::twoPhases;
        if (!moved && !substitute()) return Verdict::onePhase;
        // Near a critical point rounding in the cubic, magnified, keeps the error above the finest.
        stalled = pair_.error < 0.5 * smallest ? 0 : stalled + 1;
        smallest = std::min(smallest, pair_.error);
        if (stalled >= 6 && pair_.error <= acceptedError) return Verdict::twoPhases;
    }
    return Verdict::notConverged;
}

std::string TwoPhaseSplit::complaint() const {
    return fmt::format(
        "two phases at T = {} K, P = {} Pa did not reach equilibrium in {} steps: the logarithms of a "
        "fugacity still differ by {:.3g}",
        isotherm_.temperature, pressure_, maxSteps, pair_.error);
}

}  // namespace orvane::package
