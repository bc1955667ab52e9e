#include "package/IdealGas.h"

#include <fmt/format.h>

#include <cmath>

namespace orvane::package {

IdealGas::IdealGas(const std::array<double, 5>& c, double T) {
    constexpr double T0 = referenceTemperature;
    constexpr double R = gasConstant;
    // Divided differences, since the powers' own differences lose their digits near the reference
    // temperature.
    const double d = T - T0;
    const double s1 = T + T0, s2 = T * T + T * T0 + T0 * T0, s3 = s1 * (T * T + T0 * T0);
    const double s4 = ((T + T0) * T + T0 * T0) * T * T + (T + T0) * T0 * T0 * T0;
    heatCapacity = R * ((((c[4] * T + c[3]) * T + c[2]) * T + c[1]) * T + c[0]);
    enthalpy = R * d * (c[0] + c[1] * s1 / 2 + c[2] * s2 / 3 + c[3] * s3 / 4 + c[4] * s4 / 5);
    entropy = R * (c[0] * std::log(T / T0) + d * (c[1] + c[2] * s1 / 2 + c[3] * s2 / 3 + c[4] * s3 / 4));
}

std::vector<std::string> heatCapacityWarnings(std::span<const Compound> compounds, double temperature) {
    std::vector<std::string> warnings;
    for (const auto& compound : compounds) {
        const double low = compound.heatCapacityMinimumTemperature,
                     high = compound.heatCapacityMaximumTemperature;
        if (temperature < low || temperature > high)
            warnings.push_back(
                fmt::format("heat capacity of {} used outside its range {} to {} K at T = {} K", compound.id,
                            low, high, temperature));
    }
    return warnings;
}

}  // namespace orvane::package
