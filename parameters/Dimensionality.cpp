#include "parameters/Dimensionality.h"

#include "parameters/NumberText.h"

#include <cmath>
#include <unordered_map>

namespace orvane {
namespace {

constexpr double exponentTolerance = 1e-8;

struct BaseUnit {
    std::size_t index;
    const char* symbol;
};

/// In the order in which units write them.
constexpr BaseUnit baseUnits[] = {
    {6, "cd"}, {7, "rad"}, {3, "A"}, {5, "mol"}, {1, "kg"}, {0, "m"}, {4, "K"}, {2, "s"},
};

const std::unordered_map<std::string, const char*>& namedUnits() {
    static const std::unordered_map<std::string, const char*> units = {
        {"1/s", "Hz"},
        {"kg*m/s**2", "N"},
        {"kg/(m*s**2)", "Pa"},
        {"kg/(m*s**3)", "Pa*s"},  // on purpose, though a viscosity has s**1: users know it so
        {"kg*m**2/s**2", "J"},
        {"m**2/s**2", "J/kg"},
        {"kg*m**2/(mol*s**2)", "J/mol"},
        {"kg*m**2/(mol*K*s**2)", "J/(mol*K)"},
        {"m**2/(K*s**2)", "J/(kg*K)"},
        {"kg*m**2/s**3", "W"},
        {"kg*m**2/(K*s**3)", "W/K"},
        {"kg*m/(K*s**3)", "W/(m*K)"},
        {"kg/(K*s**3)", "W/(m**2*K)"},
        {"kg/s**3", "W/m**2"},
    };
    return units;
}

void multiplyBy(std::string& product, const char* symbol, double exponent) {
    if (!product.empty()) product += '*';
    product += symbol;
    if (std::abs(exponent - 1) > exponentTolerance) product += "**" + numberText(exponent);
}

}  // namespace

std::string unitText(std::span<const double> dimensionality) {
    if (dimensionality.size() > 9) return "<error>";

    std::string numerator, denominator;
    int factorsBelow = 0;
    for (const auto& [index, symbol] : baseUnits) {
        const double exponent = index < dimensionality.size() ? dimensionality[index] : 0;
        if (exponent == 0) continue;
        if (exponent > 0) {
            multiplyBy(numerator, symbol, exponent);
        } else {
            multiplyBy(denominator, symbol, -exponent);
            ++factorsBelow;
        }
    }
    if (factorsBelow > 1) denominator = "(" + denominator + ")";
    if (factorsBelow > 0) numerator = (numerator.empty() ? "1" : numerator) + "/" + denominator;

    const auto named = namedUnits().find(numerator);
    return named == namedUnits().end() ? numerator : named->second;
}

bool sameDimensionality(std::span<const double> a, std::span<const double> b) {
    if (a.size() > b.size()) std::swap(a, b);
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!(std::abs(a[i] - b[i]) <= exponentTolerance)) return false;
    for (const double exponent : b.subspan(a.size()))
        if (exponent != 0) return false;
    return true;
}

}  // namespace orvane
