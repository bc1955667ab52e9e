#include "package/Checks.h"

#include "package/PackageError.h"

#include <fmt/format.h>

#include <cmath>

namespace orvane::package {
namespace {

void requirePositive(const Compound& compound, double value, const char* constant) {
    if (!(value > 0) || !std::isfinite(value))
        throw PackageError(
            fmt::format("the package needs the {} of {}, and {} is none", constant, compound.id, value));
}

}  // namespace

void checkCompounds(std::span<const Compound> compounds) {
    if (compounds.empty() || compounds.size() > maxCompounds)
        throw PackageError(
            fmt::format("a mixture has 1 to {} compounds, not {}", maxCompounds, compounds.size()));
    for (std::size_t i = 0; i < compounds.size(); ++i) {
        const auto& compound = compounds[i];
        requirePositive(compound, compound.criticalTemperature, "critical temperature");
        requirePositive(compound, compound.criticalPressure, "critical pressure");
        requirePositive(compound, compound.molecularWeight, "molecular weight");
        if (!std::isfinite(compound.acentricFactor))
            throw PackageError(fmt::format("the package needs the acentric factor of {}", compound.id));
        for (std::size_t j = 0; j < i; ++j)
            if (compounds[j].id == compound.id)
                throw PackageError(fmt::format("the compound {} is in the mixture twice", compound.id));
    }
}

void checkComposition(std::span<const Compound> compounds, std::span<const double> x) {
    if (x.size() != compounds.size())
        throw PackageError(
            fmt::format("{} mole fractions are given for {} compounds", x.size(), compounds.size()));
    double sum = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (!(x[i] >= 0) || !std::isfinite(x[i]))
            throw PackageError(fmt::format("the mole fraction of {} is {}", compounds[i].id, x[i]));
        sum += x[i];
    }
    if (!(std::abs(sum - 1) <= 1e-9))
        throw PackageError(fmt::format("the mole fractions sum to {}, not to 1", sum));
}

void checkTemperature(double temperature) {
    if (!(temperature > 0) || !std::isfinite(temperature))
        throw PackageError(fmt::format("the temperature must be positive, not {} K", temperature));
}

void checkPressure(double pressure) {
    if (!(pressure > 0) || !std::isfinite(pressure))
        throw PackageError(fmt::format("the pressure must be positive, not {} Pa", pressure));
}

void checkTarget(const Target& target) {
    if (!std::isfinite(target.value))
        throw PackageError(
            fmt::format("the {} must be a number, not {}", describe(target.quantity), target.value));
    if (target.quantity == Quantity::vaporFraction && !(target.value >= 0 && target.value <= 1))
        throw PackageError(
            fmt::format("the vapour fraction must be between 0 and 1, not {:.17g}", target.value));
    if (target.quantity == Quantity::volume && !(target.value > 0))
        throw PackageError(fmt::format("the volume must be positive, not {} m3/mol", target.value));
}

}  // namespace orvane::package
