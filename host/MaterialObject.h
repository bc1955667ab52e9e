// The material object of a stream: what is set, what a flash found, and the calculations on it, as the unit
// sees them through the binary interface. Values are held on a mole basis.
// Not here: compounds and phases of the package (PackageObject), the calculations themselves
// (PropertyCalculator, PropertyPackage).
// Threads: one at a time.
#pragma once

#include "host/PackageObject.h"
#include "host/StateValues.h"

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::host {

/// A value that was not set or calculated, an unknown property, phase or basis, a wrong number of values and
/// a value that is no number each answer an error that names the property and the phase.
///
/// What belongs together stays together:
/// - A new temperature, pressure or composition of a phase takes away what was calculated from the old one.
/// - A new temperature, pressure or composition of the whole mixture takes "at equilibrium" from the phases.
/// - A flash starts by forgetting the phases, so one that fails leaves none. Afterwards temperature and
///   pressure of the mixture are those found, and of its other properties those that specified the flash
///   remain.
///
/// Fractions are normalised where they are set, and refused when their sum is off 1 by more than 1e-6.
class MaterialObject
    : public COBIA::Offering<MaterialObject, PackageObject, COBIA::IdentificationAdapter,
                             COBIA::ThermoMaterialAdapter, COBIA::ThermoPropertyRoutineAdapter,
                             COBIA::ThermoEquilibriumRoutineAdapter> {
public:
    using Reals = std::span<const double>;
    using Text = COBIA::CapeTextView;

    /// Empty: nothing set, no phases.
    MaterialObject(std::string name, std::shared_ptr<const PropertyPackage> package);

    // ICapeIdentification
    std::string name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }
    std::string description() const { return description_; }
    void setDescription(std::string description) { description_ = std::move(description); }

    // ICapeThermoMaterial
    void clearAllProps();
    /// The source is a material of this host on the same compounds.
    void copyFromMaterial(COBIA::ICapeThermoMaterial* source);
    COBIA::Ref<COBIA::ICapeThermoMaterial> createMaterial();
    void overallProp(Text property, Text basis, COBIA::RealsOut values);
    void overallTPFraction(double& temperature, double& pressure, COBIA::RealsOut fractions);
    void presentPhases(COBIA::TextsOut labels, COBIA::EnumerationsOut status);
    void singlePhaseProp(Text property, Text phase, Text basis, COBIA::RealsOut values);
    void tpFraction(Text phase, double& temperature, double& pressure, COBIA::RealsOut fractions);
    void twoPhaseProp(Text property, COBIA::TextsView phases, Text basis, COBIA::RealsOut values);
    void setOverallProp(Text property, Text basis, Reals values);
    void setPresentPhases(COBIA::TextsView labels, std::span<const COBIA::CapeEnumeration> status);
    void setSinglePhaseProp(Text property, Text phase, Text basis, Reals values);
    void setTwoPhaseProp(Text property, COBIA::TextsView phases, Text basis, Reals values);

    // ICapeThermoPropertyRoutine
    /// flags: 1 ln phi, 2 by temperature, 4 by pressure, 8 by mole numbers in one mole.
    void calcAndGetLnPhi(Text phase, double temperature, double pressure, Reals fractions,
                         COBIA::CapeInteger flags, COBIA::RealsOut lnPhi, COBIA::RealsOut byTemperature,
                         COBIA::RealsOut byPressure, COBIA::RealsOut byAmount);
    void calcSinglePhaseProp(COBIA::TextsView properties, Text phase);
    void calcTwoPhaseProp(COBIA::TextsView properties, COBIA::TextsView phases);
    bool checkSinglePhasePropSpec(Text property, Text phase) const;
    bool checkTwoPhasePropSpec(Text property, COBIA::TextsView phases) const;
    std::vector<std::string> singlePhasePropList() const;
    std::vector<std::string> twoPhasePropList() const;

    // ICapeThermoEquilibriumRoutine. A specification is property, basis and phase ("overall" or a label).
    void calcEquilibrium(COBIA::TextsView specification1, COBIA::TextsView specification2, Text solutionType);
    bool checkEquilibriumSpec(COBIA::TextsView specification1, COBIA::TextsView specification2,
                              Text solutionType) const;

    // The host's own road to a stream, without texts.

    /// Composition (mole fractions, sum 1) and flow [mol/s], then the flash.
    void specify(Reals fractions, double totalFlow, Condition first, Condition second);

    struct Phase {
        package::PhaseKind kind;
        const StateValues* values;  ///< temperature, pressure, fraction and phaseFraction after a flash
    };
    const StateValues& overall() const { return overall_; }
    /// Those present, the vapour first.
    std::vector<Phase> phases() const;
    /// Whether the phases are those of a flash at what the mixture is set to.
    bool isAtEquilibrium() const;
    /// Of the whole mixture, from the phases present: J/mol, J/mol/K. Empty unless isAtEquilibrium().
    struct Energy {
        double enthalpy;
        double entropy;
    };
    std::optional<Energy> energy() const;
    /// What the user should know of the last flash, one sentence each.
    const std::vector<std::string>& warnings() const { return warnings_; }

protected:
    std::string errorSource() const override { return "material object '" + name_ + "'"; }

private:
    struct PhaseSlot {
        StateValues values;
        bool present = false;
        COBIA::CapePhaseStatus status = COBIA::CapePhaseStatus::unknown;
    };
    struct PhasePair {
        package::PhaseKind first;
        package::PhaseKind second;
    };

    PhaseSlot& slot(package::PhaseKind kind) { return phases_[static_cast<std::size_t>(kind)]; }
    const PhaseSlot& slot(package::PhaseKind kind) const { return phases_[static_cast<std::size_t>(kind)]; }
    PhaseSlot& presentSlot(package::PhaseKind kind);
    static PhasePair pair(COBIA::TextsView phases);

    /// "the overall mixture" or "phase 'Vapor'", for messages.
    std::string_view owner(const StateValues& of) const;
    void require(const StateValues& of, Property property) const;
    double molarMassOf(const StateValues& of, Property wanted) const;

    void get(const StateValues& of, Property property, Basis basis, COBIA::RealsOut values) const;
    void get(const StateValues& of, Derivative derivative, Basis basis, COBIA::RealsOut values) const;
    void getFlow(const StateValues& of, Property property, Basis basis, COBIA::RealsOut values) const;
    double getScalar(const StateValues& of, Property property, Basis basis) const;
    void getState(const StateValues& of, double& temperature, double& pressure,
                  COBIA::RealsOut fractions) const;

    void check(const StateValues& to, Property property, Reals values) const;
    void put(StateValues& to, Property property, Basis basis, Reals values);
    void putFractions(StateValues& to, Basis basis, Reals values);
    void putFlow(Basis basis, Reals values);
    double moleBasis(const StateValues& to, Property property, Basis basis, double value) const;

    void mixtureChanged();
    Condition condition(COBIA::TextsView specification) const;
    void flash(Condition first, Condition second, package::Solution solution);

    std::string name_;
    std::string description_ = "Material stream of the orvane host";
    StateValues overall_;
    std::optional<Property>
        specified_;  // the property besides temperature and pressure that the last flash was given
    std::array<PhaseSlot, std::size(phaseKinds)> phases_;
    std::vector<std::string> warnings_;
    StateValues twoPhase_;  // of the pair below
    PhasePair twoPhaseOrder_{};
    std::vector<Property> wanted_;  // of a calculation, kept to save its allocation
    std::vector<Derivative> wantedDerivatives_;
};

}  // namespace orvane::host
