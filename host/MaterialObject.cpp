#include "host/MaterialObject.h"

#include "host/PropertyCalculator.h"

#include <algorithm>

namespace orvane::host {

using COBIA::CapePhaseStatus;
using COBIA::RealsOut;
using COBIA::StringException;
using COBIA::TextsView;
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
    const StateValues& of = presentSlot(phaseKind(phase)).values;
    if (const auto derivative = findDerivative(name)) {
        get(of, *derivative, basis(basisText, *derivative), values);
        return;
    }
    const Property wanted = property(name);
    get(of, wanted, basis(basisText, wanted), values);
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

}  // namespace orvane::host
