#include "package/RachfordRice.h"

#include "package/PackageError.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvane::package {

bool rachfordRice(std::size_t n, const double* feed, const double* lnK, PhaseAmounts& amounts) {
    // K of the lesser phase to the greater, and K - 1: neither gives the other to all digits.
    CompoundArray ratio, excess;
    const auto setRatios = [&](double sign) {
        for (std::size_t i = 0; i < n; ++i) {
            const double exponent = sign * std::clamp(lnK[i], -600.0, 600.0);
            ratio[i] = std::exp(exponent);
            excess[i] = std::abs(exponent) < 0.5 ? std::expm1(exponent) : ratio[i] - 1;
        }
    };
    setRatios(1);
    double atZero = 0, atOne = 0, atHalf = 0;
    for (std::size_t i = 0; i < n; ++i) {
        atZero += feed[i] * excess[i];
        atOne += feed[i] * excess[i] / ratio[i];
        atHalf += feed[i] * excess[i] / (1 + ratio[i]);
    }
    if (!(atZero > 0 && atOne < 0)) return false;

    const bool lesserVapor = atHalf < 0;
    if (!lesserVapor) setRatios(-1);

    // The sum falls monotonically from positive at 0 to negative at 1/2.
    double low = 0, high = 0.5;
    double beta = 0.25, lastChange = 1;
    constexpr int maxSteps = 200;
    for (int step = 0;; ++step) {
        double sum = 0, slope = 0;
        for (std::size_t i = 0; i < n; ++i) {
            const double term = excess[i] / (1 + beta * excess[i]);
            sum += feed[i] * term;
            slope += feed[i] * term * term;
        }
        (sum > 0 ? low : high) = beta;
        double next = beta + sum / slope;
        // Halving the logarithm where 0 is still the lower end: a lesser phase may be many decades small.
        if (!(next > low && next < high)) next = low > 0 ? 0.5 * (low + high) : high * 1e-3;
        const double change = std::abs(next - beta);
        beta = next;
        // Newton's steps become ever shorter, until the rounding of a sum of large terms is all that is left.
        if (change < 1e-6 * beta && change >= lastChange) break;
        lastChange = change;
        if (change <= 1e-14 * beta || high - low <= std::numeric_limits<double>::epsilon() * high) break;
        if (beta < std::numeric_limits<double>::min()) return false;
        if (step == maxSteps)
            throw PackageError(
                fmt::format("no phase fraction for given equilibrium ratios after {} steps: between {} "
                            "and {}",
                            maxSteps, low, high));
    }
    auto& lesser = lesserVapor ? amounts.vapor : amounts.liquid;
    auto& greater = lesserVapor ? amounts.liquid : amounts.vapor;
    for (std::size_t i = 0; i < n; ++i) {
        const double denominator = 1 + beta * excess[i];
        lesser[i] = feed[i] * beta * ratio[i] / denominator;
        greater[i] = feed[i] * (1 - beta) / denominator;
    }
    return true;
}

}  // namespace orvane::package
