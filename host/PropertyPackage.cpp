#include "host/PropertyPackage.h"

#include "package/IdealGas.h"
#include "package/PackageError.h"

#include <cmath>
#include <fmt/format.h>
#include <numeric>
#include <utility>

namespace orvane::host {
namespace {

/// The pressure [Pa] to which the absolute entropies of the compound table belong.
constexpr double tablePressure = 100000;

bool isIntensive(ConditionKind kind) {
    return kind == ConditionKind::temperature || kind == ConditionKind::pressure;
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
                                 const std::vector<package::Interaction>& overrides, std::string_view model)
    : model_(package::makeModel(model, std::move(compounds), overrides)) {
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
    return first != second && (isIntensive(first) || isIntensive(second));
}

void PropertyPackage::requireSupport(ConditionKind first, ConditionKind second) {
    if (supports(first, second)) return;
    throw package::PackageError(fmt::format(
        "the property package has no flash for {} and {}; it has flashes for temperature and pressure, "
        "and for either of them with vapor_fraction, enthalpy, enthalpyF, entropy, entropyF or volume",
        conditionName(first), conditionName(second)));
}

package::Equilibrium PropertyPackage::equilibrium(Condition first, Condition second,
                                                  std::span<const double> moleFractions,
                                                  package::Solution solution) const {
    using package::Quantity;
    requireSupport(first.kind, second.kind);
    if (!isIntensive(first.kind)) std::swap(first, second);
    if (isIntensive(second.kind)) {
        if (first.kind == ConditionKind::pressure) std::swap(first, second);
        return model_->temperaturePressure(first.value, second.value, moleFractions);
    }
    package::Target target{Quantity::vaporFraction, second.value, solution};
    switch (second.kind) {
    case ConditionKind::enthalpyF: target.value -= formationEnthalpy(moleFractions); [[fallthrough]];
    case ConditionKind::enthalpy: target.quantity = Quantity::enthalpy; break;
    case ConditionKind::entropyF: target.value -= referenceEntropy(moleFractions); [[fallthrough]];
    case ConditionKind::entropy: target.quantity = Quantity::entropy; break;
    case ConditionKind::volume: target.quantity = Quantity::volume; break;
    default:
        // What a script computes as a fraction may be above 1 by rounding.
        if (target.value > 1 && target.value < 1 + 1e-12) target.value = 1;
    }
    return first.kind == ConditionKind::pressure ? model_->atPressure(first.value, target, moleFractions)
                                                 : model_->atTemperature(first.value, target, moleFractions);
}

}  // namespace orvane::host
