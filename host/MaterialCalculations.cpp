// The part of MaterialObject that calculates: properties of phases, and equilibria.
#include "host/FlashSpecification.h"
#include "host/MaterialObject.h"
#include "host/PropertyCalculator.h"
#include "host/PropertyDerivatives.h"

namespace orvane::host {

using COBIA::CapePhaseStatus;
using COBIA::RealsOut;
using COBIA::StringException;
using COBIA::TextsView;
using COBIA::toUtf8;
using package::PhaseKind;

// ICapeThermoPropertyRoutine

void MaterialObject::calcAndGetLnPhi(Text phase, double temperature, double pressure, Reals fractions,
                                     COBIA::CapeInteger flags, RealsOut lnPhi, RealsOut byTemperature,
                                     RealsOut byPressure, RealsOut byAmount) {
    const package::Model& model = package().model();
    const PhaseKind kind = phaseKind(phase);
    const auto give = [&](int flag, auto member, RealsOut out) {
        if (flags & flag)
            out.assign((model.*member)(kind, temperature, pressure, fractions));
        else
            out.assign({});
    };
    give(1, &package::Model::lnPhi, lnPhi);
    give(2, &package::Model::lnPhiByTemperature, byTemperature);
    give(4, &package::Model::lnPhiByPressure, byPressure);
    give(8, &package::Model::lnPhiByAmount, byAmount);
}

void MaterialObject::calcSinglePhaseProp(TextsView properties, Text phase) {
    const PhaseKind kind = phaseKind(phase);
    StateValues& values = presentSlot(kind).values;
    wanted_.clear();
    wantedDerivatives_.clear();
    for (std::size_t i = 0; i < properties.size(); ++i) {
        if (const auto derivative = findDerivative(properties[i])) {
            if (!isCalculated(*derivative)) {
                throw StringException() << "property '" << identifier(*derivative)
                                        << "' is not calculated; GetSinglePhasePropList has those that are";
            }
            wantedDerivatives_.push_back(*derivative);
            continue;
        }
        const Property wanted = property(properties[i]);
        if (!isCalculated(wanted)) {
            throw StringException() << "property '" << identifier(wanted)
                                    << "' of a phase is set, not calculated";
        }
        wanted_.push_back(wanted);
    }
    for (const Property needed : {Property::temperature, Property::pressure, Property::fraction}) {
        require(values, needed);
    }
    calculate(package(), kind, wanted_, wantedDerivatives_, values);
}

void MaterialObject::calcTwoPhaseProp(TextsView properties, TextsView phases) {
    const PhasePair of = pair(phases);
    const StateValues& first = presentSlot(of.first).values;
    const StateValues& second = presentSlot(of.second).values;
    wanted_.clear();
    for (std::size_t i = 0; i < properties.size(); ++i) {
        const Property wanted = property(properties[i]);
        if (!isTwoPhase(wanted)) {
            throw StringException()
                << "property '" << identifier(wanted)
                << "' is none of two phases; 'kvalue', 'logKvalue' and 'surfaceTension' are";
        }
        wanted_.push_back(wanted);
    }
    if (properties.size() == 0) return;
    for (const Property needed : {Property::temperature, Property::pressure, Property::fraction}) {
        require(first, needed);
        require(second, needed);
    }
    twoPhase_.forgetAll();
    calculateTwoPhase(package(), {of.first, first, of.second, second}, wanted_, twoPhase_);
    twoPhaseOrder_ = of;
}

bool MaterialObject::checkSinglePhasePropSpec(Text name, Text phase) const {
    phaseKind(phase);
    if (const auto derivative = findDerivative(name)) return isCalculated(*derivative);
    const auto found = findProperty(name);
    return found && isCalculated(*found);
}

bool MaterialObject::checkTwoPhasePropSpec(Text name, TextsView phases) const {
    pair(phases);
    const auto found = findProperty(name);
    return found && isTwoPhase(*found);
}

std::vector<std::string> MaterialObject::singlePhasePropList() const {
    std::vector<std::string> names;
    for (const Property calculated : singlePhaseProperties()) names.emplace_back(identifier(calculated));
    for (const Derivative& calculated : singlePhaseDerivatives()) names.push_back(identifier(calculated));
    return names;
}

std::vector<std::string> MaterialObject::twoPhasePropList() const {
    std::vector<std::string> names;
    for (const Property calculated : twoPhaseProperties()) names.emplace_back(identifier(calculated));
    return names;
}

// ICapeThermoEquilibriumRoutine

Condition MaterialObject::condition(TextsView specification) const {
    const ConditionKind kind = conditionKind(specification);
    const Property of = propertyOf(kind);
    const StateValues& from = kind == ConditionKind::vaporFraction ? slot(PhaseKind::vapor).values : overall_;
    require(from, of);
    return {kind, from.value(of)};
}

void MaterialObject::calcEquilibrium(TextsView specification1, TextsView specification2, Text solutionText) {
    const auto wanted = solutionType(solutionText);
    if (!wanted) {
        throw StringException() << "unknown solution type '" << toUtf8(solutionText)
                                << "'; 'unspecified', 'normal' and 'retrograde' are known";
    }
    const Condition first = condition(specification1);
    const Condition second = condition(specification2);
    PropertyPackage::requireSupport(first.kind, second.kind);
    if (*wanted == package::Solution::retrograde && !hasSolutionTypes(first.kind, second.kind)) {
        throw StringException() << "solution type 'retrograde' is of flashes with a vapour fraction, not of "
                                << std::string(conditionName(first.kind)) << " and "
                                << std::string(conditionName(second.kind));
    }
    require(overall_, Property::fraction);
    for (const PhaseKind kind : phaseKinds) {
        if (!slot(kind).present) {
            throw StringException() << "a flash considers all phases, but phase '" << label(kind)
                                    << "' is not declared present on " << errorSource()
                                    << "; declare all of them with SetPresentPhases";
        }
    }
    flash(first, second, *wanted);
}

bool MaterialObject::checkEquilibriumSpec(TextsView specification1, TextsView specification2,
                                          Text solutionText) const {
    const ConditionKind first = conditionKind(specification1), second = conditionKind(specification2);
    const auto wanted = solutionType(solutionText);
    return PropertyPackage::supports(first, second) && wanted &&
           (*wanted == package::Solution::normal || hasSolutionTypes(first, second));
}

void MaterialObject::flash(Condition first, Condition second, package::Solution solution) {
    for (PhaseSlot& phase : phases_) {
        phase.values.forgetAll();
        phase.present = false;
    }
    twoPhase_.forgetAll();
    warnings_.clear();

    auto found = package().equilibrium(first, second, overall_.values(Property::fraction), solution);

    warnings_ = std::move(found.warnings);
    overall_.forgetCalculated();
    specified_.reset();
    overall_.set(Property::temperature, found.temperature);
    overall_.set(Property::pressure, found.pressure);
    for (const Condition& given : {first, second}) {
        if (const Property of = propertyOf(given.kind); basisRule(of) == BasisRule::perAmount) {
            overall_.set(of, given.value);
            specified_ = of;
        }
    }
    for (const package::PhaseResult& result : found.phases) {
        PhaseSlot& phase = slot(result.kind);
        phase.present = true;
        phase.status = CapePhaseStatus::atEquilibrium;
        phase.values.set(Property::temperature, found.temperature);
        phase.values.set(Property::pressure, found.pressure);
        phase.values.set(Property::phaseFraction, result.fraction);
        phase.values.set(Property::fraction, result.composition);
    }
}

}  // namespace orvane::host
