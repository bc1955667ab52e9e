// CapeMaterial for objects with the interfaces of CAPE-OPEN 1.2. Interfaces are asked for when they are first
// needed; the lists of compounds and phases are read once. The unit may make it let go of the host's objects
// at any time.
#pragma once

#include "cobia/Call.h"
#include "thermo/CapeMaterial.h"

#include <initializer_list>
#include <optional>

namespace orvane {

class CapeMaterial_1_2 final : public CapeMaterial, private HostObjectHolder {
public:
    /// Registers with the owner. Throws StringException when the object is no material.
    CapeMaterial_1_2(MaterialPort& port, PortOwner& owner, COBIA::ICapeInterface* object);
    CapeMaterial_1_2(const CapeMaterial_1_2&) = delete;
    CapeMaterial_1_2& operator=(const CapeMaterial_1_2&) = delete;
    ~CapeMaterial_1_2() override;

    std::string name() override;
    COBIA::ValueObject::Content compoundConstant(const std::string& constant, std::size_t compound) override;
    std::vector<double> temperatureDependentProperties(std::span<const std::string> properties,
                                                       std::size_t compound, double temperature) override;
    void phaseProperties(const PhaseState& state, PropertyNames names, PropertyValues& values) override;
    void equilibriumPhaseProperties(const PhaseState& state, PropertyNames names,
                                    PropertyValues& values) override;
    void phasePairProperties(const PhaseState& first, const PhaseState& second, PropertyNames names,
                             PropertyValues& values) override;
    std::size_t compoundCount() override;
    const PhaseList& phases() override;
    std::vector<std::string> constantProperties() override;
    std::vector<std::string> temperatureDependentPropertyNames() override;
    std::vector<std::string> phasePropertyNames() override;
    std::vector<std::string> phasePairPropertyNames() override;
    Equilibrium flash(const FlashSpecification& specification) override;
    Equilibrium equilibrium() override;
    OverallState overallState() override;
    double totalFlow() override;
    void setTotalFlow(double flow) override;
    void flashProduct() override;
    const CompoundList& compounds() override;
    bool isReleased() const noexcept override { return !port_; }
    MaterialPort& port() override;

private:
    using Material = COBIA::Ref<COBIA::ICapeThermoMaterial>;

    void releaseHostObjects() noexcept override;

    COBIA::Ref<COBIA::ICapeThermoCompounds>& compoundsInterface();
    COBIA::Ref<COBIA::ICapeThermoPhases>& phasesInterface();
    COBIA::Ref<COBIA::ICapeThermoPropertyRoutine>& propertyRoutine();
    COBIA::Ref<COBIA::ICapeThermoEquilibriumRoutine>& equilibriumRoutine();
    /// The port's own object, even while the calls go to a scratch copy.
    Material& own() noexcept { return own_ ? own_ : material_; }
    /// From here on a feed's calls go to a scratch copy.
    void keepFeedUnwritten();

    std::size_t compoundIndex(const std::string& identifier);
    PhaseDescription describePhase(const COBIA::StringObject& label, std::string stateOfAggregation,
                                   const std::string& keyCompound);

    /// Adds the phases to those that the object declares present.
    void declarePresent(std::initializer_list<int> wanted);
    void declareAllPresent();
    void setPhaseState(const PhaseState& state);
    /// Reads one property into result_.
    void readPhaseProperty(const PropertyName& name, COBIA::ICapeString* phase);
    void readPhase(Material& from, COBIA::ICapeString* property, COBIA::ICapeString* phase,
                   COBIA::ICapeString* basis);

    int vaporForFlash();
    void setOverall(COBIA::ICapeString* property, COBIA::ICapeString* basis, std::span<const double> values);
    void setCondition(const FlashCondition& condition);
    /// Declares all phases present, sets both conditions and has the equilibrium calculated.
    void calculateEquilibrium(const std::array<FlashCondition, 2>& conditions, SolutionType solutionType);
    Equilibrium readEquilibrium(Material& from);
    double readSingle(Material& from, COBIA::ICapeString* property, COBIA::ICapeString* phase,
                      COBIA::ICapeString* basis, const char* otherwise);
    double mixtureEnthalpy();
    void matchCopiedState();

    PortOwner* owner_;               // null once the wrapper has been released
    COBIA::Ref<MaterialPort> port_;  // likewise
    bool isFeed_;
    Material material_;
    Material own_;  // of a feed, once material_ is a scratch copy
    COBIA::Ref<COBIA::ICapeThermoCompounds> compoundsInterface_;
    COBIA::Ref<COBIA::ICapeThermoPhases> phasesInterface_;
    COBIA::Ref<COBIA::ICapeThermoPropertyRoutine> propertyRoutine_;
    COBIA::Ref<COBIA::ICapeThermoEquilibriumRoutine> equilibriumRoutine_;

    std::optional<std::size_t> compoundCount_;
    std::optional<CompoundList> compounds_;
    std::unique_ptr<const PhaseList> phases_;

    // Filled by the host and read at once.
    COBIA::StringArray present_;
    COBIA::EnumerationArray presentStatus_;
    COBIA::RealArray result_;
};

}  // namespace orvane
