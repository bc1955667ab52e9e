#include "host/InfoCommand.h"

#include "host/CaseReader.h"
#include "host/ExitCode.h"
#include "host/ParameterInfo.h"
#include "host/ParameterJson.h"
#include "host/Path.h"
#include "host/Table.h"
#include "host/TextFile.h"
#include "host/UnitSession.h"
#include "host/ValueText.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace orvane::host {
namespace {

using Json = nlohmann::ordered_json;

struct UnitInfo {
    std::vector<UnitPort> ports;
    std::vector<ParameterInfo> parameters;
    std::vector<UnitReport> reports;
    std::vector<std::string> warnings;
};

/// The script to look at; none for a case with the built-in one.
std::optional<std::string> scriptOf(const std::filesystem::path& file) {
    if (file.extension() == ".toml") return readCase(file).script;
    try {
        return readScript(file);
    }
    catch (const std::runtime_error& error) {
        throw CaseError(fmt::format("{}: the script cannot be read: {}", textOf(file), error.what()));
    }
}

UnitInfo read(const InfoOptions& options) {
    const auto script = scriptOf(options.file);
    const ModuleLoader module(options.module);
    const auto context = COBIA::makeObject<SimulationContext>();
    UnitSession session(module, context);
    if (script) session.loadScript(*script);
    UnitInfo info;
    info.ports = session.ports();
    // The unit tells of a Configure that failed when it is asked to validate; of what is not connected it may tell too.
    const COBIA::Verdict verdict = session.validate();
    if (verdict.message.starts_with("Configure() failed")) throw COBIA::cape_open_error(verdict.message);
    for (const UnitParameter& parameter : session.parameters())
        info.parameters.push_back(parameterInfo(parameter));
    info.reports = session.reports();
    info.warnings = context->messages();
    return info;
}

const char* directionOf(const UnitPort& port) { return port.isFeed() ? "feed" : "product"; }

std::string optionsText(const ParameterInfo& parameter) {
    return parameter.options.empty() ? "" : fmt::format("one of {}", fmt::join(parameter.options, ", "));
}

void show(const UnitInfo& info) {
    Table ports(4);
    ports.row({"Ports", "Carries", "Direction", "Description"});
    for (const UnitPort& port : info.ports)
        ports.row({"  " + port.name(), port.typeName(), directionOf(port), port.description()});
    fmt::print("{}", ports.text());

    Table parameters(3);
    parameters.row({"Parameters", "Type", "Mode", "Default", "Minimum", "Maximum", ""});
    for (const ParameterInfo& parameter : info.parameters) {
        parameters.row(
            {fmt::format("  {}{}", parameter.name, parameter.unit.empty() ? "" : " [" + parameter.unit + "]"),
             parameter.type, parameter.isInput ? "input" : "output", valueText(parameter.standard),
             valueText(parameter.lowerBound), valueText(parameter.upperBound), optionsText(parameter)});
    }
    if (!info.parameters.empty()) fmt::print("\n{}", parameters.text());

    for (const bool images : {false, true}) {
        std::string list;
        for (const UnitReport& report : info.reports) {
            if (report.isImage() == images) list += "  " + report.name + "\n";
        }
        if (!list.empty()) fmt::print("\n{}\n{}", images ? "Images" : "Reports", list);
    }
}

std::string json(const UnitInfo& info) {
    Json root = {{"ports", Json::array()},
                 {"parameters", Json::array()},
                 {"reports", Json::array()},
                 {"images", Json::array()},
                 {"warnings", info.warnings}};
    for (const UnitPort& port : info.ports) {
        root["ports"].push_back({{"name", port.name()},
                                 {"type", port.typeName()},
                                 {"direction", directionOf(port)},
                                 {"description", port.description()}});
    }
    for (const ParameterInfo& parameter : info.parameters) {
        root["parameters"].push_back({{"name", parameter.name},
                                      {"type", parameter.type},
                                      {"unit", parameter.unit},
                                      {"mode", parameter.isInput ? "input" : "output"},
                                      {"default", parameterJson(parameter.standard)},
                                      {"minimum", parameterJson(parameter.lowerBound)},
                                      {"maximum", parameterJson(parameter.upperBound)},
                                      {"value", parameterJson(parameter.value)},
                                      {"options", parameter.options},
                                      {"description", parameter.description}});
    }
    for (const UnitReport& report : info.reports)
        root[report.isImage() ? "images" : "reports"].push_back(report.name);
    return root.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

int fail(int code, const std::exception& error) {
    fmt::print(stderr, "error: {}\n", error.what());
    return code;
}

}  // namespace

int infoCommand(const InfoOptions& options) {
    try {
        std::optional<ReservedOutput> output;
        if (options.json) output.emplace();
        const UnitInfo info = read(options);
        if (output)
            output->write(json(info));
        else
            show(info);
        for (const std::string& warning : info.warnings) fmt::print(stderr, "warning: {}\n", warning);
        return exitSuccess;
    }
    catch (const CaseError& error) {
        return fail(exitWrongUse, error);
    }
    catch (const ModuleError& error) {
        return fail(exitNotLoaded, error);
    }
    catch (const std::exception& error) {
        return fail(exitUnitFailed, error);
    }
}

}  // namespace orvane::host
