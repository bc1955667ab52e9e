#include "package/PhaseSearch.h"

#include "package/PackageError.h"
#include "package/TwoPhaseSplit.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace orvane::package {
namespace {

// a / (b R T) of a pure compound at its critical point; it falls as the temperature rises.
constexpr double criticalAttraction = omegaA / omegaB;
constexpr double liquidReducedVolume = 1.75;  // see PengRobinsonModel

// G of two phases may exceed that of one by rounding, where the lesser phase is very small.
constexpr double gibbsRounding = 1e-12;
// Phases more alike than this by ln K are left to the stability test, which tells them from one phase.
constexpr double clearlyTwo = 1e-3;

}  // namespace

PhaseSearch::PhaseSearch(const Isotherm& isotherm, double pressure, const double* feed)
    : isotherm_(isotherm), pressure_(pressure), feed_(feed), n_(isotherm.mixture.size) {}

bool PhaseSearch::isLiquid(const CubicPhase& phase) const {
    if (phase.threeRoots) return !phase.largestRoot;
    const bool subcritical = phase.a > criticalAttraction * phase.b * gasConstant * isotherm_.temperature;
    return subcritical && phase.reducedVolume() < criticalReducedVolume;
}

PhaseKind PhaseSearch::kindOfSingle(const TrialPhase& nearest) const {
    if (isLiquid(single_)) return PhaseKind::liquid;
    if (single_.threeRoots) return PhaseKind::vapor;
    if (single_.reducedVolume() < liquidReducedVolume) return PhaseKind::liquid;
    const bool supercritical =
        single_.a <= criticalAttraction * single_.b * gasConstant * isotherm_.temperature;
    const bool lighterNearby =
        std::isfinite(nearest.distance) && nearest.reducedVolume > single_.reducedVolume();
    return supercritical && lighterNearby ? PhaseKind::liquid : PhaseKind::vapor;
}

bool PhaseSearch::splitFromRatios(const double* lnK) {
    TwoPhaseSplit split(isotherm_, pressure_, feed_);
    const bool found = split.startFromRatios(lnK) && split.solve() == TwoPhaseSplit::Verdict::twoPhases &&
                       split.pair().gibbs <= feedGibbs_ + gibbsRounding;
    evaluations_ += split.evaluations();
    if (found) pair_ = split.pair();
    return found;
}

bool PhaseSearch::splitFromTrial(const TrialPhase& trial) {
    CompoundArray lnK;
    for (std::size_t i = 0; i < n_; ++i) lnK[i] = single_.lnPhi[i] - trial.lnPhi[i];
    if (splitFromRatios(lnK.data())) return true;

    TwoPhaseSplit split(isotherm_, pressure_, feed_);
    if (split.startFromTrial(trial.composition.data(), feedGibbs_)) {
        const auto verdict = split.solve();
        evaluations_ += split.evaluations();
        if (verdict == TwoPhaseSplit::Verdict::notConverged) throw PackageError(split.complaint());
        if (verdict == TwoPhaseSplit::Verdict::twoPhases) {
            pair_ = split.pair();
            return true;
        }
    }
    // So little of the new phase would form that it is lost in the rounding of the Gibbs energy.
    double most = 1;
    for (std::size_t i = 0; i < n_; ++i)
        if (trial.composition[i] > 0) most = std::min(most, feed_[i] / trial.composition[i]);
    if (trial.distance > -1e-8 || (most < 1e-8 && -trial.distance * most < gibbsRounding)) return false;
    throw PackageError(
        fmt::format("the feed at T = {} K, P = {} Pa is not stable (tangent plane distance {:.3g}), but "
                    "the two phases that it forms were not found",
                    isotherm_.temperature, pressure_, trial.distance));
}

void PhaseSearch::run(const double* lnK) {
    single_.solve(isotherm_, pressure_, feed_, Root::stable);
    ++evaluations_;
    two_ = false;
    if (n_ == 1) {
        singleKind_ = kindOfSingle({});
        return;
    }
    feedGibbs_ = 0;
    for (std::size_t i = 0; i < n_; ++i) {
        d_[i] = std::log(feed_[i]) + single_.lnPhi[i];
        feedGibbs_ += feed_[i] * d_[i];
    }
    CompoundArray wilson;
    wilsonRatios(isotherm_, pressure_, wilson.data());
    two_ = splitFromRatios(lnK ? lnK : wilson.data()) && pair_.distance(n_) > clearlyTwo;
    if (!two_) {
        StabilityTest test(isotherm_, pressure_, d_.data(), {feed_, single_});
        const bool unstable = test.tryVapor(wilson.data()) || test.tryLiquid(wilson.data()) ||
                              test.tryIdealGas() || test.tryPureCompounds() || test.tryCurvature();
        evaluations_ += test.evaluations();
        two_ = unstable && splitFromTrial(test.found());
        if (!two_) singleKind_ = kindOfSingle(test.found());
    }
    if (two_) lookForThird();
}

