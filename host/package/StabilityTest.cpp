#include "package/StabilityTest.h"

#include "package/DensePure.h"
#include "package/PackageError.h"
#include "package/PhasePair.h"
#include "package/SmallCholesky.h"

#include <Eigen/Eigenvalues>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace orvane::package {
namespace {

constexpr int maxSteps = 300;
constexpr double parabolaBelow = 2e-2;  // see nears()
constexpr int substitutions = 7;        // before Newton's method
constexpr double finestGradient = 1e-12;
constexpr double acceptedGradient = 1e-8;  // when steps no longer make it smaller

using FiguresOf = Eigen::Map<const Eigen::ArrayXd>;

FiguresOf figures(const double* values, std::size_t n) { return {values, static_cast<Eigen::Index>(n)}; }

}  // namespace

void wilsonRatios(const Isotherm& isotherm, double pressure, double* lnK) {
    const auto& mixture = isotherm.mixture;
    for (std::size_t i = 0; i < mixture.size; ++i)
        lnK[i] = std::log(mixture.criticalPressure[i] / pressure) +
                 5.373 * (1 + mixture.acentricFactor[i]) *
                     (1 - mixture.criticalTemperature[i] / isotherm.temperature);
}

// A phase on its way; `gradient` is ln W_i + lnPhi_i - d_i.
struct StabilityTest::Trial {
    Figures lnW, W, w, gradient;
    double total = 0, tm = 0;
    int steps = 0;  // taken to here
};

StabilityTest::StabilityTest(const Isotherm& isotherm, double pressure, const double* d, Known known,
                             std::optional<Known> otherKnown)
    : isotherm_(isotherm),
      pressure_(pressure),
      known_(known),
      otherKnown_(otherKnown),
      n_(isotherm.mixture.size),
      d_(figures(d, n_)),
      gasKnown_(known.phase.reducedVolume() > thinGas ||
                (otherKnown && otherKnown->phase.reducedVolume() > thinGas)) {}

// Of the phase under test, without the cost of logarithms.
StabilityTest::Figures StabilityTest::lnComposition() const {
    return d_ - figures(known_.phase.lnPhi.data(), n_);
}

bool StabilityTest::isKnown(const Figures& W) const {
    const auto same = [&](const Known& known) {
        const auto z = figures(known.composition, n_);
        return ((W - z).abs() <= 1e-5 * (z + 1e-3)).all();
    };
    return same(known_) || (otherKnown_ && same(*otherKnown_));
}

// Close to a known phase tm is the parabola of which that phase is the lowest point: 2 tm = slope. A phase of much
// the same composition but on another root of the cubic is told by its density.
bool StabilityTest::nears(const Known& known, const Trial& trial) const {
    if (std::abs(phase_.reducedVolume() / known.phase.reducedVolume() - 1) > 0.2) return false;
    const double slope = ((trial.W - figures(known.composition, n_)) * trial.gradient).sum();
    return slope > 0 && std::abs(2 * trial.tm / slope - 1) < 0.2;
}

// Whether w is about to become the stationary point that another start has led to.
bool StabilityTest::isFound(const Figures& w) const {
    if (!std::isfinite(found_.distance)) return false;
    return ((w - figures(found_.composition.data(), n_)).abs() <= 1e-3 * (w + 1e-4)).all();
}

void StabilityTest::keep(const Trial& trial) {
    if (!(trial.tm < found_.distance || trial.tm < unstableBelow)) return;
    found_.distance = trial.tm;
    found_.reducedVolume = phase_.reducedVolume();
    found_.lnPhi = phase_.lnPhi;
    std::copy_n(trial.w.data(), n_, found_.composition.begin());
}

// From the start lnW to a verdict on it; true when it shows the phase under test to be unstable.
bool StabilityTest::minimise(const Figures& start) {
    Trial trial;
    trial.lnW = start;
    Figures before, direction;
    double smallest = std::numeric_limits<double>::infinity(), tmBefore = smallest, length = 1;
    int stalled = 0;
    for (int count = 0; count < maxSteps; ++count) {
        trial.lnW = trial.lnW.max(-650).min(650);
        trial.W = trial.lnW.exp();
        trial.total = trial.W.sum();
        trial.w = trial.W * (1 / trial.total);
        phase_.solve(isotherm_, pressure_, trial.w.data(), Root::stable);
        ++evaluations_;
        trial.gradient = trial.lnW + figures(phase_.lnPhi.data(), n_) - d_;
        const double tm = trial.tm = 1 - trial.total + (trial.W * trial.gradient).sum();
        const double error = std::sqrt((trial.W * trial.gradient.square()).maxCoeff());
        if (tm > tmBefore + 1e-14 * trial.total && length > 1e-3) {
            length *= 0.3;
            trial.lnW = before + length * direction;
            continue;
        }
        // W at hand may not have its best amount, which would lower tm further: negative is proof enough, unless the
        // composition is still too rough to start two phases with.
        if (tm < -1e-3 && (error < 1 || trial.steps >= 5)) {
            keep(trial);
            return true;
        }
        if (error <= finestGradient || (stalled >= 6 && error <= acceptedGradient)) {
            if (isKnown(trial.W)) return false;
            keep(trial);
            return tm < unstableBelow;
        }
        stalled = error < 0.5 * smallest ? 0 : stalled + 1;
        smallest = std::min(smallest, error);
        if (trial.steps >= 1 && tm > 0 && tm < parabolaBelow &&
            (nears(known_, trial) || (otherKnown_ && nears(*otherKnown_, trial))))
            return false;
        if (trial.steps >= 2 && isFound(trial.w)) return false;

        // A valley far above zero that substitution would creep along: Newton's method may end it here.
        const bool flat = trial.steps >= 2 && error < 0.05 && tmBefore - tm < 0.01 * tm;
        double gain = std::numeric_limits<double>::infinity();
        if (flat || trial.steps >= substitutions) {
            gain = newton(trial, direction);
            const double largest = direction.abs().maxCoeff();
            // A stationary point is near, above zero.
            if (largest < 0.1 && gain < 0.1 * tm && !isKnown(trial.W)) {
                keep(trial);
                return false;
            }
        }
        if (trial.steps++ < substitutions && !std::isfinite(gain)) direction = -trial.gradient;
        tmBefore = tm;
        length = 1;
        before = trial.lnW;
        trial.lnW += direction;
    }
    throw PackageError(
        fmt::format("the stability test at T = {} K, P = {} Pa did not converge in {} steps: the "
                    "logarithms of a fugacity still differ by {:.3g}",
                    isotherm_.temperature, pressure_, maxSteps, smallest));
}

