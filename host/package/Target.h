// What a flash is asked for besides the temperature or the pressure.
// Not here: the flashes (Model).
#pragma once

#include "package/MixtureParameters.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace orvane::package {

/// The intensive variables of a flash: one is given, the other found.
enum class Variable { temperature, pressure };

/// What a flash can be asked for beside one of them, of one mole of feed over all phases: moles of vapour
/// [mol/mol], J/mol, J/mol/K, m3/mol.
enum class Quantity { vaporFraction, enthalpy, entropy, volume };

/// Which state is meant where several have the vapour fraction asked for. Along the normal branch the vapour
/// fraction rises with temperature at constant pressure and falls with pressure at constant temperature;
/// along the retrograde branch it does the opposite.
enum class Solution { normal, retrograde };

struct Target {
    Quantity quantity;
    double value;
    Solution solution = Solution::normal;  ///< of a vapour fraction; other quantities take the normal one
};

/// For messages: "enthalpy [J/mol]".
constexpr std::string_view describe(Quantity quantity) {
    switch (quantity) {
    case Quantity::vaporFraction: return "vapour fraction [mol/mol]";
    case Quantity::enthalpy: return "enthalpy [J/mol]";
    case Quantity::entropy: return "entropy [J/mol/K]";
    case Quantity::volume: return "volume [m3/mol]";
    }
    return "";
}

/// What a difference from the target is measured against: the target, or R T (R) where that is larger; 1 for a
/// fraction.
inline double scale(const Target& target, double temperature) {
    switch (target.quantity) {
    case Quantity::vaporFraction: return 1;
    case Quantity::enthalpy: return std::max(std::abs(target.value), gasConstant * temperature);
    case Quantity::entropy: return std::max(std::abs(target.value), gasConstant);
    case Quantity::volume: return target.value;
    }
    return 1;
}

inline constexpr double lowestTemperature = 1;       ///< K, of what a flash looks for
inline constexpr double highestTemperature = 20000;  ///< K
inline constexpr double lowestPressure = 1e-3;       ///< Pa
inline constexpr double highestPressure = 1e10;      ///< Pa

}  // namespace orvane::package
