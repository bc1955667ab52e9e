#include "host/PropertyPackage.h"

#include "package/IdealGas.h"
#include "package/PackageError.h"

#include <array>
#include <cmath>
#include <fmt/format.h>
#include <numeric>
#include <utility>

namespace orvane::host {
namespace {

/// The pressure [Pa] to which the absolute entropies of the compound table belong.
constexpr double tablePressure = 100000;

using Pair = std::pair<ConditionKind, ConditionKind>;
constexpr std::array<Pair, 5> pairs = {{
    {ConditionKind::temperature, ConditionKind::pressure},
    {ConditionKind::pressure, ConditionKind::enthalpy},
    {ConditionKind::pressure, ConditionKind::enthalpyF},
    {ConditionKind::pressure, ConditionKind::entropy},
    {ConditionKind::pressure, ConditionKind::entropyF},
}};

bool isPair(ConditionKind first, ConditionKind second, Pair pair) {
    return Pair(first, second) == pair || Pair(second, first) == pair;
}

double mix(std::span<const double> moleFractions, std::span<const double> values) {
    return std::inner_product(moleFractions.begin(), moleFractions.end(), values.begin(), 0.0);
}

}  // namespace

std::string_view conditionName(ConditionKind kind) {
    switch (kind) {
    case ConditionKind::temperature: return "temperature";
    case ConditionKind::pressure: return "pressure";
    case ConditionKind::vaporFraction: return "vapor_fraction";
    case ConditionKind::enthalpy: return "enthalpy";
    case ConditionKind::enthalpyF: return "enthalpyF";
    case ConditionKind::entropy: return "entropy";
    case ConditionKind::entropyF: return "entropyF";
    case ConditionKind::volume: return "volume";
    }
    return "";
}

PropertyPackage::PropertyPackage(std::vector<package::Compound> compounds,
                                 const std::vector<package::Interaction>& overrides)
    : flash_(package::PengRobinson(std::move(compounds), overrides)) {
    for (const package::Compound& compound : this->compounds()) {
        ids_.push_back(compound.id);
        molarMasses_.push_back(compound.molecularWeight * 1e-3);
        formationEnthalpies_.push_back(compound.idealGasFormationEnthalpy);
        referenceEntropies_.push_back(compound.idealGasAbsoluteEntropy -
                                      package::gasConstant *
                                          std::log(package::referencePressure / tablePressure));
    }
}

double PropertyPackage::formationEnthalpy(std::span<const double> moleFractions) const {
    return mix(moleFractions, formationEnthalpies_);
}

double PropertyPackage::referenceEntropy(std::span<const double> moleFractions) const {
    return mix(moleFractions, referenceEntropies_);
}

bool PropertyPackage::supports(ConditionKind first, ConditionKind second) {
    for (const Pair& pair : pairs) {
        if (isPair(first, second, pair)) return true;
    }
    return false;
}

void PropertyPackage::requireSupport(ConditionKind first, ConditionKind second) {
    if (supports(first, second)) return;
    std::string known;
    for (const Pair& pair : pairs) {
        if (!known.empty()) known += ", ";
        known += fmt::format("{} and {}", conditionName(pair.first), conditionName(pair.second));
    }
    throw package::PackageError(fmt::format("the property package has no flash for {} and {}; it has: {}",
                                            conditionName(first), conditionName(second), known));
}

package::Equilibrium PropertyPackage::equilibrium(Condition first, Condition second,
                                                  std::span<const double> moleFractions) const {
    requireSupport(first.kind, second.kind);
    if (second.kind == ConditionKind::pressure) std::swap(first, second);
    switch (second.kind) {
    case ConditionKind::temperature:
        return flash_.temperaturePressure(second.value, first.value, moleFractions);
    case ConditionKind::enthalpy: return flash_.pressureEnthalpy(first.value, second.value, moleFractions);
    case ConditionKind::enthalpyF:
        return flash_.pressureEnthalpy(first.value, second.value - formationEnthalpy(moleFractions),
                                       moleFractions);
    case ConditionKind::entropy: return flash_.pressureEntropy(first.value, second.value, moleFractions);
    case ConditionKind::entropyF:
        return flash_.pressureEntropy(first.value, second.value - referenceEntropy(moleFractions),
                                      moleFractions);
    default: throw std::logic_error("a supported pair of flash conditions without its flash");
    }
}

}  // namespace orvane::host
