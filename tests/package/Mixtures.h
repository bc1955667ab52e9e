// What the tests of the property package share: mixtures by id and their states.
// Not here: what they are tested for.
#pragma once

#include "package/CompoundTable.h"
#include "package/PengRobinson.h"
#include "package/PengRobinsonModel.h"

#include <cmath>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace orvane::package::test {

using Fractions = std::vector<double>;

inline PengRobinson mixtureOf(std::initializer_list<std::string_view> ids) {
    std::vector<Compound> compounds;
    for (const auto id : ids) compounds.push_back(CompoundTable::instance().at(id));
    return PengRobinson(compounds);
}

inline PengRobinson naturalGas() {
    return mixtureOf({"nitrogen", "carbon-dioxide", "methane", "ethane", "propane", "isobutane", "n-butane",
                      "n-pentane", "n-hexane", "n-heptane"});
}

/// A rich gas with a retrograde region: cricondenbar near 10 MPa.
inline const Fractions naturalGasFeed{.01, .02, .70, .10, .06, .02, .03, .02, .02, .02};

/// The pressure [Pa] at which the two roots of a pure compound have equal fugacities, from a start nearby.
inline double vaporPressure(const PengRobinson& pure, double temperature, double start) {
    const Fractions one{1};
    double pressure = start;
    for (int step = 0; step < 100; ++step) {
        const double difference = pure.lnPhi(temperature, pressure, one, Root::liquidLike)[0] -
                                  pure.lnPhi(temperature, pressure, one, Root::vaporLike)[0];
        pressure *= std::exp(difference);
        if (std::abs(difference) < 1e-13) return pressure;
    }
    return std::nan("");
}

}  // namespace orvane::package::test
