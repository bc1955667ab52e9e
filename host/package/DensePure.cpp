#include "package/DensePure.h"

#include "package/Cubic.h"

#include <cmath>
#include <numbers>

namespace orvane::package {

DensePure::DensePure(const Isotherm& isotherm, double pressure, std::size_t i) : isotherm_(isotherm), i_(i) {
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

void DensePure::infiniteDilution(double* out) const {
    const auto& mixture = isotherm_.mixture;
    const double* row = mixture.oneMinusInteraction.data() + i_ * mixture.size;
    for (std::size_t j = 0; j < mixture.size; ++j)
        out[j] = mixture.covolume[j] * perCovolume_ - lnU_ - perAttraction_ * row[j] * isotherm_.rootA[j];
}

}  // namespace orvane::package