void PhaseSearch::examine(const PhasePair& pair) {
    pair_ = pair;
    two_ = true;
    feedGibbs_ = pair.gibbs;
    lookForThird();
}

void PhaseSearch::lookForThird() {
    changed_ = liquidLiquid_ = false;
    thirdPhase_.reset();
    std::optional<PhasePair> earlierWithVapor;
    const auto better = [](const PhasePair& pair, const std::optional<PhasePair>& than) {
        return !than || pair.gibbs < than->gibbs;
    };
    constexpr int maxRounds = 6;
    for (int round = 0;; ++round) {
        pair_.order();
        CompoundArray d;
        for (std::size_t i = 0; i < n_; ++i)
            d[i] = std::log(pair_.liquidComposition[i]) + pair_.liquid.lnPhi[i];
        StabilityTest test(isotherm_, pressure_, d.data(), {pair_.liquidComposition.data(), pair_.liquid},
                           StabilityTest::Known{pair_.vaporComposition.data(), pair_.vapor});
        const bool noVapor = isLiquid(pair_.vapor);
        const bool unstable =
            (noVapor && test.tryIdealGas()) || test.tryPureCompounds() || test.tryComposition(feed_);
        evaluations_ += test.evaluations();
        if (!unstable) {
            liquidLiquid_ = noVapor;
            return;
        }
        if (round == maxRounds)
            throw PackageError(
                fmt::format("the phases at T = {} K, P = {} Pa were not found in {} rounds: the last two "
                            "are not stable (tangent plane distance {:.3g})",
                            isotherm_.temperature, pressure_, maxRounds, test.found().distance));

        // The new phase with each of the two: does one of these pairs have less Gibbs energy? Where none has, other
        // new phases may still lead to one that has.
        std::optional<PhasePair> best, bestWithVapor;
        CompoundArray leftOut = test.found().composition;
        const int before = test.evaluations();
        bool first = true;
        do {
            const TrialPhase& third = test.found();
            for (const bool withLiquid : {true, false}) {
                const CubicPhase& partner = withLiquid ? pair_.liquid : pair_.vapor;
                CompoundArray lnK;
                for (std::size_t i = 0; i < n_; ++i) lnK[i] = partner.lnPhi[i] - third.lnPhi[i];
                TwoPhaseSplit split(isotherm_, pressure_, feed_);
                const bool found =
                    split.startFromRatios(lnK.data()) && split.solve() == TwoPhaseSplit::Verdict::twoPhases;
                evaluations_ += split.evaluations();
                if (!found) continue;
                PhasePair candidate = split.pair();
                candidate.order();
                if (better(candidate, best)) best = candidate;
                if (first && noVapor && !isLiquid(candidate.vapor) && better(candidate, bestWithVapor)) {
                    bestWithVapor = candidate;
                    leftOut = withLiquid ? pair_.vaporComposition : pair_.liquidComposition;
                }
            }
            first = false;
        } while (!(best && best->gibbs < pair_.gibbs - gibbsRounding) && test.tryPureCompounds());
        evaluations_ += test.evaluations() - before;
        if (best && best->gibbs < pair_.gibbs - gibbsRounding) {
            if (!noVapor && better(pair_, earlierWithVapor)) earlierWithVapor = pair_;
            pair_ = *best;
            changed_ = true;
            continue;
        }
        // No pair is stable: three phases. Of two liquids and a vapour the better liquid goes with the
        // vapour.
        liquidLiquid_ = noVapor && !bestWithVapor;
        if (bestWithVapor) {
            if (earlierWithVapor && earlierWithVapor->gibbs < bestWithVapor->gibbs - gibbsRounding) {
                const auto unlike = [&](const CompoundArray& liquid) {
                    double sum = 0;
                    for (std::size_t i = 0; i < n_; ++i)
                        sum += std::abs(liquid[i] - earlierWithVapor->liquidComposition[i]);
                    return sum;
                };
                const bool lighter = unlike(pair_.vaporComposition) > unlike(pair_.liquidComposition);
                leftOut = lighter ? pair_.vaporComposition : pair_.liquidComposition;
                bestWithVapor = earlierWithVapor;
            }
            pair_ = *bestWithVapor;
            changed_ = true;
        }
        thirdPhase_ = leftOut;
        return;
    }
}

}  // namespace orvane::package