// The step of Newton's method in 2 sqrt(W_i), where the second derivatives are of order 1, as changes of ln
// W_i. These are shifted where they are not positive definite, or where the step would leave the valley that
// it is in: a leap to the next one is how a phase is missed. Returns by how much the quadratic model falls
// along the step; infinity where it was shifted.
double StabilityTest::newton(const Trial& trial, Figures& direction) {
    const auto rows = static_cast<Eigen::Index>(n_);
    SmallMatrix second(rows, rows), factor(rows, rows);
    const Figures root = trial.W.sqrt();
    curvature(phase_, root, trial.total, second);
    const SmallVector downhill = -root * trial.gradient;
    SmallVector step(rows);
    const double longest = std::sqrt(std::max(1.0, trial.total));  // half of what all W together measure
    // Close to a saddle, where the gradient is small, a large shift would crawl.
    const double first = std::clamp(10 * downhill.norm(), 1e-6, 0.1);
    double gain = 0, atLeast = 0;
    for (double shift = 0;; shift = std::max({first, 3 * shift, atLeast})) {
        factor = second;
        factor.diagonal().array() += shift;
        if (!factorise(factor)) continue;
        step = downhill;
        solveFactorised(factor, step);
        gain = shift > 0 ? std::numeric_limits<double>::infinity() : 0.5 * downhill.dot(step);
        const double size = step.norm();
        if (size <= longest) break;
        // A step so much too long takes a shift larger by this, if the second derivatives are alike all around.
        atLeast = shift + downhill.norm() * (1 / longest - 1 / size);
    }
    static constexpr double farthest = 5;  // the quadratic model says nothing beyond
    direction = (step.array() / root).max(-farthest).min(farthest);
    // Cut off at the farthest, the step may lead uphill; successive substitution never does.
    if ((trial.W * trial.gradient * direction).sum() >= 0)
        direction = (-trial.gradient).max(-farthest).min(farthest);
    return gain;
}

// Second derivatives of tm by 2 sqrt(W_i) at a stationary point, from the solved phase and sqrt(W_i).
void StabilityTest::curvature(const CubicPhase& phase, const Figures& root, double total,
                              SmallMatrix& out) const {
    phase.lnPhiByAmount(out.data(), n_);
    for (Eigen::Index j = 0; j < out.cols(); ++j) {
        out.col(j).array() *= root * (root[j] / total);
        out(j, j) += 1;
    }
}

bool StabilityTest::tryVapor(const double* lnK) {
    return !gasKnown_ && minimise(lnComposition() + figures(lnK, n_));
}

bool StabilityTest::tryLiquid(const double* lnK) { return minimise(lnComposition() - figures(lnK, n_)); }

// Inside of the spinodal, and close to a critical point only there, the phase under test is no minimum of tm
// but a saddle, from which the other starts may not have seen the way down.
bool StabilityTest::tryCurvature() {
    const auto rows = static_cast<Eigen::Index>(n_);
    SmallMatrix second(rows, rows);
    const Figures root = figures(known_.composition, n_).sqrt();
    curvature(known_.phase, root, 1, second);
    SmallMatrix factor = second;
    if (factorise(factor)) return false;
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> eigen(second);
    for (const double sign : {0.1, -0.1}) {
        const Figures moved = root + sign * eigen.eigenvectors().col(0).array();
        if (minimise(2 * moved.max(0.1 * root).log())) return true;
    }
    return false;
}

bool StabilityTest::tryIdealGas() { return !gasKnown_ && minimise(d_); }

bool StabilityTest::tryComposition(const double* composition) {
    return minimise(figures(composition, n_).log());
}

bool StabilityTest::tryPureCompounds() {
    Figures lnW(d_.size());
    // A phase half of which is the compound, with an activity coefficient of 2, has ln W_i = -1.4 here;
    // pressure adds its excess volume, taken to be no more than the covolume.
    constexpr double farAbove = -2;
    const double perCovolume = pressure_ / (gasConstant * isotherm_.temperature);
    while (nextPure_ < n_) {
        const std::size_t i = nextPure_++;
        const DensePure alone(isotherm_, pressure_, i);
        if (d_[static_cast<Eigen::Index>(i)] - alone.lnPhi <
                farAbove - perCovolume * isotherm_.mixture.covolume[i] ||
            (gasKnown_ && alone.reducedVolume > thinGas))
            continue;
        alone.infiniteDilution(lnW.data());
        if (minimise(d_ - lnW)) return true;
    }
    return false;
}

}  // namespace orvane::package
