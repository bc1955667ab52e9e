#include "package/VaporPressure.h"

#include <cmath>

namespace orvane::package {
namespace {

// ln of the reduced pressure: constant + inverse / Tr + logarithm ln Tr + sixth Tr^6.
struct Series {
    double constant, inverse, logarithm, sixth;

    // By the reduced temperature, up to the second derivative.
    void at(double t, double& value, double& first, double& second) const {
        const double t5 = t * t * t * t * t;
        value = constant + inverse / t + logarithm * std::log(t) + sixth * t5 * t;
        first = -inverse / (t * t) + logarithm / t + 6 * sixth * t5;
        second = 2 * inverse / (t * t * t) - logarithm / (t * t) + 30 * sixth * t5 / t;
    }
};

constexpr Series simpleFluid = {5.92714, -6.09648, -1.28862, 0.169347};
constexpr Series perAcentricFactor = {15.2518, -15.6875, -13.4721, 0.43577};

}  // namespace

VaporPressure::VaporPressure(double Tc, double Pc, double omega, double T) {
    const double t = T / Tc;
    double value, first, second, valueOmega, firstOmega, secondOmega;
    simpleFluid.at(std::fmin(t, 1), value, first, second);
    perAcentricFactor.at(std::fmin(t, 1), valueOmega, firstOmega, secondOmega);
    value += omega * valueOmega;
    first += omega * firstOmega;
    second += omega * secondOmega;
    if (t > 1) {
        value += first * (1 - 1 / t);
        second = -2 * first / (t * t * t);
        first /= t * t;
    }
    ln = std::log(Pc) + value;
    byTemperature = first / Tc;
    byTemperatureTwice = second / (Tc * Tc);
}

}  // namespace orvane::package
