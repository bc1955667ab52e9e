#include "package/StabilityTest.h"

#include "package/Cubic.h"
#include "package/PackageError.h"
#include "package/PhasePair.h"
#include "package/SmallCholesky.h"

#include <Eigen/Eigenvalues>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvane::package {
namespace {

constexpr int maxSteps = 300;
constexpr int substitutions = 7;  // before Newton's method
constexpr double finestGradient = 1e-12;
constexpr double acceptedGradient = 1e-8;  // when steps no longer make it smaller

// A compound as a phase of its own, in its dense root: what starts as the vapour of a compound that could
// condense stays a vapour, and the liquid would be missed.
struct DensePure {
    double lnPhi, reducedVolume;

    DensePure(const Isotherm& isotherm, double pressure, std::size_t i) : isotherm_(isotherm), i_(i) {
        constexpr double root2 = std::numbers::sqrt2;
        const double RT = gasConstant * isotherm.temperature;
        const double A = isotherm.rootA[i] * isotherm.rootA[i] * pressure / (RT * RT);
        const double B = isotherm.mixture.covolume[i] * pressure / RT;
        const double u = CubicRoots(A, B).smallest;
        const double logTerm = std::log1p(2 * root2 * B / (u + (2 - root2) * B)) / (2 * root2 * B);
        lnU_ = std::log(u);
        lnPhi = u + B - 1 - lnU_ - A * logTerm;
        perCovolume_ = (u + B - 1 + A * logTerm) / isotherm.mixture.covolume[i];
        perAttraction_ = 2 * logTerm * pressure / (RT * RT) * isotherm.rootA[i];
        reducedVolume = (u + B) / B;
    }

    // lnPhi of each compound at infinite dilution in this one.
    void infiniteDilution(double* out) const {
        const auto& mixture = isotherm_.mixture;
        const double* row = mixture.oneMinusInteraction.data() + i_ * mixture.size;
        for (std::size_t j = 0; j < mixture.size; ++j)
            out[j] = mixture.covolume[j] * perCovolume_ - lnU_ - perAttraction_ * row[j] * isotherm_.rootA[j];
    }

private:
    const Isotherm& isotherm_;
    std::size_t i_;
    double lnU_, perCovolume_, perAttraction_;
};

}  // namespace

void wilsonRatios(const Isotherm& isotherm, double pressure, double* lnK) {
    const auto& mixture = isotherm.mixture;
    for (std::size_t i = 0; i < mixture.size; ++i)
        lnK[i] = std::log(mixture.criticalPressure[i] / pressure) +
                 5.373 * (1 + mixture.acentricFactor[i]) *
                     (1 - mixture.criticalTemperature[i] / isotherm.temperature);
}

StabilityTest::StabilityTest(const Isotherm& isotherm, double pressure, const double* d, double reducedVolume,
                             const double* known, const double* otherKnown)
    : isotherm_(isotherm),
      pressure_(pressure),
      d_(d),
      gasKnown_(reducedVolume > thinGas),
      known_(known),
      otherKnown_(otherKnown),
      n_(isotherm.mixture.size) {}

bool StabilityTest::isKnown(const CompoundArray& W) const {
    const auto same = [&](const double* z) {
        for (std::size_t i = 0; i < n_; ++i)
            if (std::abs(W[i] - z[i]) > 1e-5 * (z[i] + 1e-3)) return false;
        return true;
    };
    return same(known_) || (otherKnown_ && same(otherKnown_));
}

// Whether w is about to become the stationary point that another start has led to.
bool StabilityTest::isFound(const CompoundArray& w) const {
    if (!std::isfinite(found_.distance)) return false;
    for (std::size_t i = 0; i < n_; ++i)
        if (std::abs(w[i] - found_.composition[i]) > 1e-3 * (w[i] + 1e-4)) return false;
    return true;
}

void StabilityTest::keep(double tm, const CompoundArray& W, double total) {
    if (!(tm < found_.distance)) return;
    found_.distance = tm;
    found_.reducedVolume = phase_.reducedVolume();
    found_.lnPhi = phase_.lnPhi;
    for (std::size_t i = 0; i < n_; ++i) found_.composition[i] = W[i] / total;
}

