#include "package/MixtureParameters.h"

namespace orvane::package {

MixtureParameters MixtureParameters::subset(std::span<const std::size_t> indices) const {
    MixtureParameters part;
    part.size = indices.size();
    const auto pick = [indices](const auto& from, auto& to) {
        to.reserve(indices.size());
        for (const auto i : indices) to.push_back(from[i]);
    };
    pick(criticalTemperature, part.criticalTemperature);
    pick(criticalPressure, part.criticalPressure);
    pick(acentricFactor, part.acentricFactor);
    pick(covolume, part.covolume);
    pick(rootA, part.rootA);
    pick(rootASlope, part.rootASlope);
    pick(heatCapacity, part.heatCapacity);
    part.oneMinusInteraction.reserve(indices.size() * indices.size());
    for (const auto i : indices)
        for (const auto j : indices) part.oneMinusInteraction.push_back(oneMinusInteraction[i * size + j]);
    return part;
}

}  // namespace orvane::package
