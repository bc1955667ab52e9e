#include "host/ResultTables.h"

#include "host/Table.h"
#include "host/ValueText.h"

#include <cmath>
#include <fmt/format.h>
#include <functional>

namespace orvane::host {
namespace {

std::string streamTable(const RunResult& result) {
    Table table;
    const auto row = [&](std::string heading, const std::function<std::string(const StreamResult&)>& cell) {
        std::vector<std::string> cells{std::move(heading)};
        for (const StreamResult& stream : result.streams) cells.push_back(cell(stream));
        table.row(std::move(cells));
    };
    row("Streams", [](const auto& stream) { return stream.port; });
    row("  Temperature [K]", [](const auto& stream) { return numberText(stream.temperature); });
    row("  Pressure [Pa]", [](const auto& stream) { return numberText(stream.pressure); });
    row("  Flow rate [mol/s]", [](const auto& stream) { return numberText(stream.flowRate); });
    row("  Vapour fraction [mol/mol]", [](const auto& stream) { return numberText(stream.vaporFraction); });
    row("  Enthalpy [J/mol]", [](const auto& stream) { return numberText(stream.enthalpy); });
    row("  Entropy [J/mol/K]", [](const auto& stream) { return numberText(stream.entropy); });
    row("  Phases", [](const auto& stream) {
        std::string labels;
        for (const StreamPhase& phase : stream.phases) labels += (labels.empty() ? "" : "+") + phase.label;
        return labels.empty() ? std::string(unknownText) : labels;
    });
    table.row({"  Composition [mol/mol]"});
    for (std::size_t i = 0; i < result.compounds.size(); ++i) {
        row("    " + result.compounds[i], [i](const auto& stream) {
            return stream.composition.empty() ? std::string(unknownText) : numberText(stream.composition[i]);
        });
    }
    return table.text();
}

std::string energyTable(const RunResult& result) {
    Table table;
    const auto row = [&](std::string heading, double EnergyResult::*value, bool always) {
        bool any = always;
        std::vector<std::string> cells{std::move(heading)};
        for (const EnergyResult& energy : result.energies) {
            cells.push_back(numberText(energy.*value));
            any = any || !std::isnan(energy.*value);
        }
        if (any) table.row(std::move(cells));
    };
    std::vector<std::string> ports{"Energy"};
    for (const EnergyResult& energy : result.energies) ports.push_back(energy.port);
    table.row(std::move(ports));
    row("  Work [W]", &EnergyResult::work, true);
    row("  Lower temperature [K]", &EnergyResult::temperatureLow, false);
    row("  Upper temperature [K]", &EnergyResult::temperatureHigh, false);
    row("  Axis frequency [1/s]", &EnergyResult::axisFrequency, false);
    return table.text();
}

std::string informationTable(const RunResult& result) {
    Table table;
    table.row({"Information"});
    for (const InformationResult& of : result.informations) {
        table.row({fmt::format("  {}: {}{}", of.port, of.name, of.unit.empty() ? "" : " [" + of.unit + "]"),
                   numberText(of.value)});
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
                   valueText(parameter.value)});
    }
    return table.text();
}

std::string closureTable(const Closure& closure) {
    Table table;
    const auto row = [&](const std::string& heading, const Balance& balance) {
        table.row({heading, numberText(balance.in), numberText(balance.out),
                   fmt::format("{:.2e}", balance.difference()),
                   fmt::format("{:.1e}", std::abs(balance.relative()))});
    };
    table.row({"Balances", "In", "Out", "Difference", "Relative"});
    for (const Balance& balance : closure.compounds) row(fmt::format("  {} [mol/s]", balance.name), balance);
    row("  energy [W]", closure.energy);
    std::string text = table.text();
    if (!closure.suppliedBy.empty()) {
        text += fmt::format("    of the energy in, supplied by '{}': {} W\n",
                            fmt::join(closure.suppliedBy, "', '"), numberText(closure.supplied));
    }
    return text;
}

}  // namespace

std::string resultTables(const RunResult& result, const std::optional<Closure>& closure) {
    std::string text;
    const auto add = [&](const std::string& part) { text += (text.empty() ? "" : "\n") + part; };
    if (!result.streams.empty()) add(streamTable(result));
    if (!result.energies.empty()) add(energyTable(result));
    if (!result.informations.empty()) add(informationTable(result));
    if (!result.parameters.empty()) add(parameterTable(result));
    if (closure) add(closureTable(*closure));
    return text;
}

}  // namespace orvane::host