// From the start lnW to a verdict on it; true when it shows the phase under test to be unstable.
bool StabilityTest::minimise(const CompoundArray& start) {
    CompoundArray lnW = start, before = start, direction{};
    CompoundArray W, w, gradient;  // gradient: ln W_i + lnPhi_i - d_i
    double smallest = std::numeric_limits<double>::infinity(), tmBefore = smallest, length = 1;
    int stalled = 0, steps = 0;
    for (int count = 0; count < maxSteps; ++count) {
        double total = 0;
        for (std::size_t i = 0; i < n_; ++i) {
            lnW[i] = std::clamp(lnW[i], -650.0, 650.0);
            W[i] = std::exp(lnW[i]);
            total += W[i];
        }
        for (std::size_t i = 0; i < n_; ++i) w[i] = W[i] / total;
        phase_.solve(isotherm_, pressure_, w.data(), Root::stable);
        ++evaluations_;
        double tm = 1 - total, error = 0, slope = 0, otherSlope = 0;
        for (std::size_t i = 0; i < n_; ++i) {
            gradient[i] = lnW[i] + phase_.lnPhi[i] - d_[i];
            tm += W[i] * gradient[i];
            error = std::max(error, W[i] * gradient[i] * gradient[i]);
            slope += (W[i] - known_[i]) * gradient[i];
            if (otherKnown_) otherSlope += (W[i] - otherKnown_[i]) * gradient[i];
        }
        error = std::sqrt(error);
        if (tm > tmBefore + 1e-14 * total && length > 1e-3) {
            length *= 0.3;
            for (std::size_t i = 0; i < n_; ++i) lnW[i] = before[i] + length * direction[i];
            continue;
        }
        // W at hand may not have its best amount, which would lower tm further: negative is proof enough.
        if (tm < -1e-3) {
            keep(tm, W, total);
            return true;
        }
        if (error <= finestGradient || (stalled >= 6 && error <= acceptedGradient)) {
            if (isKnown(W)) return false;
            keep(tm, W, total);
            return tm < unstableBelow;
        }
        stalled = error < 0.5 * smallest ? 0 : stalled + 1;
        smallest = std::min(smallest, error);
        // Close to a known phase tm is the parabola of which that phase is the lowest point: 2 tm = slope.
        const auto nears = [tm](double s) {
            return s > 0 && tm > 0 && tm < 1e-3 && std::abs(2 * tm / s - 1) < 0.1;
        };
        if (steps >= 2 && (nears(slope) || (otherKnown_ && nears(otherSlope)))) return false;

        if (steps >= 2 && isFound(w)) return false;

        if (steps++ < substitutions) {
            for (std::size_t i = 0; i < n_; ++i) direction[i] = -gradient[i];
        } else {
            const double gain = newton(W, gradient, total, direction);
            double largest = 0;
            for (std::size_t i = 0; i < n_; ++i) largest = std::max(largest, std::abs(direction[i]));
            if (largest < 0.1 && gain < 0.1 * tm && !isKnown(W)) {  // a stationary point is near, above zero
                keep(tm, W, total);
                return false;
            }
        }
        tmBefore = tm;
        length = 1;
        before = lnW;
        for (std::size_t i = 0; i < n_; ++i) lnW[i] += direction[i];
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
double StabilityTest::newton(const CompoundArray& W, const CompoundArray& gradient, double total,
                             CompoundArray& direction) {
    const auto rows = static_cast<Eigen::Index>(n_);
    SmallMatrix second(rows, rows), factor(rows, rows);
    SmallVector downhill(rows), step(rows);
    curvature(W.data(), total, second);
    CompoundArray root;
    for (std::size_t i = 0; i < n_; ++i) {
        root[i] = std::sqrt(W[i]);
        downhill[static_cast<Eigen::Index>(i)] = -root[i] * gradient[i];
    }
    const double longest = std::sqrt(std::max(1.0, total));  // half of what all W together measure
    double gain = 0, atLeast = 0;
    for (double shift = 0;; shift = std::max({0.1, 3 * shift, atLeast})) {
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
    const auto within = [](double change) { return std::clamp(change, -farthest, farthest); };
    double slope = 0;
    for (std::size_t i = 0; i < n_; ++i) {
        direction[i] = within(step[static_cast<Eigen::Index>(i)] / root[i]);
        slope += W[i] * gradient[i] * direction[i];
    }
    if (slope >= 0)  // cut off at the farthest, the step may lead uphill; successive substitution never does
        for (std::size_t i = 0; i < n_; ++i) direction[i] = within(-gradient[i]);
    return gain;
}

// Second derivatives of tm by 2 sqrt(W_i) at a stationary point, from the solved phase.
void StabilityTest::curvature(const double* W, double total, SmallMatrix& out) const {
    std::array<double, maxCompounds * maxCompounds> byAmount;
    phase_.lnPhiByAmount(byAmount.data(), n_);
    CompoundArray root;
    for (std::size_t i = 0; i < n_; ++i) root[i] = std::sqrt(W[i]);
    for (std::size_t j = 0; j < n_; ++j) {
        double* column = &out(0, static_cast<Eigen::Index>(j));
        const double factor = root[j] / total;
        for (std::size_t i = 0; i < n_; ++i) column[i] = root[i] * factor * byAmount[j * n_ + i];
        column[j] += 1;
    }
}

bool StabilityTest::tryWilson(double sign) {
    CompoundArray lnW;
    wilsonRatios(isotherm_, pressure_, lnW.data());
    for (std::size_t i = 0; i < n_; ++i) lnW[i] = std::log(known_[i]) + sign * lnW[i];
    return minimise(lnW);
}

bool StabilityTest::tryVapor() { return !gasKnown_ && tryWilson(1); }

bool StabilityTest::tryLiquid() { return tryWilson(-1); }

// Inside of the spinodal, and close to a critical point only there, the phase under test is no minimum of tm
// but a saddle, from which the other starts may not have seen the way down.
bool StabilityTest::tryCurvature() {
    const auto rows = static_cast<Eigen::Index>(n_);
    SmallMatrix second(rows, rows);
    phase_.solve(isotherm_, pressure_, known_, Root::stable);
    curvature(known_, 1, second);
    SmallMatrix factor = second;
    if (factorise(factor)) return false;
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> eigen(second);
    for (const double sign : {0.1, -0.1}) {
        CompoundArray lnW;
        for (std::size_t i = 0; i < n_; ++i) {
            const double root = std::sqrt(known_[i]);
            const double moved = sign * eigen.eigenvectors()(static_cast<Eigen::Index>(i), 0);
            lnW[i] = 2 * std::log(std::max(root + moved, 0.1 * root));
        }
        if (minimise(lnW)) return true;
    }
    return false;
}

bool StabilityTest::tryIdealGas() {
    if (gasKnown_) return false;
    CompoundArray lnW;
    std::copy_n(d_, n_, lnW.begin());
    return minimise(lnW);
}

bool StabilityTest::tryComposition(const double* composition) {
    CompoundArray lnW;
    for (std::size_t i = 0; i < n_; ++i) lnW[i] = std::log(composition[i]);
    return minimise(lnW);
}

bool StabilityTest::tryPureCompounds() {
    CompoundArray lnW;
    // A phase half of which is the compound, with an activity coefficient of 2, has ln W_i = -1.4 here;
    // pressure adds its excess volume, taken to be no more than the covolume.
    constexpr double farAbove = -2;
    const double perCovolume = pressure_ / (gasConstant * isotherm_.temperature);
    for (std::size_t i = 0; i < n_; ++i) {
        const DensePure alone(isotherm_, pressure_, i);
        if (d_[i] - alone.lnPhi < farAbove - perCovolume * isotherm_.mixture.covolume[i] ||
            (gasKnown_ && alone.reducedVolume > thinGas))
            continue;
        alone.infiniteDilution(lnW.data());
        for (std::size_t j = 0; j < n_; ++j) lnW[j] = d_[j] - lnW[j];
        if (minimise(lnW)) return true;
    }
    return false;
}

}  // namespace orvane::package
