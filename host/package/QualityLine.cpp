#include "package/QualityLine.h"

#include "package/StabilityTest.h"

#include <Eigen/LU>

#include <algorithm>
#include <cmath>

namespace orvane::package {
namespace {

constexpr double finest = 1e-13;   // largest residual
constexpr double accepted = 1e-9;  // when rounding keeps it from becoming smaller
constexpr double onePhase = 1e-7;  // largest ln K of phases that are held to be one
constexpr double longestLnK = 3, longestLnT = 0.1, longestLnP = 1;  // of one step
constexpr int substitutions = 6;

}  // namespace

QualityLine::QualityLine(const MixtureParameters& mixture, const double* feed, double vaporFraction)
    : mixture_(mixture), feed_(feed), vaporFraction_(vaporFraction), n_(mixture.size) {}

double QualityLine::temperature() const { return std::exp(state[n_]); }
double QualityLine::pressure() const { return std::exp(state[n_ + 1]); }

double QualityLine::largestLnK() const {
    double largest = 0;
    for (std::size_t i = 0; i < n_; ++i) largest = std::max(largest, std::abs(state[i]));
    return largest;
}

void QualityLine::compose() {
    sumX_ = sumY_ = 0;
    for (std::size_t i = 0; i < n_; ++i) {
        const double K = std::exp(std::clamp(state[i], -600.0, 600.0));
        x_[i] = feed_[i] / (1 - vaporFraction_ + vaporFraction_ * K);
        y_[i] = K * x_[i];
        sumX_ += x_[i];
        sumY_ += y_[i];
    }
    for (std::size_t i = 0; i < n_; ++i) {
        liquidShare_[i] = x_[i] / sumX_;
        vaporShare_[i] = y_[i] / sumY_;
    }
}

void QualityLine::solvePhases(const Isotherm& isotherm, Root vaporRoot, Root liquidRoot) {
    vapor_.solve(isotherm, pressure(), vaporShare_.data(), vaporRoot);
    liquid_.solve(isotherm, pressure(), liquidShare_.data(), liquidRoot);
    ++evaluations_;
}

bool QualityLine::start(Variable given, double value) {
    // By Wilson's formula ln K_i is ln P_i - ln P + c_i (1 - Tc_i / T).
    const bool findTemperature = given == Variable::pressure;
    double meanTc = 0;
    for (std::size_t i = 0; i < n_; ++i) meanTc += feed_[i] * mixture_.criticalTemperature[i];
    state[n_] = std::log(findTemperature ? 0.7 * meanTc : value);
    state[n_ + 1] = std::log(findTemperature ? value : 1e5);
    const std::size_t unknown = findTemperature ? n_ : n_ + 1;
    const double longest = findTemperature ? 0.15 : 2;
    for (int step = 0; step < 60; ++step) {
        const Isotherm isotherm(mixture_, temperature());
        wilsonRatios(isotherm, pressure(), state.data());
        compose();
        double slope = 0;  // of ln (sum y / sum x)
        for (std::size_t i = 0; i < n_; ++i) {
            const double lnKByUnknown = findTemperature ? 5.373 * (1 + mixture_.acentricFactor[i]) *
                                                              mixture_.criticalTemperature[i] / temperature()
                                                        : -1;
            slope += lnKByUnknown * x_[i] * y_[i] / feed_[i] *
                     ((1 - vaporFraction_) / sumY_ + vaporFraction_ / sumX_);
        }
        const double change = std::clamp(-std::log(sumY_ / sumX_) / slope, -longest, longest);
        if (!std::isfinite(change)) return false;
        state[unknown] += change;
        if (std::abs(change) < 1e-4) break;
    }
    for (int step = 0; step < substitutions; ++step) {
        const double T = temperature(), P = pressure();
        if (!(T > lowestTemperature && T < highestTemperature && P > lowestPressure && P < highestPressure))
            return false;
        const Isotherm isotherm(mixture_, T);
        compose();
        solvePhases(isotherm, Root::vaporLike, Root::liquidLike);
        CompoundArray vaporBy, liquidBy;
        if (findTemperature) {
            vapor_.lnPhiByTemperature(vaporBy.data());
            liquid_.lnPhiByTemperature(liquidBy.data());
        } else {
            vapor_.lnPhiByPressure(vaporBy.data());
            liquid_.lnPhiByPressure(liquidBy.data());
        }
        for (std::size_t i = 0; i < n_; ++i) state[i] = liquid_.lnPhi[i] - vapor_.lnPhi[i];
        compose();
        double slope = 0;
        for (std::size_t i = 0; i < n_; ++i)
            slope += (findTemperature ? T : P) * (liquidBy[i] - vaporBy[i]) * x_[i] * y_[i] / feed_[i] *
                     ((1 - vaporFraction_) / sumY_ + vaporFraction_ / sumX_);
        const double limit = findTemperature ? 0.05 : 0.5;
        const double change = std::clamp(-std::log(sumY_ / sumX_) / slope, -limit, limit);
        if (!std::isfinite(change)) return false;
        state[unknown] += change;
        for (std::size_t i = 0; i < n_; ++i)
            state[i] += change * (findTemperature ? T : P) * (liquidBy[i] - vaporBy[i]);
        if (largestLnK() < 1e-3) return false;  // on its way to one phase
    }
    return true;
}

double QualityLine::residuals(Vector& out) const {
    double largest = 0;
    for (std::size_t i = 0; i < n_; ++i) {
        out[static_cast<Eigen::Index>(i)] = state[i] + vapor_.lnPhi[i] - liquid_.lnPhi[i];
        largest = std::max(largest, std::abs(out[static_cast<Eigen::Index>(i)]));
    }
    out[static_cast<Eigen::Index>(n_)] = sumY_ - sumX_;
    return std::max(largest, std::abs(sumY_ - sumX_));
}

// n + 1 rows, n + 2 columns in the order of the state.
void QualityLine::derivatives(Matrix& out) const {
    const auto rows = static_cast<Eigen::Index>(n_ + 1);
    out.resize(rows, rows + 1);
    std::array<double, maxCompounds * maxCompounds> inVapor, inLiquid;
    vapor_.lnPhiByAmount(inVapor.data(), n_);
    liquid_.lnPhiByAmount(inLiquid.data(), n_);
    CompoundArray vaporByT, liquidByT, vaporByP, liquidByP;
    vapor_.lnPhiByTemperature(vaporByT.data());
    liquid_.lnPhiByTemperature(liquidByT.data());
    vapor_.lnPhiByPressure(vaporByP.data());
    liquid_.lnPhiByPressure(liquidByP.data());
    const double T = temperature(), P = pressure();
    for (std::size_t j = 0; j < n_; ++j) {
        const auto column = static_cast<Eigen::Index>(j);
        const double both =
            x_[j] * y_[j] / feed_[j];  // d x_j = -beta both d ln K_j, d y_j = (1 - beta) both d ln K_j
        const double perVapor = (1 - vaporFraction_) * both / sumY_,
                     perLiquid = vaporFraction_ * both / sumX_;
        for (std::size_t i = 0; i < n_; ++i)
            out(static_cast<Eigen::Index>(i), column) =
                inVapor[j * n_ + i] * perVapor + inLiquid[j * n_ + i] * perLiquid;
        out(column, column) += 1;
        out(rows - 1, column) = both;
    }
    for (std::size_t i = 0; i < n_; ++i) {
        const auto row = static_cast<Eigen::Index>(i);
        out(row, rows - 1) = T * (vaporByT[i] - liquidByT[i]);
        out(row, rows) = P * (vaporByP[i] - liquidByP[i]);
    }
    out(rows - 1, rows - 1) = out(rows - 1, rows) = 0;
}

// Solves for all unknowns but the one kept, whose entry in `out` is zero.
bool QualityLine::solveWithout(std::size_t kept, const Matrix& full, const Vector& right, Vector& out) const {
    const auto rows = static_cast<Eigen::Index>(n_ + 1), without = static_cast<Eigen::Index>(kept);
    Matrix square(rows, rows);
    square.leftCols(without) = full.leftCols(without);
    square.rightCols(rows - without) = full.rightCols(rows - without);
    const Eigen::PartialPivLU<Eigen::Ref<Matrix>> lu(square);
    const Vector solution = lu.solve(right);
    if (!solution.allFinite()) return false;
    out.resize(rows + 1);
    out.head(without) = solution.head(without);
    out[without] = 0;
    out.tail(rows - without) = solution.tail(rows - without);
    return true;
}

bool QualityLine::correct(std::size_t kept, bool byName, int maxSteps) {
    const auto rows = static_cast<Eigen::Index>(n_ + 1);
    Vector residual(rows), step;
    double smallest = 1e300;
    int stalled = 0;
    for (steps_ = 0; steps_ < maxSteps; ++steps_) {
        if (!(temperature() > lowestTemperature && temperature() < highestTemperature &&
              pressure() > lowestPressure && pressure() < highestPressure))
            return false;
        const Isotherm isotherm(mixture_, temperature());
        compose();
        solvePhases(isotherm, byName ? Root::vaporLike : Root::stable,
                    byName ? Root::liquidLike : Root::stable);
        const double error = residuals(residual);
        if (!std::isfinite(error) || largestLnK() < onePhase) return false;
        derivatives(matrix_);
        stalled = error < 0.5 * smallest ? 0 : stalled + 1;
        smallest = std::min(smallest, error);
        if (error <= finest || (stalled >= 3 && error <= accepted)) return true;
        if (!solveWithout(kept, matrix_, -residual, step)) return false;
        double length = 1;
        for (std::size_t i = 0; i < n_ + 2; ++i) {
            const double longest = i < n_ ? longestLnK : i == n_ ? longestLnT : longestLnP;
            length =
                std::min(length, longest / std::max(std::abs(step[static_cast<Eigen::Index>(i)]), 1e-300));
        }
        for (std::size_t i = 0; i < n_ + 2; ++i) state[i] += length * step[static_cast<Eigen::Index>(i)];
    }
    return false;
}

bool QualityLine::slopes(std::size_t kept, State& out) {
    Vector change;
    const Vector right = -matrix_.col(static_cast<Eigen::Index>(kept));
    if (!solveWithout(kept, matrix_, right, change)) return false;
    for (std::size_t i = 0; i < n_ + 2; ++i) out[i] = change[static_cast<Eigen::Index>(i)];
    out[kept] = 1;
    return true;
}

bool QualityLine::byVaporFraction(std::size_t kept, State& out) {
    const auto rows = static_cast<Eigen::Index>(n_ + 1);
    std::array<double, maxCompounds * maxCompounds> inVapor, inLiquid;
    vapor_.lnPhiByAmount(inVapor.data(), n_);
    liquid_.lnPhiByAmount(inLiquid.data(), n_);
    Vector right = Vector::Zero(rows), change;
    for (std::size_t j = 0; j < n_; ++j) {
        const double part = (y_[j] - x_[j]) / feed_[j];
        for (std::size_t i = 0; i < n_; ++i)
            right[static_cast<Eigen::Index>(i)] +=
                part * (y_[j] * inVapor[j * n_ + i] - x_[j] * inLiquid[j * n_ + i]);
        right[rows - 1] += part * (y_[j] - x_[j]);
    }
    if (!solveWithout(kept, matrix_, right, change)) return false;
    for (std::size_t i = 0; i < n_ + 2; ++i) out[i] = change[static_cast<Eigen::Index>(i)];
    return true;
}

PhasePair QualityLine::pair(const Isotherm& isotherm) const {
    PhasePair result;
    result.vaporAmount = vaporFraction_;
    result.liquidAmount = 1 - vaporFraction_;
    result.vaporComposition = vaporShare_;
    result.liquidComposition = liquidShare_;
    result.vapor.solve(isotherm, pressure(), vaporShare_.data(), Root::stable);
    result.liquid.solve(isotherm, pressure(), liquidShare_.data(), Root::stable);
    for (std::size_t i = 0; i < n_; ++i) {
        result.amounts.vapor[i] = vaporFraction_ * y_[i];
        result.amounts.liquid[i] = (1 - vaporFraction_) * x_[i];
        const double inVapor = std::log(vaporShare_[i]) + result.vapor.lnPhi[i];
        const double inLiquid = std::log(liquidShare_[i]) + result.liquid.lnPhi[i];
        result.imbalance[i] = inVapor - inLiquid;
        result.gibbs += result.amounts.vapor[i] * inVapor + result.amounts.liquid[i] * inLiquid;
        if (std::min(vaporShare_[i], liquidShare_[i]) > 1e-250)
            result.error = std::max(result.error, std::abs(result.imbalance[i]));
    }
    return result;
}

}  // namespace orvane::package
