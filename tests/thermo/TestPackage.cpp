#include "tests/thermo/TestPackage.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orvane::test {
namespace {

// ln of the vapour pressure [Pa] is a - b/T.
constexpr double a[] = {21.0, 21.5, 22.0};
constexpr double b[] = {2800, 3400, 4200};
constexpr double latentHeat[] = {20e3, 28e3, 36e3};  // J/mol
constexpr double heatCapacity = 90;                  // J/mol/K, of both phases

/// The root of an increasing function, to the last bits.
template <class Function> double rootOf(Function&& f, double low, double high) {
    if (f(low) > 0 || f(high) < 0) throw std::runtime_error("the test package has no solution in its range");
    for (int i = 0; i < 200 && low < high; ++i) {
        const double middle = low + (high - low) / 2;
        (f(middle) < 0 ? low : high) = middle;
    }
    return high;
}

}  // namespace

int TestPackage::count(const std::string& beginning) const {
    return static_cast<int>(
        std::ranges::count_if(calls, [&](const std::string& call) { return call.starts_with(beginning); }));
}

std::vector<std::string> TestPackage::flashes() const {
    std::vector<std::string> result;
    for (const std::string& call : calls) {
        const auto at = call.find("CalcEquilibrium ");
        if (at != std::string::npos) result.push_back(call.substr(at + 16));
    }
    return result;
}

double TestPackage::kValue(std::size_t compound, double temperature, double pressure) const {
    return std::exp(a[compound] - b[compound] / temperature) / pressure;
}

double TestPackage::enthalpy(bool vapor, double temperature, const std::vector<double>& x) const {
    double result = heatCapacity * (temperature - 300);
    for (std::size_t i = 0; i < x.size(); ++i) result -= vapor ? 0 : x[i] * latentHeat[i];
    return result;
}

double TestPackage::enthalpy(const Split& split) const {
    return split.vaporFraction * enthalpy(true, split.temperature, split.vapor) +
           (1 - split.vaporFraction) * enthalpy(false, split.temperature, split.liquid);
}

TestPackage::Split TestPackage::atTemperature(const std::vector<double>& z, double temperature,
                                              double pressure) const {
    const auto rachfordRice = [&](double v) {
        double sum = 0;
        for (std::size_t i = 0; i < z.size(); ++i) {
            const double k = kValue(i, temperature, pressure);
            sum += z[i] * (1 - k) / (1 + v * (k - 1));
        }
        return sum;
    };
    double v = 0;
    if (rachfordRice(0) < 0) v = rachfordRice(1) < 0 ? 1 : rootOf(rachfordRice, 0, 1);
    Split split{temperature, v, {}, {}};
    for (std::size_t i = 0; i < z.size(); ++i) {
        const double k = kValue(i, temperature, pressure);
        split.liquid.push_back(z[i] / (1 + v * (k - 1)));
        split.vapor.push_back(k * split.liquid.back());
    }
    return split;
}

TestPackage::Split TestPackage::atVaporFraction(const std::vector<double>& z, double vaporFraction,
                                                double pressure) const {
    const auto surplus = [&](double temperature) {
        double sum = 0;
        for (std::size_t i = 0; i < z.size(); ++i) {
            const double k = kValue(i, temperature, pressure);
            sum += z[i] * (k - 1) / (1 + vaporFraction * (k - 1));
        }
        return sum;
    };
    Split split{rootOf(surplus, 100, 900), vaporFraction, {}, {}};
    for (std::size_t i = 0; i < z.size(); ++i) {
        const double k = kValue(i, split.temperature, pressure);
        split.liquid.push_back(z[i] / (1 + vaporFraction * (k - 1)));
        split.vapor.push_back(k * split.liquid.back());
    }
    return split;
}

TestPackage::Split TestPackage::atEnthalpy(const std::vector<double>& z, double wanted,
                                           double pressure) const {
    return atTemperature(
        z, rootOf([&](double t) { return enthalpy(atTemperature(z, t, pressure)) - wanted; }, 100, 900),
        pressure);
}

}  // namespace orvane::test
