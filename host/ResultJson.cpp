#include "host/ResultJson.h"

#include "host/ParameterJson.h"

#include <cmath>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace orvane::host {
namespace {

using Json = nlohmann::ordered_json;

/// Texts that scripts print may be anything; what is no UTF-8 becomes U+FFFD.
std::string jsonText(const Json& text) { return text.dump(-1, ' ', false, Json::error_handler_t::replace); }

std::string real(double value) {
    if (!std::isfinite(value)) return "null";
    std::string text = fmt::format("{:.17g}", value);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    return text;
}

bool isFlat(const Json& array) {
    for (const Json& element : array) {
        if (element.is_structured()) return false;
    }
    return true;
}

/// The library writes reals in as few digits as bring them back; ours have 17, so the tree is walked here.
void write(std::string& out, const Json& value, std::size_t depth) {
    const std::string indentation = "\n" + std::string(2 * depth + 2, ' ');
    if (value.is_number_float()) {
        out += real(value.get<double>());
    } else if (value.is_array() && isFlat(value)) {
        out += '[';
        for (std::size_t i = 0; i < value.size(); ++i) {
            if (i > 0) out += ", ";
            write(out, value[i], depth + 1);
        }
        out += ']';
    } else if (value.is_object() && !value.empty()) {
        out += '{';
        bool first = true;
        for (const auto& [key, element] : value.items()) {
            out += (first ? "" : ",") + indentation + jsonText(key) + ": ";
            write(out, element, depth + 1);
            first = false;
        }
        out += "\n" + std::string(2 * depth, ' ') + '}';
    } else {
        out += jsonText(value);
    }
}

Json composition(const RunResult& result, const std::vector<double>& fractions) {
    Json object = Json::object();
    for (std::size_t i = 0; i < result.compounds.size(); ++i) {
        object[result.compounds[i]] = i < fractions.size() ? fractions[i] : notKnown;
    }
    return object;
}

Json stream(const RunResult& result, const StreamResult& of) {
    Json phases = Json::object();
    for (const StreamPhase& phase : of.phases) {
        phases[phase.label] = {{"fraction", phase.fraction},
                               {"composition", composition(result, phase.composition)}};
    }
    return {{"temperature", of.temperature},
            {"pressure", of.pressure},
            {"flow_rate", of.flowRate},
            {"composition", composition(result, of.composition)},
            {"vapor_fraction", of.vaporFraction},
            {"enthalpy", of.enthalpy},
            {"entropy", of.entropy},
            {"phases", std::move(phases)}};
}

}  // namespace

std::string resultJson(const RunResult& result) {
    Json parameters = Json::object();
    for (const ParameterResult& of : result.parameters) parameters[of.name] = parameterJson(of.value);
    Json streams = Json::object();
    for (const StreamResult& of : result.streams) streams[of.port] = stream(result, of);

    Json energies = Json::object();
    for (const EnergyResult& of : result.energies) {
        energies[of.port] = {{"work", of.work},
                             {"temperature_low", of.temperatureLow},
                             {"temperature_high", of.temperatureHigh},
                             {"axis_frequency", of.axisFrequency}};
    }
    Json informations = Json::object();
    for (const InformationResult& of : result.informations)
        informations[of.port] = {{"name", of.name}, {"value", of.value}, {"unit", of.unit}};
    Json reports = Json::object();
    for (const auto& [name, report] : result.reports) reports[name] = report;

    Json root = Json::object();
    root["valid"] = result.valid ? Json(*result.valid) : Json(nullptr);
    root["message"] = result.message;
    root["success"] = result.success;
    root["error"] = result.error;
    root["output"] = result.output;
    root["warnings"] = result.warnings;
    root["parameters"] = std::move(parameters);
    root["streams"] = std::move(streams);
    root["energy"] = std::move(energies);
    root["information"] = std::move(informations);
    root["reports"] = std::move(reports);
    root["elapsed_seconds"] = result.elapsedSeconds;

    std::string text;
    write(text, root, 0);
    return text + "\n";
}

}  // namespace orvane::host
