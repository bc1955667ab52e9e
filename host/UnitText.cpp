#include "host/UnitText.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <string_view>

namespace orvane::host {
namespace {

using Exponents = std::array<double, 8>;

struct Named {
    Exponents exponents;  // m, kg, s, A, K, mol, cd, rad
    std::string_view text;
};

constexpr Exponents watt = {2, 1, -3};
constexpr Named named[] = {
    {watt, "W"},
    {{2, 1, -2}, "J"},
    {{1, 1, -2}, "N"},
    {{-1, 1, -2}, "Pa"},
    {{-1, 1, -1}, "Pa s"},
    {{0, 0, -1}, "1/s"},
    {{1, 0, -1}, "m/s"},
    {{2, 0, 0}, "m2"},
    {{3, 0, 0}, "m3"},
    {{3, 0, -1}, "m3/s"},
    {{0, 1, -1}, "kg/s"},
    {{0, 0, -1, 0, 0, 1}, "mol/s"},
    {{-3, 1, 0}, "kg/m3"},
    {{-3, 0, 0, 0, 0, 1}, "mol/m3"},
    {{3, 0, 0, 0, 0, -1}, "m3/mol"},
    {{2, 1, -2, 0, 0, -1}, "J/mol"},
    {{2, 1, -2, 0, -1, -1}, "J/mol/K"},
    {{2, 0, -2}, "J/kg"},
    {{2, 1, -3, 0, -1}, "W/K"},
    {{0, 1, -3, 0, -1}, "W/m2/K"},
    {{1, 1, -3, 0, -1}, "W/m/K"},
};

constexpr std::string_view baseUnits[] = {"m", "kg", "s", "A", "K", "mol", "cd", "rad"};

Exponents padded(std::span<const double> dimensionality) {
    Exponents result{};
    std::copy_n(dimensionality.begin(), std::min(dimensionality.size(), result.size()), result.begin());
    return result;
}

}  // namespace

std::string unitText(std::span<const double> dimensionality) {
    const Exponents exponents = padded(dimensionality);
    for (const Named& candidate : named) {
        if (candidate.exponents == exponents) return std::string(candidate.text);
    }
    std::string text;
    for (std::size_t i = 0; i < exponents.size(); ++i) {
        if (exponents[i] == 0) continue;
        if (!text.empty()) text += ' ';
        text += baseUnits[i];
        if (exponents[i] != 1) text += fmt::format("{:g}", exponents[i]);
    }
    return text;
}

std::optional<std::vector<double>> exponentsOf(std::string_view unit) {
    for (const Named& candidate : named) {
        if (candidate.text == unit)
            return std::vector(candidate.exponents.begin(), candidate.exponents.end());
    }
    const auto base = std::ranges::find(baseUnits, unit);
    if (base == std::end(baseUnits)) return std::nullopt;
    std::vector<double> exponents(std::size(baseUnits));
    exponents[static_cast<std::size_t>(base - std::begin(baseUnits))] = 1;
    return exponents;
}

bool isPower(std::span<const double> dimensionality) { return padded(dimensionality) == watt; }

}  // namespace orvane::host
