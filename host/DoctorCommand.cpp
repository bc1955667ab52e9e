#include "host/DoctorCommand.h"

#include "host/CaseFile.h"
#include "host/ExitCode.h"
#include "host/Path.h"
#include "host/Table.h"
#include "host/UnitSession.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

extern "C" {
extern const unsigned char doctorScript[], doctorScript_end[];
}

namespace orvane::host {
namespace {

using Json = nlohmann::ordered_json;

std::string script() {
    return {reinterpret_cast<const char*>(doctorScript), reinterpret_cast<const char*>(doctorScript_end)};
}

/// What the script reports, and what the process knows besides.
Json examine(const DoctorOptions& options) {
    const ModuleLoader module(options.module);
    const auto context = COBIA::makeObject<SimulationContext>();
    UnitSession session(module, context);
    session.loadScript(script());
    session.ports();  // throws when the interpreter did not start
    session.calculate();
    Json found = Json::parse(session.reportText("doctor"));
    found["module"] = textOf(module.file());
    found["libraries"] = pythonLibraries();
    return found;
}

/// One sentence for each thing that is likely to surprise.
std::vector<std::string> clashes(const Json& found) {
    std::vector<std::string> result;
    if (found["libraries"].size() > 1) {
        result.push_back(fmt::format("several Python libraries are loaded in the process: {}",
                                     fmt::join(found["libraries"].get<std::vector<std::string>>(), ", ")));
    }
    if (found["environment"].contains("PYTHONHOME"))
        result.push_back(
            "PYTHONHOME is set, and has no effect: the search path is that of the library above");
    const Json& environment = found["environment"];
    if (environment.contains("VIRTUAL_ENV") && std::ranges::none_of(found["path"], [](const Json& entry) {
            return entry["origin"] == "VIRTUAL_ENV";
        })) {
        result.push_back(
            fmt::format("VIRTUAL_ENV names '{}', which is no virtual environment of Python 3.14: its modules "
                        "are not found",
                        environment["VIRTUAL_ENV"].get<std::string>()));
    }
    for (const Json& entry : found["path"]) {
        if (entry["state"] == "missing")
            result.push_back(fmt::format("'{}' of {} does not exist", entry["path"].get<std::string>(),
                                         entry["origin"].get<std::string>()));
    }
    for (const Json& hidden : found["hidden"]) {
        result.push_back(fmt::format("module '{}' in '{}' is not found: the one in '{}' comes first",
                                     hidden[0].get<std::string>(), hidden[2].get<std::string>(),
                                     hidden[1].get<std::string>()));
    }
    for (const Json& file : found["foreign"]) {
        result.push_back(fmt::format("'{}' was compiled for another version of Python and cannot be imported",
                                     file.get<std::string>()));
    }
    return result;
}

void show(const Json& found, const std::vector<std::string>& warnings) {
    Table table(2);
    table.row({"Module", found["module"]});
    for (const Json& library : found["libraries"]) table.row({"Python library", library});
    table.row({"Python version", found["version"]});
    fmt::print("{}", table.text());

    Table path(3);
    path.row({"Search path", "", "From"});
    for (const Json& entry : found["path"])
        path.row({"  " + entry["path"].get<std::string>(), entry["state"], entry["origin"]});
    fmt::print("\n{}", path.text());

    Table packages(2);
    packages.row({"Packages"});
    for (const auto& [name, version] : found["packages"].items())
        packages.row({"  " + name, version.is_null() ? "not installed" : version.get<std::string>()});
    fmt::print("\n{}\nClashes\n", packages.text());
    if (warnings.empty()) fmt::print("  none\n");
    for (const std::string& warning : warnings) fmt::print("  {}\n", warning);
}

int fail(int code, const std::exception& error) {
    fmt::print(stderr, "error: {}\n", error.what());
    return code;
}

}  // namespace

int doctorCommand(const DoctorOptions& options) {
    try {
        std::optional<ReservedOutput> output;
        if (options.json) output.emplace();
        Json found = examine(options);
        const std::vector<std::string> warnings = clashes(found);
        if (output) {
            found["clashes"] = warnings;
            output->write(found.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
        } else {
            show(found, warnings);
        }
        return exitSuccess;
    }
    catch (const ModuleError& error) {
        return fail(exitNotLoaded, error);
    }
    catch (const std::exception& error) {
        return fail(exitUnitFailed, error);
    }
}

}  // namespace orvane::host
