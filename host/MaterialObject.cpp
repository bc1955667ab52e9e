#include "host/MaterialObject.h"

#include "host/FlashSpecification.h"
#include "host/PropertyCalculator.h"

#include <algorithm>

namespace orvane::host {

using COBIA::CapePhaseStatus;
using COBIA::RealsOut;
using COBIA::StringException;
using COBIA::TextsView;
using COBIA::toUtf8;
using package::PhaseKind;

namespace {

constexpr bool isState(Property property) {
    return property == Property::temperature || property == Property::pressure ||
           property == Property::fraction;
}

/// The texts of GetPresentPhases, by whether the vapour and the liquid are present.
std::span<const std::string> labels(bool vapor, bool liquid) {
    static const std::string all[] = {std::string(label(PhaseKind::vapor)),
                                      std::string(label(PhaseKind::liquid))};
    return std::span(all).subspan(vapor ? 0 : 1, (vapor ? 1u : 0u) + (liquid ? 1u : 0u));
}

}  // namespace

MaterialObject::MaterialObject(std::string name, std::shared_ptr<const PropertyPackage> package)
    : Offering(std::move(package)),
      name_(std::move(name)),
      overall_(this->package().size()),
      phases_{PhaseSlot{StateValues(this->package().size())}, PhaseSlot{StateValues(this->package().size())}},
      twoPhase_(this->package().size()) {}

std::string_view MaterialObject::owner(const StateValues& of) const {
    if (&of == &overall_) return "the overall mixture";
    return &of == &slot(PhaseKind::vapor).values ? "phase 'Vapor'" : "phase 'Liquid'";
}

MaterialObject::PhaseSlot& MaterialObject::presentSlot(PhaseKind kind) {
    PhaseSlot& result = slot(kind);
    if (!result.present) {
        throw StringException() << "phase '" << label(kind) << "' is not present on " << errorSource();
    }
    return result;
}

// ICapeThermoMaterial

void MaterialObject::clearAllProps() {
    overall_.forgetAll();
    twoPhase_.forgetAll();
    specified_.reset();
    warnings_.clear();
    for (PhaseSlot& phase : phases_) {
        phase.values.forgetAll();
        phase.present = false;
    }
}

void MaterialObject::copyFromMaterial(COBIA::ICapeThermoMaterial* source) {
    if (!source) throw COBIA::cape_open_error(COBIA::nullPointer);
    using Adapter = COBIA::ThermoMaterialAdapter<MaterialObject>;
    if (source->vTbl != &Adapter::table)
        throw StringException() << "only a material of this host can be copied";
    const MaterialObject& other = Adapter::object(source->me);
    if (other.package().ids() != package().ids()) {
        throw StringException() << other.errorSource() << " has other compounds than " << errorSource();
    }
    overall_ = other.overall_;
    specified_ = other.specified_;
    phases_ = other.phases_;
    warnings_ = other.warnings_;
    twoPhase_ = other.twoPhase_;
    twoPhaseOrder_ = other.twoPhaseOrder_;
}

COBIA::Ref<COBIA::ICapeThermoMaterial> MaterialObject::createMaterial() {
    const auto made = COBIA::makeObject<MaterialObject>("copy of " + name_, sharedPackage());
    return COBIA::Ref<COBIA::ICapeThermoMaterial>::share(made->as<COBIA::ICapeThermoMaterial>());
}

void MaterialObject::overallProp(Text name, Text basisText, RealsOut values) {
    const Property wanted = property(name);
    get(overall_, wanted, basis(basisText, wanted), values);
}

void MaterialObject::overallTPFraction(double& temperature, double& pressure, RealsOut fractions) {
    getState(overall_, temperature, pressure, fractions);
}

void MaterialObject::presentPhases(COBIA::TextsOut names, COBIA::EnumerationsOut status) {
    const PhaseSlot& vapor = slot(PhaseKind::vapor);
    const PhaseSlot& liquid = slot(PhaseKind::liquid);
    const auto present = labels(vapor.present, liquid.present);
    names.assign(present);
    const auto out = status.resize(present.size());
    std::size_t i = 0;
    for (const PhaseSlot& phase : phases_) {
        if (phase.present) out[i++] = static_cast<COBIA::CapeEnumeration>(phase.status);
    }
}

void MaterialObject::singlePhaseProp(Text name, Text phase, Text basisText, RealsOut values) {
    const Property wanted = property(name);
    get(presentSlot(phaseKind(phase)).values, wanted, basis(basisText, wanted), values);
}

void MaterialObject::tpFraction(Text phase, double& temperature, double& pressure, RealsOut fractions) {
    getState(presentSlot(phaseKind(phase)).values, temperature, pressure, fractions);
}

void MaterialObject::setOverallProp(Text name, Text basisText, Reals values) {
    const Property given = property(name);
    put(overall_, given, basis(basisText, given), values);
}

void MaterialObject::setPresentPhases(TextsView names, std::span<const COBIA::CapeEnumeration> status) {
    if (names.size() != status.size()) {
        throw StringException() << names.size() << " present phases with " << status.size() << " statuses";
    }
    std::array<std::optional<CapePhaseStatus>, std::size(phaseKinds)> wanted;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (status[i] < 0 || status[i] > static_cast<COBIA::CapeEnumeration>(CapePhaseStatus::estimates)) {
            throw StringException() << "unknown phase status " << status[i];
        }
        wanted[static_cast<std::size_t>(phaseKind(names[i]))] = static_cast<CapePhaseStatus>(status[i]);
    }
    for (std::size_t i = 0; i < phases_.size(); ++i) {
        PhaseSlot& phase = phases_[i];
        if (!wanted[i] || !phase.present) phase.values.forgetAll();
        phase.present = wanted[i].has_value();
        phase.status = wanted[i].value_or(CapePhaseStatus::unknown);
    }
}

