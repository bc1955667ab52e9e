#include "package/SaturationPoint.h"

#include "package/CubicPhase.h"
#include "package/PackageError.h"
#include "package/StabilityTest.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace orvane::package {
namespace {

constexpr double finest = 1e-14;  // change of the logarithm of the unknown
constexpr double accepted =
    1e-10;  // difference of ln fugacities, when rounding keeps the change above the finest

}  // namespace

SaturationPoint::SaturationPoint(const MixtureParameters& mixture, Variable given, double value) {
    const bool findPressure = given == Variable::temperature;
    const double Tc = mixture.criticalTemperature[0], Pc = mixture.criticalPressure[0];
    if (value >= (findPressure ? Tc : Pc))
        throw PackageError(fmt::format(
            "a pure compound has no vapour beside a liquid at {} = {} {}, with its critical point at {} {}",
            findPressure ? "T" : "P", value, findPressure ? "K" : "Pa", findPressure ? Tc : Pc,
            findPressure ? "K" : "Pa"));
    // Wilson's formula for a start.
    const double slope = 5.373 * (1 + mixture.acentricFactor[0]);
    double low = findPressure ? std::log(1e-250) : std::log(lowestTemperature);
    double high = std::log(findPressure ? Pc : Tc);
    double ln = findPressure ? std::log(Pc) + slope * (1 - Tc / value)
                             : std::log(Tc / (1 - std::log(value / Pc) / slope));
    if (!(ln > low && ln < high)) ln = 0.5 * (low + high);
    constexpr int maxSteps = 200;
    CubicPhase vapor, liquid;
    double difference = 0;
    const CompoundArray one = {1};
    for (int step = 0; step < maxSteps; ++step) {
        temperature = findPressure ? value : std::exp(ln);
        pressure = findPressure ? std::exp(ln) : value;
        const Isotherm isotherm(mixture, temperature);
        vapor.solve(isotherm, pressure, one.data(), Root::vaporLike);
        ++evaluations;
        double next = 0;
        bool gas =
            vapor.reducedVolume() > criticalReducedVolume;  // where there is one root: too thin or too hot
        if (vapor.threeRoots) {
            liquid.solve(isotherm, pressure, one.data(), Root::liquidLike);
            difference = vapor.lnPhi[0] - liquid.lnPhi[0];
            gas = difference < 0;
            const double heat =
                (vapor.departure().enthalpy - liquid.departure().enthalpy) / (gasConstant * temperature);
            next = findPressure ? ln - difference / (vapor.Z - liquid.Z) : ln + difference / heat;
            if (std::abs(next - ln) <= finest || (high - low <= finest && std::abs(difference) <= accepted)) {
                (findPressure ? pressure : temperature) = std::exp(next);
                return;
            }
        }
        (gas == findPressure ? low : high) = ln;
        ln = vapor.threeRoots && next > low && next < high ? next : 0.5 * (low + high);
    }
    throw PackageError(fmt::format(
        "no saturation of the pure compound at {} = {} after {} steps: at T = {} K, P = {} Pa the logarithms of the "
        "fugacities differ by {:.3g}",
        findPressure ? "T [K]" : "P [Pa]", value, maxSteps, temperature, pressure, difference));
}

}  // namespace orvane::package
