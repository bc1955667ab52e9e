// What the package is made of, and the properties of phases. The equilibria are in
// CapeMaterial_1_2_Equilibrium.cpp.
#include "thermo/CapeMaterial_1_2.h"

#include "thermo/HostNames.h"
#include "thermo/MaterialPort.h"

#include <algorithm>
#include <cmath>

namespace orvane {

using namespace COBIA;

namespace {

using Thermo = ICapeThermoMaterial::Table;
using Compounds = ICapeThermoCompounds::Table;
using Phases = ICapeThermoPhases::Table;
using Routine = ICapeThermoPropertyRoutine::Table;

template <class I>
Ref<I>& acquire(Ref<I>& held, const Ref<ICapeThermoMaterial>& material, const char* missing) {
    if (!held) {
        held = query<I>(material);
        if (!held) throw StringException(missing);
    }
    return held;
}

template <auto slot, class I> std::vector<std::string> textsOf(const Ref<I>& from) {
    StringArray texts;
    call<slot>(from, texts.out());
    return texts.utf8();
}

/// The names as one argument: an array of them is made without copying their texts.
class NamesArgument {
public:
    explicit NamesArgument(PropertyNames names)
        : identifiers_(identifiersOf(names)), view_(identifiers_.view()) {}
    ICapeArrayString* in() const noexcept { return view_.in(); }

private:
    using Identifiers = ShortList<ICapeString*, 8>;

    static Identifiers identifiersOf(PropertyNames names) {
        Identifiers identifiers;
        for (const PropertyName* name : names) identifiers.push_back(name->identifier());
        return identifiers;
    }

