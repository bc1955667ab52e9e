#include "host/CommandLine.h"

#include "host/CompoundsCommand.h"
#include "host/ExitCode.h"
#include "host/Path.h"
#include "host/RegisterCommand.h"
#include "host/RunCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>

namespace orvane::host {
namespace {

constexpr const char* version = ORVANE_VERSION;

/// Words of the command line are UTF-8, as a path taken from a text is not everywhere.
template <class Path>
CLI::Option* addFile(CLI::App& command, const std::string& name, Path& path, const std::string& description) {
    const auto take = [&path](const std::string& word) { path = pathOf(word); };
    return command.add_option_function<std::string>(name, take, description)->type_name("FILE");
}

void addCase(CLI::App& command, RunOptions& options) {
    addFile(command, "case", options.caseFile, "Case file (TOML)")->type_name("CASE.toml")->required();
    command
        .add_option("--set", options.settings,
                    "Set a parameter of the unit, as \"Heat Duty=5e4\"; repeatable")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false)
        ->take_all();
    command
        .add_option("--json", options.json, "Write the result as JSON to a file, or to standard output for -")
        ->type_name("FILE");
    command.add_option("--timeout", options.timeout, "End the run after this time, with exit code 124")
        ->type_name("SECONDS")
        ->check(CLI::PositiveNumber);
    addFile(command, "--module", options.module,
            "The unit operation's module, in place of the one beside orvane");
}

}  // namespace

int commandLine(int count, const char* const* arguments) {
    CLI::App app("Runs a unit operation scripted in Python, as a process simulator does.", "orvane");
    app.set_version_flag("--version", std::string("orvane ") + version);
    app.require_subcommand(0, 1);  // a word that is no command is then what the error names
    app.footer("Exit codes: 0 success; 1 the unit is invalid or its calculation failed; 2 wrong usage or a "
               "wrong case\n"
               "file; 3 the module or the interpreter could not be loaded; 124 timed out; 130 interrupted.");

    RunOptions options;
    CLI::App* run =
        app.add_subcommand("run", "Calculate a case and show its streams, parameters and balances");
    addCase(*run, options);
    run->add_option("--repeat", options.repeat, "Calculate this many times in one process")
        ->type_name("N")
        ->check(CLI::PositiveNumber);
    CLI::App* validate =
        app.add_subcommand("validate", "Connect a case's streams and ask the unit whether it is valid");
    addCase(*validate, options);
    std::string filter;
    CLI::App* compounds = app.add_subcommand("compounds", "List the compounds that a case can name");
    compounds->add_option("filter", filter, "Part of a name, formula or CAS number");

    RegisterOptions registration;
    CLI::App* registering =
        app.add_subcommand("register", "Make the unit operation known to the COBIA hosts that you run");
    registering->add_flag("--undo", registration.undo, "Take the registration back");
    addFile(*registering, "--library", registration.library,
            "The companion library, in place of the one beside orvane");

    try {
        app.parse(count, arguments);
    }
    catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? exitSuccess : exitWrongUse;  // --help and --version come this way too
    }
    if (app.get_subcommands().empty()) {
        std::cerr << app.help();
        return exitWrongUse;
    }
    if (compounds->parsed()) return compoundsCommand(filter);
    if (registering->parsed()) return registerCommand(registration);
    options.validateOnly = validate->parsed();
    return runCommand(options);
}

}  // namespace orvane::host
