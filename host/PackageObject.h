// What a material object tells of its property package: compounds and phases. The same for every material on
// it.
// Not here: the state of a stream (MaterialObject).
#pragma once

#include "cobia/HostAdapters.h"
#include "host/PropertyPackage.h"

#include <memory>
#include <string>
#include <vector>

namespace orvane::host {

/// ICapeThermoCompounds and ICapeThermoPhases over a property package. Values of several compounds or
/// properties at once stand in the order: first property for all compounds, second property for all
/// compounds, and so on.
class PackageObject
    : public COBIA::CapeOpenObject<PackageObject, COBIA::ThermoCompoundsAdapter, COBIA::ThermoPhasesAdapter> {
public:
    explicit PackageObject(std::shared_ptr<const PropertyPackage> package);

    const PropertyPackage& package() const { return *package_; }
    std::shared_ptr<const PropertyPackage> sharedPackage() const { return package_; }

    // ICapeThermoCompounds. No compound named means all of them; a value that a compound has not is NaN.
    void compoundConstants(COBIA::TextsView properties, COBIA::TextsView compounds,
                           COBIA::CapeBoolean& missing, COBIA::ValuesOut values) const;
    void compoundList(COBIA::TextsOut ids, COBIA::TextsOut formulae, COBIA::TextsOut names,
                      COBIA::RealsOut boilingTemperatures, COBIA::RealsOut molecularWeights,
                      COBIA::TextsOut casNumbers) const;
    std::vector<std::string> constantProperties() const;
    COBIA::CapeInteger compoundCount() const;
    void pressureDependentProperties(COBIA::TextsView properties, double pressure, COBIA::TextsView compounds,
                                     COBIA::CapeBoolean& missing, COBIA::RealsOut values) const;
    std::vector<std::string> pressureDependentPropertyNames() const;
    void temperatureDependentProperties(COBIA::TextsView properties, double temperature,
                                        COBIA::TextsView compounds, COBIA::CapeBoolean& missing,
                                        COBIA::RealsOut values) const;
    std::vector<std::string> temperatureDependentPropertyNames() const;

    // ICapeThermoPhases
    COBIA::CapeInteger phaseCount() const;
    /// An attribute that a phase does not have is an empty value.
    COBIA::ValueObject::Content phaseInfo(COBIA::CapeTextView phase, COBIA::CapeTextView attribute) const;
    void phaseList(COBIA::TextsOut labels, COBIA::TextsOut statesOfAggregation,
                   COBIA::TextsOut keyCompounds) const;

protected:
    std::string errorSource() const override { return "property package"; }

private:
    /// Their places in the package.
    std::vector<std::size_t> namedCompounds(COBIA::TextsView compounds) const;
    template <class Property>
    void dependentProperties(COBIA::TextsView properties, COBIA::TextsView compounds, Property property,
                             COBIA::CapeBoolean& missing, COBIA::RealsOut values) const;

    std::shared_ptr<const PropertyPackage> package_;
};

/// The phases of the package in the order in which they are listed.
inline constexpr package::PhaseKind phaseKinds[] = {package::PhaseKind::vapor, package::PhaseKind::liquid};

/// The phase with this label, letter case aside. Throws StringException with the label and the known ones.
package::PhaseKind phaseKind(COBIA::CapeTextView label);

}  // namespace orvane::host
