#include "host/CompoundData.h"

#include "cobia/Error.h"
#include "host/Property.h"
#include "package/IdealGas.h"
#include "package/MixtureParameters.h"

#include <cmath>

namespace orvane::host {
namespace {

using COBIA::ValueObject;
using package::Compound;
using package::IdealGas;

struct Constant {
    const char* identifier;
    ValueObject::Content (*of)(const Compound&);
};

template <auto member> ValueObject::Content figure(const Compound& compound) { return compound.*member; }

const Constant constants[] = {
    {"chemicalFormula", figure<&Compound::formula>},
    {"casRegistryNumber", figure<&Compound::cas>},
    {"molecularWeight", figure<&Compound::molecularWeight>},
    {"normalBoilingPoint", figure<&Compound::normalBoilingPoint>},
    {"criticalTemperature", figure<&Compound::criticalTemperature>},
    {"criticalPressure", figure<&Compound::criticalPressure>},
    {"criticalVolume", figure<&Compound::criticalVolume>},
    {"criticalCompressibilityFactor",
     [](const Compound& c) -> ValueObject::Content {
         return c.criticalPressure * c.criticalVolume / (package::gasConstant * c.criticalTemperature);
     }},
    {"acentricFactor", figure<&Compound::acentricFactor>},
    {"standardFormationEnthalpyGas", figure<&Compound::idealGasFormationEnthalpy>},
    {"standardEntropyGas", figure<&Compound::idealGasAbsoluteEntropy>},
};

struct TemperatureProperty {
    const char* identifier;
    bool endsAtCriticalPoint;
    double (*of)(const PropertyPackage&, std::size_t compound, double temperature);
};

template <double IdealGas::*member>
double idealGas(const PropertyPackage& package, std::size_t compound, double temperature) {
    return IdealGas(package.compounds()[compound].heatCapacity, temperature).*member;
}

std::vector<double> alone(const PropertyPackage& package, std::size_t compound) {
    std::vector<double> x(package.size());
    x[compound] = 1;
    return x;
}

package::Equilibrium saturated(const PropertyPackage& package, std::size_t compound, double temperature,
                               double vaporFraction) {
    return package.model().atTemperature(temperature, {package::Quantity::vaporFraction, vaporFraction},
                                         alone(package, compound));
}

double vaporPressure(const PropertyPackage& package, std::size_t compound, double temperature) {
    return saturated(package, compound, temperature, 0).pressure;
}

double heatOfVaporization(const PropertyPackage& package, std::size_t compound, double temperature) {
    return enthalpy(package.model(), saturated(package, compound, temperature, 1)) -
           enthalpy(package.model(), saturated(package, compound, temperature, 0));
}

double volumeOfLiquid(const PropertyPackage& package, std::size_t compound, double temperature) {
    return volume(package.model(), saturated(package, compound, temperature, 0));
}

const TemperatureProperty temperatureProperties[] = {
    {"idealGasHeatCapacity", false, idealGas<&IdealGas::heatCapacity>},
    {"idealGasEnthalpy", false, idealGas<&IdealGas::enthalpy>},
    {"idealGasEntropy", false, idealGas<&IdealGas::entropy>},
    {"vaporPressure", true, vaporPressure},
    {"heatOfVaporization", true, heatOfVaporization},
    {"volumeOfLiquid", true, volumeOfLiquid},
};

struct PressureProperty {
    const char* identifier;
};

const PressureProperty pressureProperties[] = {{"boilingPointTemperature"}};

template <class Rows> std::vector<std::string> identifiers(const Rows& rows) {
    std::vector<std::string> result;
    for (const auto& row : rows) result.emplace_back(row.identifier);
    return result;
}

template <class Rows> const auto& find(const Rows& rows, COBIA::CapeTextView identifier, const char* kind) {
    for (const auto& row : rows) {
        if (matches(identifier, row.identifier)) return row;
    }
    throw COBIA::StringException() << "unknown " << kind << " '" << COBIA::toUtf8(identifier) << "'";
}

}  // namespace

std::vector<std::string> compoundConstantNames() { return identifiers(constants); }

ValueObject::Content compoundConstant(const Compound& compound, COBIA::CapeTextView identifier) {
    const auto value = find(constants, identifier, "compound constant").of(compound);
    if (const auto* real = std::get_if<double>(&value); real && std::isnan(*real)) return {};
    if (const auto* text = std::get_if<std::string>(&value); text && text->empty()) return {};
    return value;
}

std::vector<std::string> temperaturePropertyNames() { return identifiers(temperatureProperties); }

std::optional<double> temperatureProperty(const PropertyPackage& package, std::size_t compound,
                                          COBIA::CapeTextView identifier, double temperature) {
    const auto& row = find(temperatureProperties, identifier, "temperature-dependent compound property");
    if (!std::isfinite(temperature) || temperature <= 0) {
        throw COBIA::StringException()
            << "temperature " << temperature << " K for '" << row.identifier << "' is not a positive number";
    }
    if (row.endsAtCriticalPoint && temperature >= package.compounds()[compound].criticalTemperature)
        return {};
    return row.of(package, compound, temperature);
}

std::vector<std::string> pressurePropertyNames() { return identifiers(pressureProperties); }

std::optional<double> pressureProperty(const PropertyPackage& package, std::size_t compound,
                                       COBIA::CapeTextView identifier, double pressure) {
    const auto& row = find(pressureProperties, identifier, "pressure-dependent compound property");
    if (!std::isfinite(pressure) || pressure <= 0) {
        throw COBIA::StringException()
            << "pressure " << pressure << " Pa for '" << row.identifier << "' is not a positive number";
    }
    if (pressure >= package.compounds()[compound].criticalPressure) return {};
    return package.model()
        .atPressure(pressure, {package::Quantity::vaporFraction, 0}, alone(package, compound))
        .temperature;
}

}  // namespace orvane::host