    Identifiers identifiers_;
    StringsView view_;
};

void requireNames(PropertyNames names) {
    if (names.empty()) throw StringException("No properties specified");
}

/// `of` says which phase is meant, where there are two.
void requireState(const PhaseState& state, const char* of) {
    if (std::isnan(state.temperature))
        throw StringException() << "Temperature not specified" << of << " (not a number)";
    if (std::isnan(state.pressure))
        throw StringException() << "Pressure not specified" << of << " (not a number)";
}

/// Reads with the basis that the property is known to have. Of an unknown one the mole basis is tried first.
template <class Read> void readOnBasis(const PropertyName& name, Read&& read) {
    const HostNames& names = hostNames();
    switch (name.basis()) {
    case Basis::mole: return read(names.mole.in());
    case Basis::none: return read(names.noBasis.in());
    case Basis::unknown: break;
    }
    try {
        read(names.mole.in());
        name.learn(Basis::mole);
    }
    catch (const cape_open_error&) {
        read(names.noBasis.in());
        name.learn(Basis::none);
    }
}

}  // namespace

std::unique_ptr<CapeMaterial> makeMaterial(CapeOpenVersion version, MaterialPort& port, PortOwner& owner,
                                           ICapeInterface* object) {
    if (version != CapeOpenVersion::v1_2) throw StringException("Unsupported CAPE-OPEN version");
    return std::make_unique<CapeMaterial_1_2>(port, owner, object);
}

CapeMaterial_1_2::CapeMaterial_1_2(MaterialPort& port, PortOwner& owner, ICapeInterface* object)
    : owner_(&owner),
      port_(Ref<MaterialPort>::share(&port)),
      isFeed_(port.isFeed()),
      material_(query<ICapeThermoMaterial>(object)) {
    if (!material_) throw StringException("CAPE-OPEN Material Object does not implement ICapeThermoMaterial");
    owner.addHolder(*this);
}

CapeMaterial_1_2::~CapeMaterial_1_2() {
    if (owner_) owner_->removeHolder(*this);
}

void CapeMaterial_1_2::releaseHostObjects() noexcept {
    // Whoever tells us to let go has struck us off its list, and may be gone before we are.
    owner_ = nullptr;
    port_ = nullptr;
    propertyRoutine_ = nullptr;
    equilibriumRoutine_ = nullptr;
    phasesInterface_ = nullptr;
    compoundsInterface_ = nullptr;
    own_ = nullptr;
    material_ = nullptr;
}

MaterialPort& CapeMaterial_1_2::port() {
    if (!port_) throw StringException("not initialized");
    return *port_;
}

Ref<ICapeThermoCompounds>& CapeMaterial_1_2::compoundsInterface() {
    return acquire(compoundsInterface_, material_, "Material Object does not implement ICapeThermoCompounds");
}

Ref<ICapeThermoPhases>& CapeMaterial_1_2::phasesInterface() {
    return acquire(phasesInterface_, material_, "Material Object does not implement ICapeThermoPhases");
}

Ref<ICapeThermoPropertyRoutine>& CapeMaterial_1_2::propertyRoutine() {
    return acquire(propertyRoutine_, material_,
                   "Material Object does not implement ICapeThermoPropertyRoutine");
}

Ref<ICapeThermoEquilibriumRoutine>& CapeMaterial_1_2::equilibriumRoutine() {
    return acquire(equilibriumRoutine_, material_,
                   "Material Object does not implement CapeThermoEquilibriumRoutine");
}

void CapeMaterial_1_2::keepFeedUnwritten() {
    if (!isFeed_ || own_) return;
    Material scratch = obtain<ICapeThermoMaterial, &Thermo::CreateMaterial>(material_.get());
    if (!scratch) throw cape_open_error(nullPointer);
    own_ = std::exchange(material_, std::move(scratch));
    // They calculate on the object that gave them.
    propertyRoutine_ = nullptr;
    equilibriumRoutine_ = nullptr;
}

std::string CapeMaterial_1_2::name() {
    const auto identification = query<ICapeIdentification>(own());
    if (!identification)
        throw StringException("CAPE-OPEN Material Object does not implement ICapeIdentification");
    return text<&ICapeIdentification::Table::getComponentName>(identification.get());
}

// Compounds

std::size_t CapeMaterial_1_2::compoundCount() {
    if (!compoundCount_) {
        CapeInteger count = 0;
        call<&Compounds::getNumCompounds>(compoundsInterface(), &count);
        compoundCount_ = static_cast<std::size_t>(std::max(count, 0));
    }
    return *compoundCount_;
}

const CompoundList& CapeMaterial_1_2::compounds() {
    if (!compounds_) {
        StringArray identifiers, formulae, names, casNumbers;
        RealArray boilingPoints, molecularWeights;
        call<&Compounds::GetCompoundList>(compoundsInterface(), identifiers.out(), formulae.out(),
                                          names.out(), boilingPoints.out(), molecularWeights.out(),
                                          casNumbers.out());
        const auto values = [](const RealArray& reals) {
            return std::vector<double>(reals.view().begin(), reals.view().end());
        };
        compounds_ = CompoundList{identifiers.utf8(),    formulae.utf8(),          names.utf8(),
                                  values(boilingPoints), values(molecularWeights), casNumbers.utf8()};
    }
    return *compounds_;
}

std::size_t CapeMaterial_1_2::compoundIndex(const std::string& identifier) {
    const auto& identifiers = compounds().identifiers;
    const auto found = std::ranges::find_if(
        identifiers, [&](const std::string& known) { return equalIgnoringCase(known, identifier); });
    if (found == identifiers.end()) throw StringException("inconsistent compound data from material object");
    return static_cast<std::size_t>(found - identifiers.begin());
}

ValueObject::Content CapeMaterial_1_2::compoundConstant(const std::string& constant, std::size_t compound) {
    const StringArray constants({constant});
    const StringArray identifiers({compounds().identifiers.at(compound)});
    CapeBoolean missing = 0;
    ValueArray values;
    call<&Compounds::GetCompoundConstant>(compoundsInterface(), constants.in(), identifiers.in(), &missing,
                                          values.out());
    if (missing) throw StringException("No data");
    if (values.size() != 1) throw StringException("Invalid response from Material Object");
    ValueObject::Content value = values[0].content();
    if (std::holds_alternative<std::monostate>(value)) throw StringException("No data");
    return value;
}

std::vector<double> CapeMaterial_1_2::temperatureDependentProperties(std::span<const std::string> properties,
                                                                     std::size_t compound,
                                                                     double temperature) {
    if (properties.empty()) throw StringException("No properties specified");
    const StringArray names(std::vector(properties.begin(), properties.end()));
    const StringArray identifiers({compounds().identifiers.at(compound)});
    CapeBoolean missing = 0;
    call<&Compounds::GetTDependentProperty>(compoundsInterface(), names.in(), temperature, identifiers.in(),
                                            &missing, result_.out());
    if (missing) throw StringException("No data");
    const auto values = result_.view();
    if (values.size() != properties.size()) throw StringException("Invalid response from Material Object");
    return {values.begin(), values.end()};
}

std::vector<std::string> CapeMaterial_1_2::constantProperties() {
    return textsOf<&Compounds::getConstPropList>(compoundsInterface());
}

std::vector<std::string> CapeMaterial_1_2::temperatureDependentPropertyNames() {
    return textsOf<&Compounds::getTDependentPropList>(compoundsInterface());
}

std::vector<std::string> CapeMaterial_1_2::phasePropertyNames() {
    return textsOf<&Routine::getSinglePhasePropList>(propertyRoutine());
}

std::vector<std::string> CapeMaterial_1_2::phasePairPropertyNames() {
    return textsOf<&Routine::getTwoPhasePropList>(propertyRoutine());
}

// Phases

const PhaseList& CapeMaterial_1_2::phases() {
    if (phases_) return *phases_;
    StringArray labels, states, keyCompounds;
    call<&Phases::GetPhaseList>(phasesInterface(), labels.out(), states.out(), keyCompounds.out());
    if (states.size() != labels.size() || keyCompounds.size() != labels.size())
        throw StringException("Invalid response from Material Object");
    std::vector<PhaseDescription> descriptions;
    for (std::size_t i = 0; i < labels.size(); ++i)
        descriptions.push_back(describePhase(labels[i], lowerCase(states[i].utf8()), keyCompounds[i].utf8()));
    phases_ = std::make_unique<const PhaseList>(std::move(descriptions));
    return *phases_;
}

PhaseDescription CapeMaterial_1_2::describePhase(const StringObject& label, std::string stateOfAggregation,
                                                 const std::string& keyCompound) {
    if (stateOfAggregation == "unknown") stateOfAggregation.clear();
    PhaseDescription phase{
        .label = label.utf8(), .stateOfAggregation = std::move(stateOfAggregation), .identifier = label};
    if (!keyCompound.empty()) phase.keyCompound = static_cast<int>(compoundIndex(keyCompound));
    ValueObject excluded;
    call<&Phases::GetPhaseInfo>(phasesInterface(), label.in(), hostNames().excludedCompound.in(),
                                excluded.out());
    const ValueObject::Content content = excluded.content();
    if (const auto* identifier = std::get_if<std::string>(&content)) {
        if (!identifier->empty()) phase.excludedCompound = static_cast<int>(compoundIndex(*identifier));
    } else if (!std::holds_alternative<std::monostate>(content)) {
        throw StringException("Invalid response from Material Object");
    }
    return phase;
}

// Properties of phases

void CapeMaterial_1_2::declarePresent(std::initializer_list<int> wanted) {
    const PhaseList& all = phases();
    call<&Thermo::GetPresentPhases>(material_, present_.out(), presentStatus_.out());
    const std::size_t before = present_.size();
    for (const int phase : wanted) {
        const CapeTextView label = all[phase].identifier.view();
        const auto isPresent = [&](auto&& same) {
            for (std::size_t i = 0; i < present_.size(); ++i)
                if (same(present_[i].view(), label)) return true;
            return false;
        };
        if (isPresent(std::equal_to<>()) || isPresent(sameLabel)) continue;
        present_.resize(present_.size() + 1);
        present_[present_.size() - 1].set(label);
    }
    if (present_.size() == before) return;
    presentStatus_.resize(present_.size());  // nothing is known of those that come along
    call<&Thermo::SetPresentPhases>(material_, present_.in(), presentStatus_.in());
}

void CapeMaterial_1_2::setPhaseState(const PhaseState& state) {
    const HostNames& names = hostNames();
    ICapeString* const phase = phases()[state.phase].identifier.in();
    const auto set = [&](ICapeString* property, ICapeString* basis, std::span<const double> values) {
        call<&Thermo::SetSinglePhaseProp>(material_, property, phase, basis, RealView(values).in());
    };
    set(names.temperature.in(), names.noBasis.in(), {&state.temperature, 1});
    set(names.pressure.in(), names.noBasis.in(), {&state.pressure, 1});
    set(names.fraction.in(), names.mole.in(), state.x);
}

void CapeMaterial_1_2::readPhase(Material& from, ICapeString* property, ICapeString* phase,
                                 ICapeString* basis) {
    call<&Thermo::GetSinglePhaseProp>(from, property, phase, basis, result_.out());
}

void CapeMaterial_1_2::readPhaseProperty(const PropertyName& name, ICapeString* phase) {
    readOnBasis(name, [&](ICapeString* basis) { readPhase(material_, name.identifier(), phase, basis); });
}

void CapeMaterial_1_2::phaseProperties(const PhaseState& state, PropertyNames names, PropertyValues& values) {
    requireNames(names);
    requireState(state, "");
    keepFeedUnwritten();
    declarePresent({state.phase});
    setPhaseState(state);
    ICapeString* const phase = phases()[state.phase].identifier.in();
    call<&Routine::CalcSinglePhaseProp>(propertyRoutine(), NamesArgument(names).in(), phase);
    values.clear();
    for (const PropertyName* name : names) {
        readPhaseProperty(*name, phase);
        values.add(result_.view());
    }
}

void CapeMaterial_1_2::equilibriumPhaseProperties(const PhaseState& state, PropertyNames names,
                                                  PropertyValues& values) {
    phaseProperties(state, names, values);
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i].empty()) throw StringException("Material Object returned invalid property results");
}

void CapeMaterial_1_2::phasePairProperties(const PhaseState& first, const PhaseState& second,
                                           PropertyNames names, PropertyValues& values) {
    requireNames(names);
    requireState(first, " for phase 1");
    requireState(second, " for phase 2");
    keepFeedUnwritten();
    declarePresent({first.phase, second.phase});
    setPhaseState(first);
    setPhaseState(second);
    const std::array labels = {phases()[first.phase].identifier.in(), phases()[second.phase].identifier.in()};
    const StringsView pair(labels);
    call<&Routine::CalcTwoPhaseProp>(propertyRoutine(), NamesArgument(names).in(), pair.in());
    values.clear();
    for (const PropertyName* name : names) {
        readOnBasis(*name, [&](ICapeString* basis) {
            call<&Thermo::GetTwoPhaseProp>(material_, name->identifier(), pair.in(), basis, result_.out());
        });
        values.add(result_.view());
    }
}

}  // namespace orvane
