#include "package/PhasePair.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvane::package {

void PhasePair::evaluate(const Isotherm& isotherm, double pressure, Root vaporRoot, Root liquidRoot) {
    const std::size_t n = isotherm.mixture.size;
    vaporAmount = liquidAmount = 0;
    for (std::size_t i = 0; i < n; ++i) {
        vaporAmount += amounts.vapor[i];
        liquidAmount += amounts.liquid[i];
    }
    for (std::size_t i = 0; i < n; ++i) {
        vaporComposition[i] = amounts.vapor[i] / vaporAmount;
        liquidComposition[i] = amounts.liquid[i] / liquidAmount;
    }
    vapor.solve(isotherm, pressure, vaporComposition.data(), vaporRoot);
    liquid.solve(isotherm, pressure, liquidComposition.data(), liquidRoot);
    gibbs = error = 0;
    for (std::size_t i = 0; i < n; ++i) {
        const double inVapor = std::log(vaporComposition[i]) + vapor.lnPhi[i];
        const double inLiquid = std::log(liquidComposition[i]) + liquid.lnPhi[i];
        imbalance[i] = inVapor - inLiquid;
        gibbs += amounts.vapor[i] * inVapor + amounts.liquid[i] * inLiquid;
        if (std::min(vaporComposition[i], liquidComposition[i]) > 1e-250)
            error = std::max(error, std::abs(imbalance[i]));
    }
}

void PhasePair::transfer(std::size_t n, const SmallVector& step, double length) {
    for (std::size_t i = 0; i < n; ++i) {
        const double moved = length * step[static_cast<Eigen::Index>(i)];
        double& v = amounts.vapor[i];
        double& l = amounts.liquid[i];
        const double relative = moved / std::min(v, l);
        if (std::abs(relative) < 0.3) {
            v += moved;
            l -= moved;
            continue;
        }
        // The lesser amount by its logarithm, so that a trace finds its order of magnitude and stays
        // positive.
        const double sum = v + l;
        const auto change = [relative, sum](double& lesser, double& greater, double sign) {
            lesser = std::min(lesser * std::exp(std::clamp(sign * relative, -5.0, 5.0)), sum - 0.1 * greater);
            greater = sum - lesser;
        };
        v < l ? change(v, l, 1) : change(l, v, -1);
    }
}

void PhasePair::scale(std::size_t n, const double* feed, CompoundArray& out) const {
    for (std::size_t i = 0; i < n; ++i) out[i] = std::sqrt(amounts.vapor[i] / feed[i] * amounts.liquid[i]);
}

void PhasePair::secondDerivatives(std::size_t n, const CompoundArray& s, SmallMatrix& out) const {
    std::array<double, maxCompounds * maxCompounds> inVapor, inLiquid;
    vapor.lnPhiByAmount(inVapor.data(), n);
    liquid.lnPhiByAmount(inLiquid.data(), n);
    const double perVapor = 1 / vaporAmount, perLiquid = 1 / liquidAmount;
    for (std::size_t j = 0; j < n; ++j) {
        double* column = &out(0, static_cast<Eigen::Index>(j));
        for (std::size_t i = 0; i < n; ++i)
            column[i] =
                s[i] * s[j] * ((inVapor[j * n + i] - 1) * perVapor + (inLiquid[j * n + i] - 1) * perLiquid);
        column[j] += 1;
    }
}

void PhasePair::order() {
    if (vapor.reducedVolume() >= liquid.reducedVolume()) return;
    std::swap(amounts.vapor, amounts.liquid);
    std::swap(vaporAmount, liquidAmount);
    std::swap(vaporComposition, liquidComposition);
    std::swap(vapor, liquid);
    for (double& value : imbalance) value = -value;
}

double PhasePair::distance(std::size_t n) const {
    double largest = 0;
    for (std::size_t i = 0; i < n; ++i)
        largest = std::max(largest, std::abs(vapor.lnPhi[i] - liquid.lnPhi[i]));
    return largest;
}

}  // namespace orvane::package
