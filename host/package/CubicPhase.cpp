#include "package/CubicPhase.h"

#include "package/Cubic.h"
#include "package/PackageError.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace orvane::package {
namespace {

constexpr double R = gasConstant;
constexpr double delta1 =
    1 + std::numbers::sqrt2;  // the cubic's attractive term is a / ((V + d1 B)(V + d2 B))
constexpr double delta2 = 1 - std::numbers::sqrt2;

// Sum of products. In pairs that need not wait for each other, as the additions of a plain loop would.
double dot(const double* a, const double* b, std::size_t n) {
    std::array<double, 4> sums{};
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4)
        for (std::size_t k = 0; k < 4; ++k) sums[k] += a[i + k] * b[i + k];
    for (; i < n; ++i) sums[0] += a[i] * b[i];
    return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

// A symmetric matrix times a vector: rows into all sums at once, several at a time, for the same reason.
void multiplySymmetric(const double* matrix, const double* vector, double* __restrict out, std::size_t n) {
    const auto addRows = [=]<std::size_t... k>(std::size_t i, std::index_sequence<k...>) {
        for (std::size_t j = 0; j < n; ++j)
            out[j] = (... + (vector[i + k] * matrix[(i + k) * n + j])) + (i == 0 ? 0 : out[j]);
    };
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) addRows(i, std::make_index_sequence<4>());
    for (; i + 2 <= n; i += 2) addRows(i, std::make_index_sequence<2>());
    if (i < n) addRows(i, std::make_index_sequence<1>());
}

}  // namespace

Isotherm::Isotherm(const MixtureParameters& parameters, double T) : mixture(parameters), temperature(T) {
    const double rootT = std::sqrt(T);
    for (std::size_t i = 0; i < mixture.size; ++i) {
        // Beyond the temperature where alpha vanishes its square root continues with the other sign.
        const double value = mixture.rootA[i] - mixture.rootASlope[i] * rootT;
        const double slope = std::copysign(mixture.rootASlope[i], value * mixture.rootASlope[i]);
        rootA[i] = std::abs(value);
        rootAByT[i] = -slope / (2 * rootT);
        rootAByTT[i] = slope / (4 * T * rootT);
    }
}

void CubicPhase::solve(const Isotherm& isotherm, double pressure, const double* x, Root root) {
    isotherm_ = &isotherm;
    pressure_ = pressure;
    const auto& mixture = isotherm.mixture;
    const std::size_t n = mixture.size;
    const double T = isotherm.temperature;

    CompoundArray weighted;
    for (std::size_t i = 0; i < n; ++i) {
        x_[i] = x[i];
        weighted[i] = isotherm.rootA[i] * x[i];
    }
    b = dot(x, mixture.covolume.data(), n);
    multiplySymmetric(mixture.oneMinusInteraction.data(), weighted.data(), attraction_.data(), n);
    a = dot(weighted.data(), attraction_.data(), n);

    const double RT = R * T;
    const double A = a * pressure / (RT * RT), B = b * pressure / RT;
    // Large positive kij can make a negative in principle; the bracket of the roots rests on A >= 0.
    if (!(A >= 0))
        throw PackageError(
            fmt::format("the mixture's attraction is negative at T = {} K: check the interaction "
                        "parameters",
                        T));
    const CubicRoots roots(A, B);
    threeRoots = roots.three;
    const auto logarithm = [B](double u) {  // f(V, B) times R b
        return std::log1p((delta1 - delta2) * B / (u + (1 + delta2) * B)) / (delta1 - delta2);
    };
    double u = roots.smallest;
    double logTerm = logarithm(u);
    largestRoot = true;
    if (roots.three) {
        largestRoot = root == Root::vaporLike;
        if (root == Root::stable) {
            const double other = logarithm(roots.largest);
            const double gain = roots.largest - u - std::log(roots.largest / u) - A / B * (other - logTerm);
            largestRoot = gain <= 0;
        }
        if (largestRoot) {
            u = roots.largest;
            logTerm = logarithm(u);
        }
    }
    Z = u + B;
    volume = Z * RT / pressure;
    free_ = u * RT / pressure;
    f_ = logTerm / (R * b);

    const double lnU = std::log(u);
    const double perCovolume = (Z - 1 + a * f_ / T) / b;
    const double perAttraction = 2 * f_ / T;
    for (std::size_t i = 0; i < n; ++i)
        lnPhi[i] =
            mixture.covolume[i] * perCovolume - lnU - perAttraction * isotherm.rootA[i] * attraction_[i];
    if (!std::isfinite(lnU) || !std::isfinite(perCovolume))
        throw PackageError(
            fmt::format("the equation of state overflows at T = {} K, P = {} Pa", T, pressure));
}

// F_X of the class's formula for one mole; D stands for a n^2.
struct CubicPhase::VolumeDerivatives {
    double f, fV, fB, fVV, fBV, fBB;

    explicit VolumeDerivatives(const CubicPhase& phase) {
        const double V = phase.volume, B = phase.b;
        const double q = (phase.free_ + (1 + delta1) * B) * (phase.free_ + (1 + delta2) * B);
        f = phase.f_;
        fV = -1 / (R * q);
        fB = -(f + V * fV) / B;
        fVV = (2 * V + (delta1 + delta2) * B) / (R * q * q);
        fBV = -(2 * fV + V * fVV) / B;
        fBB = -(2 * fB + V * fBV) / B;
    }
};