void MaterialObject::setSinglePhaseProp(Text name, Text phase, Text basisText, Reals values) {
    const Property given = property(name);
    PhaseSlot& to = presentSlot(phaseKind(phase));
    put(to.values, given, basis(basisText, given), values);
    if (isState(given)) {
        to.values.forgetCalculated();
        twoPhase_.forgetAll();
    }
}

MaterialObject::PhasePair MaterialObject::pair(TextsView phases) {
    if (phases.size() != 2)
        throw StringException() << "a two-phase property is of two phases, not " << phases.size();
    const PhasePair result{phaseKind(phases[0]), phaseKind(phases[1])};
    if (result.first == result.second) {
        throw StringException() << "a two-phase property is of two phases, not of '" << label(result.first)
                                << "' twice";
    }
    return result;
}

void MaterialObject::twoPhaseProp(Text name, TextsView phases, Text basisText, RealsOut values) {
    const Property wanted = property(name);
    basis(basisText, wanted);
    const PhasePair asked = pair(phases);
    if (!twoPhase_.has(wanted) || asked.first != twoPhaseOrder_.first) {
        throw StringException() << "two-phase property '" << identifier(wanted) << "' of '"
                                << label(asked.first) << "' and '" << label(asked.second)
                                << "' was neither set nor calculated";
    }
    if (isPerCompound(wanted))
        values.assign(twoPhase_.values(wanted));
    else
        values.resize(1)[0] = twoPhase_.value(wanted);
}

void MaterialObject::setTwoPhaseProp(Text name, TextsView phases, Text basisText, Reals values) {
    const Property given = property(name);
    basis(basisText, given);
    if (!isTwoPhase(given)) {
        throw StringException() << "property '" << identifier(given) << "' is no two-phase property";
    }
    const PhasePair of = pair(phases);
    presentSlot(of.first);
    presentSlot(of.second);
    check(twoPhase_, given, values);
    if (isPerCompound(given))
        twoPhase_.set(given, values);
    else
        twoPhase_.set(given, values[0]);
    twoPhaseOrder_ = of;
}

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
    for (std::size_t i = 0; i < properties.size(); ++i) {
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
    calculate(package(), kind, wanted_, values);
}

void MaterialObject::calcTwoPhaseProp(TextsView properties, TextsView phases) {
    const PhasePair of = pair(phases);
    const StateValues& first = presentSlot(of.first).values;
    const StateValues& second = presentSlot(of.second).values;
    wanted_.clear();
    for (std::size_t i = 0; i < properties.size(); ++i) {
        const Property wanted = property(properties[i]);
        if (!isTwoPhase(wanted)) {
            throw StringException() << "property '" << identifier(wanted)
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
