// A material object for tests, reached through the binary interface alone, as a unit reaches it.
#pragma once

#include "cobia/Call.h"
#include "host/MaterialObject.h"
#include "package/CompoundTable.h"

#include <memory>
#include <string>
#include <vector>

namespace orvane::host {

inline std::shared_ptr<const PropertyPackage> makePackage(const std::vector<std::string>& ids) {
    std::vector<package::Compound> compounds;
    for (const std::string& id : ids) compounds.push_back(package::CompoundTable::instance().at(id));
    return std::make_shared<PropertyPackage>(std::move(compounds), std::vector<package::Interaction>());
}

/// Methane, propane and n-pentane: gas, liquid or both at everyday conditions.
inline const std::vector<std::string> testCompounds = {"methane", "propane", "n-pentane"};

class TestMaterial {
public:
    using Material = COBIA::ICapeThermoMaterial;
    using Routine = COBIA::ICapeThermoPropertyRoutine;
    using Equilibrium = COBIA::ICapeThermoEquilibriumRoutine;

    explicit TestMaterial(const std::vector<std::string>& ids = testCompounds)
        : TestMaterial(COBIA::Ref<Material>::share(
              COBIA::makeObject<MaterialObject>("S1", makePackage(ids))->template as<Material>())) {}
    explicit TestMaterial(COBIA::Ref<Material> reference) : material(std::move(reference)) {}

    std::vector<double> overall(const std::string& property, const std::string& basis = "") const {
        COBIA::RealArray result;
        COBIA::call<&Material::Table::GetOverallProp>(material, COBIA::StringObject(property).in(),
                                                      COBIA::StringObject(basis).in(), result.out());
        return {result.view().begin(), result.view().end()};
    }
    std::vector<double> of(const std::string& phase, const std::string& property,
                           const std::string& basis = "") const {
        COBIA::RealArray result;
        COBIA::call<&Material::Table::GetSinglePhaseProp>(material, COBIA::StringObject(property).in(),
                                                          COBIA::StringObject(phase).in(),
                                                          COBIA::StringObject(basis).in(), result.out());
        return {result.view().begin(), result.view().end()};
    }
    void setOverall(const std::string& property, const std::string& basis,
                    const std::vector<double>& values) const {
        COBIA::call<&Material::Table::SetOverallProp>(material, COBIA::StringObject(property).in(),
                                                      COBIA::StringObject(basis).in(),
                                                      COBIA::RealView(values).in());
    }
    void setOf(const std::string& phase, const std::string& property, const std::string& basis,
               const std::vector<double>& values) const {
        COBIA::call<&Material::Table::SetSinglePhaseProp>(
            material, COBIA::StringObject(property).in(), COBIA::StringObject(phase).in(),
            COBIA::StringObject(basis).in(), COBIA::RealView(values).in());
    }

    std::vector<std::string> present() const {
        COBIA::StringArray labels;
        COBIA::EnumerationArray status;
        COBIA::call<&Material::Table::GetPresentPhases>(material, labels.out(), status.out());
        return labels.utf8();
    }
    std::vector<int> statuses() const {
        COBIA::StringArray labels;
        COBIA::EnumerationArray status;
        COBIA::call<&Material::Table::GetPresentPhases>(material, labels.out(), status.out());
        return {status.view().begin(), status.view().end()};
    }
    void setPresent(const std::vector<std::string>& labels) const {
        const COBIA::EnumerationArray status(std::vector<COBIA::CapeEnumeration>(labels.size()));
        COBIA::call<&Material::Table::SetPresentPhases>(material, COBIA::StringArray(labels).in(),
                                                        status.in());
    }

    void calculate(const std::vector<std::string>& properties, const std::string& phase) const {
        COBIA::call<&Routine::Table::CalcSinglePhaseProp>(COBIA::query<Routine>(material),
                                                          COBIA::StringArray(properties).in(),
                                                          COBIA::StringObject(phase).in());
    }

    using Specification = std::vector<std::string>;
    void equilibrium(const Specification& first, const Specification& second,
                     const std::string& solutionType = "unspecified") const {
        COBIA::call<&Equilibrium::Table::CalcEquilibrium>(
            COBIA::query<Equilibrium>(material), COBIA::StringArray(first).in(),
            COBIA::StringArray(second).in(), COBIA::StringObject(solutionType).in());
    }

    /// Sets everything that a flash at temperature and pressure takes, and flashes.
    void flash(const std::vector<double>& x, double temperature, double pressure) const {
        setOverall("fraction", "mole", x);
        setOverall("temperature", "", {temperature});
        setOverall("pressure", "", {pressure});
        setPresent({"Vapor", "Liquid"});
        equilibrium(byTemperature, byPressure);
    }

    inline static const Specification byTemperature = {"temperature", "", "overall"};
    inline static const Specification byPressure = {"pressure", "", "overall"};
    inline static const Specification byEnthalpy = {"enthalpy", "mole", "overall"};
    inline static const Specification byEntropy = {"entropy", "mole", "overall"};

    COBIA::Ref<Material> material;
};

/// The text of the error with which a call fails; empty when it does not.
template <class Body> std::string errorOf(Body&& body) {
    try {
        body();
        return "";
    }
    catch (const COBIA::cape_open_error& error) {
        return error.what();
    }
}

}  // namespace orvane::host