namespace {

// sum over j of (1 - kij) rootAByT_j x_j, and from it the derivatives of the mixture's a by temperature.
struct AttractionByTemperature {
    CompoundArray slopes;
    double aT = 0, aTT = 0;

    AttractionByTemperature(const Isotherm& isotherm, const CompoundArray& x,
                            const CompoundArray& attraction) {
        const auto& mixture = isotherm.mixture;
        const std::size_t n = mixture.size;
        CompoundArray weighted{};
        for (std::size_t i = 0; i < n; ++i) weighted[i] = isotherm.rootAByT[i] * x[i];
        multiplySymmetric(mixture.oneMinusInteraction.data(), weighted.data(), slopes.data(), n);
        for (std::size_t i = 0; i < n; ++i) {
            const double sum = slopes[i];
            aT += 2 * weighted[i] * attraction[i];
            aTT += 2 * (isotherm.rootAByTT[i] * x[i] * attraction[i] + weighted[i] * sum);
        }
    }
};

}  // namespace

double CubicPhase::pressureByVolume() const {
    const VolumeDerivatives d(*this);
    const double T = isotherm_->temperature;
    return -R * T / (free_ * free_) + R * a * d.fVV;
}

double CubicPhase::pressureByTemperature() const {
    const VolumeDerivatives d(*this);
    const AttractionByTemperature t(*isotherm_, x_, attraction_);
    return R / free_ + R * t.aT * d.fV;
}

Departure CubicPhase::departure() const {
    const double T = isotherm_->temperature;
    const AttractionByTemperature t(*isotherm_, x_, attraction_);
    const double residualEntropy = R * (std::log(free_ / volume) + t.aT * f_);  // at the same T and V
    return {.enthalpy = R * f_ * (T * t.aT - a) + R * T * (Z - 1),
            .entropy = residualEntropy + R * std::log(Z)};
}

void CubicPhase::heatCapacityDepartures(double& cp, double& cv) const {
    const double T = isotherm_->temperature;
    const VolumeDerivatives d(*this);
    const AttractionByTemperature t(*isotherm_, x_, attraction_);
    cv = R * T * f_ * t.aTT;
    const double pT = R / free_ + R * t.aT * d.fV;
    const double pV = -R * T / (free_ * free_) + R * a * d.fVV;
    cp = cv - T * pT * pT / pV - R;
}

void CubicPhase::lnPhiByPressure(double* out) const {
    const VolumeDerivatives d(*this);
    const auto& mixture = isotherm_->mixture;
    const double T = isotherm_->temperature;
    const double pV = pressureByVolume();
    for (std::size_t i = 0; i < mixture.size; ++i) {
        const double bi = mixture.covolume[i], di = 2 * isotherm_->rootA[i] * attraction_[i];
        const double pN = R * T / free_ + R * T * bi / (free_ * free_) + R * (a * bi * d.fBV + di * d.fV);
        out[i] = -pN / pV / (R * T) - 1 / pressure_;
    }
}

void CubicPhase::lnPhiByTemperature(double* out) const {
    const VolumeDerivatives d(*this);
    const AttractionByTemperature t(*isotherm_, x_, attraction_);
    const auto& mixture = isotherm_->mixture;
    const double T = isotherm_->temperature;
    const double pV = pressureByVolume();
    const double pT = R / free_ + R * t.aT * d.fV;
    for (std::size_t i = 0; i < mixture.size; ++i) {
        const double bi = mixture.covolume[i], di = 2 * isotherm_->rootA[i] * attraction_[i];
        const double diT = 2 * (isotherm_->rootAByT[i] * attraction_[i] + isotherm_->rootA[i] * t.slopes[i]);
        const double FiT = -((diT - di / T) * f_ + (t.aT - a / T) * d.fB * bi) / T;
        const double pN = R * T / free_ + R * T * bi / (free_ * free_) + R * (a * bi * d.fBV + di * d.fV);
        out[i] = FiT + 1 / T + pN / pV * pT / (R * T);
    }
}

void CubicPhase::lnPhiByAmount(double* out, std::size_t stride) const {
    const VolumeDerivatives d(*this);
    const auto& mixture = isotherm_->mixture;
    const std::size_t n = mixture.size;
    const double T = isotherm_->temperature, RT = R * T;
    const double pV = pressureByVolume();
    const double FnB = 1 / free_;
    const double FBB = 1 / (free_ * free_) - a * d.fBB / T;
    const double FBD = -d.fB / T;
    const double FD = -f_ / T;
    const double perPressure = 1 / (RT * pV);
    CompoundArray D, pN;
    for (std::size_t i = 0; i < n; ++i) {
        const double bi = mixture.covolume[i];
        D[i] = 2 * isotherm_->rootA[i] * attraction_[i];
        pN[i] = RT / free_ + RT * bi / (free_ * free_) + R * (a * bi * d.fBV + D[i] * d.fV);
    }
    const double* row = mixture.oneMinusInteraction.data();
    for (std::size_t i = 0; i < n; ++i, row += n) {
        const double bi = mixture.covolume[i];
        const double constant = FnB * bi + 1;
        const double perB = FnB + FBD * D[i] + FBB * bi;
        const double perD = FBD * bi;
        const double perA = 2 * FD * isotherm_->rootA[i];
        const double perP = perPressure * pN[i];
        for (std::size_t j = 0; j < n; ++j)
            out[i * stride + j] = constant + perB * mixture.covolume[j] + perD * D[j] +
                                  perA * isotherm_->rootA[j] * row[j] + perP * pN[j];
    }
}

}  // namespace orvane::package
