#include "host/PackageObject.h"

#include "host/CompoundData.h"
#include "host/Property.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace orvane::host {

using COBIA::CapeTextView;
using COBIA::StringException;
using COBIA::TextsView;
using COBIA::toUtf8;
using package::Compound;

PackageObject::PackageObject(std::shared_ptr<const PropertyPackage> package) : package_(std::move(package)) {}

std::vector<std::size_t> PackageObject::namedCompounds(TextsView compounds) const {
    std::vector<std::size_t> result;
    if (compounds.size() == 0) {
        for (std::size_t i = 0; i < package_->size(); ++i) result.push_back(i);
        return result;
    }
    const auto& all = package_->compounds();
    for (std::size_t i = 0; i < compounds.size(); ++i) {
        const auto found = std::ranges::find_if(
            all, [&](const Compound& compound) { return matches(compounds[i], compound.id); });
        if (found == all.end()) {
            throw StringException() << "the package has no compound '" << toUtf8(compounds[i]) << "'";
        }
        result.push_back(static_cast<std::size_t>(found - all.begin()));
    }
    return result;
}

void PackageObject::compoundConstants(TextsView properties, TextsView compounds, COBIA::CapeBoolean& missing,
                                      COBIA::ValuesOut values) const {
    std::vector<COBIA::ValueObject::Content> result;
    const auto named = namedCompounds(compounds);
    for (std::size_t i = 0; i < properties.size(); ++i) {
        for (const std::size_t compound : named) {
            result.push_back(compoundConstant(package_->compounds()[compound], properties[i]));
        }
    }
    missing = std::ranges::any_of(result, [](const auto& value) { return value.index() == 0; });
    values.assign(result);
}

template <class Property>
void PackageObject::dependentProperties(TextsView properties, TextsView compounds, Property property,
                                        COBIA::CapeBoolean& missing, COBIA::RealsOut values) const {
    std::vector<double> result;
    missing = 0;
    const auto named = namedCompounds(compounds);
    for (std::size_t i = 0; i < properties.size(); ++i) {
        for (const std::size_t compound : named) {
            const std::optional<double> value = property(compound, properties[i]);
            if (!value) missing = 1;
            result.push_back(value.value_or(std::numeric_limits<double>::quiet_NaN()));
        }
    }
    values.assign(result);
}

void PackageObject::compoundList(COBIA::TextsOut ids, COBIA::TextsOut formulae, COBIA::TextsOut names,
                                 COBIA::RealsOut boilingTemperatures, COBIA::RealsOut molecularWeights,
                                 COBIA::TextsOut casNumbers) const {
    std::vector<std::string> formula, name, cas;
    std::vector<double> boiling, weight;
    for (const Compound& compound : package_->compounds()) {
        formula.push_back(compound.formula);
        name.push_back(compound.name);
        cas.push_back(compound.cas);
        boiling.push_back(compound.normalBoilingPoint);
        weight.push_back(compound.molecularWeight);
    }
    ids.assign(package_->ids());
    formulae.assign(formula);
    names.assign(name);
    boilingTemperatures.assign(boiling);
    molecularWeights.assign(weight);
    casNumbers.assign(cas);
}

std::vector<std::string> PackageObject::constantProperties() const { return compoundConstantNames(); }

COBIA::CapeInteger PackageObject::compoundCount() const {
    return static_cast<COBIA::CapeInteger>(package_->size());
}

void PackageObject::pressureDependentProperties(TextsView properties, double pressure, TextsView compounds,
                                                COBIA::CapeBoolean& missing, COBIA::RealsOut values) const {
    dependentProperties(
        properties, compounds,
        [&](std::size_t compound, CapeTextView name) {
            return pressureProperty(*package_, compound, name, pressure);
        },
        missing, values);
}

std::vector<std::string> PackageObject::pressureDependentPropertyNames() const {
    return pressurePropertyNames();
}

void PackageObject::temperatureDependentProperties(TextsView properties, double temperature,
                                                   TextsView compounds, COBIA::CapeBoolean& missing,
                                                   COBIA::RealsOut values) const {
    dependentProperties(
        properties, compounds,
        [&](std::size_t compound, CapeTextView name) {
            return temperatureProperty(*package_, compound, name, temperature);
        },
        missing, values);
}

std::vector<std::string> PackageObject::temperatureDependentPropertyNames() const {
    return temperaturePropertyNames();
}

COBIA::CapeInteger PackageObject::phaseCount() const { return std::size(phaseKinds); }

COBIA::ValueObject::Content PackageObject::phaseInfo(CapeTextView phase, CapeTextView attribute) const {
    const package::PhaseKind kind = phaseKind(phase);
    if (matches(attribute, "StateOfAggregation")) return std::string(label(kind));
    if (matches(attribute, "UserDescription")) {
        return std::string(kind == package::PhaseKind::vapor ? "Vapour phase" : "Liquid phase");
    }
    for (const char* absent : {"KeyCompoundId", "ExcludedCompoundId", "DensityDescription", "TypeOfSolid"}) {
        if (matches(attribute, absent)) return {};
    }
    throw StringException() << "unknown phase attribute '" << toUtf8(attribute) << "'";
}

void PackageObject::phaseList(COBIA::TextsOut labels, COBIA::TextsOut statesOfAggregation,
                              COBIA::TextsOut keyCompounds) const {
    std::vector<std::string> names;
    for (const package::PhaseKind kind : phaseKinds) names.emplace_back(label(kind));
    labels.assign(names);
    statesOfAggregation.assign(names);  // here a phase is called by its state of aggregation
    keyCompounds.assign(std::vector<std::string>(names.size()));
}

package::PhaseKind phaseKind(CapeTextView text) {
    for (const package::PhaseKind kind : phaseKinds) {
        if (matches(text, label(kind))) return kind;
    }
    throw StringException() << "unknown phase '" << toUtf8(text) << "'; the phases are '"
                            << label(phaseKinds[0]) << "' and '" << label(phaseKinds[1]) << "'";
}

}  // namespace orvane::host
