#include "host/ResultTables.h"

#include "host/Table.h"

#include <cmath>
#include <fmt/format.h>
#include <functional>

namespace orvane::host {
namespace {

constexpr std::string_view unknown = "-";

/// Seven significant digits: what an equation of state is good for, and enough to see a balance close.
std::string number(double value) {
    return std::isnan(value) ? std::string(unknown) : fmt::format("{:.7g}", value);
}

std::string shown(const ParameterValue& value) {
    if (const auto* real = std::get_if<double>(&value)) return number(*real);
    if (const auto* integer = std::get_if<std::int32_t>(&value)) return std::to_string(*integer);
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? "true" : "false";
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* reals = std::get_if<std::vector<double>>(&value)) {
        std::string result;
        for (const double element : *reals) result += (result.empty() ? "" : ", ") + number(element);
        return "[" + result + "]";
    }
    return std::string(unknown);
}

std::string streamTable(const RunResult& result) {
    Table table;
    const auto row = [&](std::string heading, const std::function<std::string(const StreamResult&)>& cell) {
        std::vector<std::string> cells{std::move(heading)};
        for (const StreamResult& stream : result.streams) cells.push_back(cell(stream));
        table.row(std::move(cells));
    };
    row("Streams", [](const auto& stream) { return stream.port; });
    row("  Temperature [K]", [](const auto& stream) { return number(stream.temperature); });
    row("  Pressure [Pa]", [](const auto& stream) { return number(stream.pressure); });
    row("  Flow rate [mol/s]", [](const auto& stream) { return number(stream.flowRate); });
    row("  Vapour fraction [mol/mol]", [](const auto& stream) { return number(stream.vaporFraction); });
    row("  Enthalpy [J/mol]", [](const auto& stream) { return number(stream.enthalpy); });
    row("  Entropy [J/mol/K]", [](const auto& stream) { return number(stream.entropy); });
    row("  Phases", [](const auto& stream) {
        std::string labels;
        for (const StreamPhase& phase : stream.phases) labels += (labels.empty() ? "" : "+") + phase.label;
        return labels.empty() ? std::string(unknown) : labels;
    });
    table.row({"  Composition [mol/mol]"});
    for (std::size_t i = 0; i < result.compounds.size(); ++i) {
        row("    " + result.compounds[i], [i](const auto& stream) {
            return stream.composition.empty() ? std::string(unknown) : number(stream.composition[i]);
        });
    }
    return table.text();
}

std::string parameterTable(const RunResult& result) {
    Table table;
    table.row({"Parameters"});
    for (const ParameterResult& parameter : result.parameters) {
        table.row({fmt::format("  {}{}{}", parameter.name,
                               parameter.unit.empty() ? "" : " [" + parameter.unit + "]",
                               parameter.isInput ? "" : " (output)"),
                   shown(parameter.value)});
    }
    return table.text();
}

std::string closureTable(const Closure& closure) {
    Table table;
    const auto row = [&](const std::string& heading, const Balance& balance) {
        table.row({heading, number(balance.in), number(balance.out),
                   fmt::format("{:.2e}", balance.difference()),
                   fmt::format("{:.1e}", std::abs(balance.relative()))});
    };
    table.row({"Balances", "In", "Out", "Difference", "Relative"});
    for (const Balance& balance : closure.compounds) row(fmt::format("  {} [mol/s]", balance.name), balance);
    row("  energy [W]", closure.energy);
    std::string text = table.text();
    if (!closure.suppliedBy.empty()) {
        text += fmt::format("    of the energy in, supplied by '{}': {} W\n",
                            fmt::join(closure.suppliedBy, "', '"), number(closure.supplied));
    }
    return text;
}

}  // namespace

std::string resultTables(const RunResult& result, const std::optional<Closure>& closure) {
    std::string text;
    const auto add = [&](const std::string& part) { text += (text.empty() ? "" : "\n") + part; };
    if (!result.streams.empty()) add(streamTable(result));
    if (!result.parameters.empty()) add(parameterTable(result));
    if (closure) add(closureTable(*closure));
    return text;
}

}  // namespace orvane::host
