// A material object of a TestPackage, as a host connects it to a port.
#pragma once

#include "cobia/HostAdapters.h"
#include "tests/thermo/TestPackage.h"

namespace orvane::test {

class TestMaterial
    : public COBIA::CapeOpenObject<TestMaterial, COBIA::IdentificationAdapter, COBIA::ThermoMaterialAdapter,
                                   COBIA::ThermoCompoundsAdapter, COBIA::ThermoPhasesAdapter,
                                   COBIA::ThermoPropertyRoutineAdapter,
                                   COBIA::ThermoEquilibriumRoutineAdapter> {
public:
    /// `tag` is how the calls on it are told from those on others.
    TestMaterial(TestPackage& package, std::string tag) : package_(package), tag_(std::move(tag)) {
        ++package_.liveMaterials;
    }
    ~TestMaterial() override { --package_.liveMaterials; }

    COBIA::ICapeInterface* find(const COBIA::CapeUUID& uuid) noexcept override;

    /// A stream at equilibrium. mol/s, K, Pa.
    void setStream(double flow, const std::vector<double>& z, const TestPackage::Split& split,
                   double pressure);
    std::vector<double> overall(const std::string& property) const { return overall_.at(property); }
    double phaseValue(const std::string& phase, const std::string& property) const {
        return values_.at(phase).at(property).at(0);
    }

    // ICapeIdentification

    std::string name() const { return "stream " + tag_; }
    void setName(const std::string&) {}
    std::string description() const { return "a test stream"; }
    void setDescription(const std::string&) {}

    // ICapeThermoMaterial

    void clearAllProps() { note("ClearAllProps"); }
    void copyFromMaterial(COBIA::ICapeThermoMaterial*) { note("CopyFromMaterial"); }
    COBIA::Ref<COBIA::ICapeThermoMaterial> createMaterial();
    void overallProp(COBIA::CapeTextView property, COBIA::CapeTextView basis, COBIA::RealsOut values);
    void overallTPFraction(double& temperature, double& pressure, COBIA::RealsOut x);
    void presentPhases(COBIA::TextsOut labels, COBIA::EnumerationsOut status);
    void singlePhaseProp(COBIA::CapeTextView property, COBIA::CapeTextView phase, COBIA::CapeTextView basis,
                         COBIA::RealsOut values);
    void tpFraction(COBIA::CapeTextView, double&, double&, COBIA::RealsOut) { note("GetTPFraction"); }
    void twoPhaseProp(COBIA::CapeTextView property, COBIA::TextsView phases, COBIA::CapeTextView basis,
                      COBIA::RealsOut values);
    void setOverallProp(COBIA::CapeTextView property, COBIA::CapeTextView basis,
                        std::span<const double> values);
    void setPresentPhases(COBIA::TextsView labels, std::span<const COBIA::CapeEnumeration> status);
    void setSinglePhaseProp(COBIA::CapeTextView property, COBIA::CapeTextView phase,
                            COBIA::CapeTextView basis, std::span<const double> values);
    void setTwoPhaseProp(COBIA::CapeTextView, COBIA::TextsView, COBIA::CapeTextView,
                         std::span<const double>) {}

    // ICapeThermoCompounds

    void compoundConstants(COBIA::TextsView properties, COBIA::TextsView compounds,
                           COBIA::CapeBoolean& missing, COBIA::ValuesOut values);
    void compoundList(COBIA::TextsOut ids, COBIA::TextsOut formulae, COBIA::TextsOut names,
                      COBIA::RealsOut boiling, COBIA::RealsOut weights, COBIA::TextsOut casNumbers);
    std::vector<std::string> constantProperties() const { return {"acentricFactor", "structure"}; }
    COBIA::CapeInteger compoundCount();
    void pressureDependentProperties(COBIA::TextsView, double, COBIA::TextsView, COBIA::CapeBoolean&,
                                     COBIA::RealsOut) {}
    std::vector<std::string> pressureDependentPropertyNames() const { return {}; }
    void temperatureDependentProperties(COBIA::TextsView properties, double temperature,
                                        COBIA::TextsView compounds, COBIA::CapeBoolean& missing,
                                        COBIA::RealsOut values);
    std::vector<std::string> temperatureDependentPropertyNames() const { return {"vaporPressure"}; }

    // ICapeThermoPhases

    COBIA::CapeInteger phaseCount() const { return static_cast<COBIA::CapeInteger>(package_.phases.size()); }
    COBIA::ValueObject::Content phaseInfo(COBIA::CapeTextView phase, COBIA::CapeTextView attribute);
    void phaseList(COBIA::TextsOut labels, COBIA::TextsOut states, COBIA::TextsOut keys);

    // ICapeThermoPropertyRoutine

    void calcAndGetLnPhi(COBIA::CapeTextView, double, double, std::span<const double>, COBIA::CapeInteger,
                         COBIA::RealsOut, COBIA::RealsOut, COBIA::RealsOut, COBIA::RealsOut) {}
    void calcSinglePhaseProp(COBIA::TextsView properties, COBIA::CapeTextView phase);
    void calcTwoPhaseProp(COBIA::TextsView properties, COBIA::TextsView phases);
    bool checkSinglePhasePropSpec(COBIA::CapeTextView, COBIA::CapeTextView) const { return true; }
    bool checkTwoPhasePropSpec(COBIA::CapeTextView, COBIA::TextsView) const { return true; }
    std::vector<std::string> singlePhasePropList() const {
        return {"Enthalpy", "entropyF", "fugacityCoefficient"};
    }
    std::vector<std::string> twoPhasePropList() const { return {"kvalue"}; }

    // ICapeThermoEquilibriumRoutine

    void calcEquilibrium(COBIA::TextsView first, COBIA::TextsView second, COBIA::CapeTextView solutionType);
    bool checkEquilibriumSpec(COBIA::TextsView, COBIA::TextsView, COBIA::CapeTextView) const { return true; }

private:
    using Values = std::map<std::string, std::vector<double>>;

    std::string errorSource() const override { return "test material"; }
    /// Keeps the call, and fails it where the package says so.
    void note(const std::string& call);
    std::vector<double> answer(const std::string& call, const std::vector<double>& truth) const;
    void setSplit(const TestPackage::Split& split, double pressure);

    TestPackage& package_;
    std::string tag_;
    Values overall_;
    std::vector<std::string> present_;
    std::map<std::string, Values> values_;  // by phase
};

}  // namespace orvane::test
