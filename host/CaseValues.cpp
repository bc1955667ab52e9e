#include "host/CaseValues.h"

#include "host/UnitText.h"

#include <fmt/format.h>

namespace orvane::host {
namespace {

std::optional<double> numberIn(const CaseToml& toml, const toml::table& in, const char* key) {
    const auto* node = in.get(key);
    return node ? std::optional(toml.number(*node, key)) : std::nullopt;
}

/// A value below the least one is refused with its line.
std::optional<double> numberIn(const CaseToml& toml, const toml::table& in, const char* key, double least,
                               const char* unit) {
    const auto value = numberIn(toml, in, key);
    if (value && *value < least) {
        toml.fail(lineOf(*in.get(key)),
                  fmt::format("'{}' is {}, which is negative; it is in {}", key, *value, unit));
    }
    return value;
}

std::vector<double> readDimension(const CaseToml& toml, const toml::node& node) {
    if (const auto* unit = node.as_string()) {
        if (auto exponents = exponentsOf(unit->get())) return *exponents;
        toml.fail(
            lineOf(node),
            fmt::format("unknown unit '{}' of 'dimension'; write a unit such as \"K\" or \"mol/s\", or the "
                        "exponents of m, kg, s, A, K, mol, cd, rad: [0, 0, 0, 0, 1]",
                        unit->get()));
    }
    std::vector<double> exponents;
    for (const auto& element : toml.array(node, "dimension"))
        exponents.push_back(toml.number(element, "dimension"));
    if (exponents.size() > 9) {
        toml.fail(lineOf(node), fmt::format("'dimension' has {} exponents; there are eight base units, and a "
                                            "ninth entry of 1 for a difference",
                                            exponents.size()));
    }
    return exponents;
}

}  // namespace

CaseEnergy readEnergy(const CaseToml& toml, const std::string& port, int line, const toml::table& in) {
    const std::string where = "energy." + port;
    toml.checkKeys(in, where, {"work", "temperature_low", "temperature_high", "axis_frequency"});
    CaseEnergy energy{port,
                      line,
                      numberIn(toml, in, "work"),
                      numberIn(toml, in, "temperature_low", 0, "K"),
                      numberIn(toml, in, "temperature_high", 0, "K"),
                      numberIn(toml, in, "axis_frequency", 0, "1/s")};
    if (energy.temperatureLow.has_value() != energy.temperatureHigh.has_value()) {
        toml.fail(line, fmt::format("[{}] has '{}' alone; give both temperature_low and temperature_high",
                                    where, energy.temperatureLow ? "temperature_low" : "temperature_high"));
    }
    if (energy.temperatureLow && *energy.temperatureLow > *energy.temperatureHigh) {
        toml.fail(lineOf(*in.get("temperature_low")),
                  fmt::format("'temperature_low' is {} K, above 'temperature_high' of {} K",
                              *energy.temperatureLow, *energy.temperatureHigh));
    }
    return energy;
}

CaseInformation readInformation(const CaseToml& toml, const std::string& port, int line,
                                const toml::table& in) {
    toml.checkKeys(in, "information." + port, {"value", "name", "dimension"});
    CaseInformation information{port, line, numberIn(toml, in, "value"), std::nullopt, std::nullopt};
    if (const auto* name = in.get("name")) information.name = toml.text(*name, "name");
    if (const auto* dimension = in.get("dimension"))
        information.dimensionality = readDimension(toml, *dimension);
    return information;
}

}  // namespace orvane::host
