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
    double IdealGas::*of;
};

const TemperatureProperty temperatureProperties[] = {
    {"idealGasHeatCapacity", &IdealGas::heatCapacity},
    {"idealGasEnthalpy", &IdealGas::enthalpy},
    {"idealGasEntropy", &IdealGas::entropy},
};

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

double temperatureProperty(const Compound& compound, COBIA::CapeTextView identifier, double temperature) {
    const auto& row = find(temperatureProperties, identifier, "temperature-dependent compound property");
    if (!std::isfinite(temperature) || temperature <= 0) {
        throw COBIA::StringException()
            << "temperature " << temperature << " K for '" << row.identifier << "' is not a positive number";
    }
    return IdealGas(compound.heatCapacity, temperature).*row.of;
}

}  // namespace orvane::host
