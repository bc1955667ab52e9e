// The equilibria: flashes of the script's own and of product streams, and reading what they gave.
#include "thermo/CapeMaterial_1_2.h"
#include "thermo/HostNames.h"
#include "thermo/MaterialPort.h"

#include <cmath>

namespace orvane {

using namespace COBIA;

namespace {

using Thermo = ICapeThermoMaterial::Table;

/// How close the enthalpy after a flash must come to the copied one [J/mol].
constexpr double enthalpyTolerance = 0.01;

constexpr const char* noPhases = "No equilibrium phases on Material Object";

bool isVaporFraction(const FlashCondition& condition) {
    return condition.code == ConditionCode::vaporFraction;
}

}  // namespace

// State of the stream

OverallState CapeMaterial_1_2::overallState() {
    OverallState state{};
    call<&Thermo::GetOverallTPFraction>(own(), &state.temperature, &state.pressure, result_.out());
    state.x.assign(result_.view().begin(), result_.view().end());
    return state;
}

double CapeMaterial_1_2::totalFlow() {
    const HostNames& names = hostNames();
    call<&Thermo::GetOverallProp>(own(), names.totalFlow.in(), names.mole.in(), result_.out());
    if (result_.view().size() != 1)
        throw StringException("Invalid output for total flow from Material Object");
    return result_.view()[0];
}

void CapeMaterial_1_2::setTotalFlow(double flow) {
    if (isFeed_) throw StringException("The property flow_rate is read-only for inlet ports");
    if (std::isnan(flow)) throw StringException("Unspecified value for flow_rate (not a number)");
    if (flow < 0) throw StringException("Invalid value for flow_rate (negative)");
    const HostNames& names = hostNames();
    setOverall(names.totalFlow.in(), names.mole.in(), {&flow, 1});
    port().specification().markFlowRate();
}

// Flashes

int CapeMaterial_1_2::vaporForFlash() {
    const int vapor = phases().vapor();
    if (vapor == PhaseList::none)
        throw StringException("Unable to perform vapor fraction flash: no vapor phase defined");
    return vapor;
}

void CapeMaterial_1_2::declareAllPresent() {
    const PhaseList& all = phases();
    call<&Thermo::SetPresentPhases>(material_, all.labels(), all.unknownStatus());
}

void CapeMaterial_1_2::setOverall(ICapeString* property, ICapeString* basis, std::span<const double> values) {
    call<&Thermo::SetOverallProp>(material_, property, basis, RealView(values).in());
}

void CapeMaterial_1_2::setCondition(const FlashCondition& condition) {
    const ConditionSpecification& told = specificationOf(condition.code);
    if (isVaporFraction(condition)) {
        call<&Thermo::SetSinglePhaseProp>(material_, told.property.in(),
                                          phases()[vaporForFlash()].identifier.in(), told.basis.in(),
                                          RealView({&condition.value, 1}).in());
    } else {
        setOverall(told.property.in(), told.basis.in(), {&condition.value, 1});
    }
}

void CapeMaterial_1_2::calculateEquilibrium(const std::array<FlashCondition, 2>& conditions,
                                            SolutionType solutionType) {
    const auto specification = [&](const FlashCondition& condition) {
        const ConditionSpecification& told = specificationOf(condition.code);
        const StringObject& phase =
            isVaporFraction(condition) ? phases()[vaporForFlash()].identifier : told.phase;
        return std::array{told.property.in(), told.basis.in(), phase.in()};
    };
    const std::array first = specification(conditions[0]);
    const std::array second = specification(conditions[1]);
    declareAllPresent();
    for (const FlashCondition& condition : conditions) setCondition(condition);
    call<&ICapeThermoEquilibriumRoutine::Table::CalcEquilibrium>(
        equilibriumRoutine(), StringsView(first).in(), StringsView(second).in(),
        hostNames().solutionTypes[static_cast<std::size_t>(solutionType)].in());
}

Equilibrium CapeMaterial_1_2::flash(const FlashSpecification& specification) {
    if (specification.x.size() != compoundCount())
        throw StringException("Inconsistent size of overall composition on Material Object");
    keepFeedUnwritten();
    setOverall(hostNames().fraction.in(), hostNames().mole.in(), specification.x);
    calculateEquilibrium(specification.conditions, specification.solutionType);
    return readEquilibrium(material_);
}

void CapeMaterial_1_2::flashProduct() {
    const ProductSpecification& product = port().specification();
    if (!product.xSpecified()) return;
    setOverall(hostNames().fraction.in(), hostNames().mole.in(), product.x());
    const auto conditions = product.conditions();
    if (product.isCopied() && conditions.empty()) return matchCopiedState();
    if (conditions.size() != 2) return;
    if (product.solutionType() != SolutionType::unspecified && !isVaporFraction(conditions[0]) &&
        !isVaporFraction(conditions[1])) {
        throw StringException(
            "Material product port solution_type can only be specified in case vapor_fraction is specified");
    }
    calculateEquilibrium({conditions[0], conditions[1]}, product.solutionType());
}

void CapeMaterial_1_2::matchCopiedState() {
    const CopiedState copied = port().specification().copied();
    const FlashCondition pressure{ConditionCode::pressure, copied.pressure};
    const auto flashWith = [&](ConditionCode code, double value) {
        // Asked for even where the conditions do not need it: a package without a vapour phase is refused as
        // a whole.
        vaporForFlash();
        calculateEquilibrium({pressure, FlashCondition{code, value}}, SolutionType::unspecified);
    };
    const auto matches = [&] { return std::abs(mixtureEnthalpy() - copied.enthalpy) < enthalpyTolerance; };

    if (!std::isnan(copied.vaporFraction)) {
        flashWith(ConditionCode::vaporFraction, copied.vaporFraction);
        if (matches()) return;
    }
    flashWith(ConditionCode::temperature, copied.temperature);
    if (matches()) return;
    flashWith(ConditionCode::enthalpy, copied.enthalpy);
}

// Results

double CapeMaterial_1_2::readSingle(Material& from, ICapeString* property, ICapeString* phase,
                                    ICapeString* basis, const char* otherwise) {
    readPhase(from, property, phase, basis);
    if (result_.view().size() != 1) throw StringException(otherwise);
    return result_.view()[0];
}

double CapeMaterial_1_2::mixtureEnthalpy() {
    const HostNames& names = hostNames();
    call<&Thermo::GetPresentPhases>(material_, present_.out(), presentStatus_.out());
    if (present_.size() == 0) throw StringException(noPhases);
    const std::array enthalpy = {names.enthalpy.in()};
    for (std::size_t i = 0; i < present_.size(); ++i)
        call<&ICapeThermoPropertyRoutine::Table::CalcSinglePhaseProp>(
            propertyRoutine(), StringsView(enthalpy).in(), present_[i].in());
    double sum = 0;
    for (std::size_t i = 0; i < present_.size(); ++i) {
        ICapeString* const phase = present_[i].in();
        const double fraction =
            readSingle(material_, names.phaseFraction.in(), phase, names.mole.in(),
                       "unexpected number of values for phase fraction from Material Object");
        if (fraction == 0) continue;
        sum += fraction * readSingle(material_, names.enthalpy.in(), phase, names.mole.in(),
                                     "unexpected number of values for enthalpy from Material Object");
    }
    return sum;
}

Equilibrium CapeMaterial_1_2::equilibrium() { return readEquilibrium(own()); }

Equilibrium CapeMaterial_1_2::readEquilibrium(Material& from) {
    const HostNames& names = hostNames();
    const PhaseList& all = phases();
    const std::size_t count = compoundCount();
    call<&Thermo::GetPresentPhases>(from, present_.out(), presentStatus_.out());
    if (present_.size() == 0) throw StringException(noPhases);

    Equilibrium result{{}, 0};
    result.phases.reserve(present_.size());
    for (std::size_t i = 0; i < present_.size(); ++i) {
        const int phase = all.find(present_[i].view());
        if (phase == PhaseList::none) {
            throw StringException() << "Undefined phase '" << present_[i].utf8()
                                    << "' on Material Object after CalcEquilibrium";
        }
        ICapeString* const label = present_[i].in();
        const double fraction =
            readSingle(from, names.phaseFraction.in(), label, names.mole.in(),
                       "Invalid values for equilibrium phase fraction from Material Object");
        const double temperature = readSingle(from, names.temperature.in(), label, names.noBasis.in(),
                                              "Invalid response from Material Object");
        const double pressure = readSingle(from, names.pressure.in(), label, names.noBasis.in(),
                                           "Invalid response from Material Object");
        readPhase(from, names.fraction.in(), label, names.mole.in());
        const auto x = result_.view();
        if (x.size() != count)
            throw StringException("Inconsistent size of phase composition on Material Object");
        if (!(fraction >= 0 && fraction <= 1))
            throw StringException("Invalid values for equilibrium phase fraction from Material Object");
        result.phases.push_back({phase, fraction, temperature, pressure, {x.begin(), x.end()}});
        if (phase == all.vapor()) result.vaporFraction = fraction;
    }
    return result;
}

}  // namespace orvane
