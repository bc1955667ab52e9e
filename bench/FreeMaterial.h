// A material object that costs nothing: any number of compounds, two phases of which the vapour or both are present, and
// fixed answers.
// What a unit's calls take on it is the unit's own time.
#pragma once

#include "cobia/HostAdapters.h"

namespace orvane::bench {

using COBIA::CapeTextView;
using COBIA::EnumerationsOut;
using COBIA::RealsOut;
using COBIA::TextsOut;
using COBIA::TextsView;

class FreeMaterial
    : public COBIA::CapeOpenObject<FreeMaterial, COBIA::ThermoMaterialAdapter, COBIA::ThermoCompoundsAdapter,
                                   COBIA::ThermoPhasesAdapter, COBIA::ThermoPropertyRoutineAdapter,
                                   COBIA::ThermoEquilibriumRoutineAdapter> {
public:
    using Reals = std::span<const double>;
    using Names = std::vector<std::string>;

    explicit FreeMaterial(std::size_t compounds = 3, bool twoPhases = false)
        : x_(compounds, 1.0 / static_cast<double>(compounds)), none_{"", ""} {
        for (std::size_t i = 0; i < compounds; ++i) compounds_.push_back("compound " + std::to_string(i));
        if (twoPhases) present_.push_back("Liquid");
    }

    void clearAllProps() {}
    void copyFromMaterial(COBIA::ICapeThermoMaterial*) {}
    COBIA::Ref<COBIA::ICapeThermoMaterial> createMaterial() {
        return COBIA::Ref<COBIA::ICapeThermoMaterial>::share(
            COBIA::makeObject<FreeMaterial>(x_.size(), present_.size() == 2)
                ->as<COBIA::ICapeThermoMaterial>());
    }
    void overallProp(CapeTextView, CapeTextView, RealsOut values) { values.resize(1)[0] = 10; }
    void overallTPFraction(double& temperature, double& pressure, RealsOut fractions) {
        temperature = 300;
        pressure = 1e5;
        fractions.assign(x_);
    }
    void presentPhases(TextsOut labels, EnumerationsOut status) {
        labels.assign(present_);
        status.assign(std::vector<COBIA::CapeEnumeration>(present_.size(), 1));
    }
    void singlePhaseProp(CapeTextView property, CapeTextView, CapeTextView, RealsOut values) {
        if (property == fraction_)
            values.assign(x_);
        else
            values.resize(1)[0] = property == phaseFraction_ ? 1.0 / static_cast<double>(present_.size()) : 1;
    }
    void tpFraction(CapeTextView, double& temperature, double& pressure, RealsOut fractions) {
        overallTPFraction(temperature, pressure, fractions);
    }
    void twoPhaseProp(CapeTextView, TextsView, CapeTextView, RealsOut values) { values.assign(x_); }
    void setOverallProp(CapeTextView, CapeTextView, Reals) {}
    void setPresentPhases(TextsView, std::span<const COBIA::CapeEnumeration>) {}
    void setSinglePhaseProp(CapeTextView, CapeTextView, CapeTextView, Reals) {}
    void setTwoPhaseProp(CapeTextView, TextsView, CapeTextView, Reals) {}

    void compoundConstants(TextsView, TextsView, COBIA::CapeBoolean&, COBIA::ValuesOut) const {}
    void compoundList(TextsOut ids, TextsOut formulae, TextsOut names, RealsOut boilingPoints,
                      RealsOut weights, TextsOut casNumbers) const {
        for (const TextsOut& texts : {ids, formulae, names, casNumbers}) texts.assign(compounds_);
        for (const RealsOut& reals : {boilingPoints, weights}) reals.assign(x_);
    }
    Names constantProperties() const { return {}; }
    COBIA::CapeInteger compoundCount() const { return static_cast<COBIA::CapeInteger>(x_.size()); }
    void pressureDependentProperties(TextsView, double, TextsView, COBIA::CapeBoolean&, RealsOut) const {}
    Names pressureDependentPropertyNames() const { return {}; }
    void temperatureDependentProperties(TextsView, double, TextsView, COBIA::CapeBoolean&, RealsOut) const {}
    Names temperatureDependentPropertyNames() const { return {}; }

    COBIA::CapeInteger phaseCount() const { return 2; }
    COBIA::ValueObject::Content phaseInfo(CapeTextView, CapeTextView) const { return {}; }
    void phaseList(TextsOut labels, TextsOut states, TextsOut keyCompounds) const {
        labels.assign(phases_);
        states.assign(phases_);
        keyCompounds.assign(none_);
    }

    void calcAndGetLnPhi(CapeTextView, double, double, Reals, COBIA::CapeInteger, RealsOut, RealsOut,
                         RealsOut, RealsOut) {}
    void calcSinglePhaseProp(TextsView, CapeTextView) {}
    void calcTwoPhaseProp(TextsView, TextsView) {}
    bool checkSinglePhasePropSpec(CapeTextView, CapeTextView) const { return true; }
    bool checkTwoPhasePropSpec(CapeTextView, TextsView) const { return true; }
    Names singlePhasePropList() const { return {"enthalpy"}; }
    Names twoPhasePropList() const { return {}; }

    void calcEquilibrium(TextsView, TextsView, CapeTextView) {}
    bool checkEquilibriumSpec(TextsView, TextsView, CapeTextView) const { return true; }

protected:
    std::string errorSource() const override { return "free material"; }

private:
    COBIA::CapeText fraction_ = COBIA::toCape("fraction"), phaseFraction_ = COBIA::toCape("phaseFraction");
    std::vector<double> x_;
    Names compounds_, phases_ = {"Vapor", "Liquid"}, present_ = {"Vapor"}, none_;
};

}  // namespace orvane::bench
