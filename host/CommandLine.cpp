#include "host/CommandLine.h"

#include "host/CompoundsCommand.h"
#include "host/DoctorCommand.h"
#include "host/ExitCode.h"
#include "host/InfoCommand.h"
#include "host/NewCommand.h"
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

void addModule(CLI::App& command, std::optional<std::filesystem::path>& module) {
    addFile(command, "--module", module, "The unit operation's module, in place of the one beside orvane");
}

/// What every command that runs a case takes.
void addCase(CLI::App& command, RunOptions& options) {
    addFile(command, "case", options.caseFile, "Case file (TOML)")->type_name("CASE.toml")->required();
    command
        .add_option("--set", options.settings,
                    "Set a parameter of the unit, as \"Heat Duty=5e4\"; repeatable")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false)
        ->take_all();
    addFile(command, "--load", options.load,
            "Start from a saved state; what the case gives comes on top of it");
    command.add_option("--timeout", options.timeout, "End the run after this time, with exit code 124")
        ->type_name("SECONDS")
        ->check(CLI::PositiveNumber);
    addModule(command, options.module);
}

void addJson(CLI::App& command, RunOptions& options) {
    command
        .add_option("--json", options.json, "Write the result as JSON to a file, or to standard output for -")
        ->type_name("FILE");
}

void addImageSize(CLI::App& command, std::vector<int>& size) {
    command.add_option("--image-size", size, "Pixels of images; 1024 640 without it")
        ->type_name("WIDTH HEIGHT")
        ->expected(2)
        ->check(CLI::PositiveNumber);
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
    std::vector<int> imageSize;
    CLI::App* run =
        app.add_subcommand("run", "Calculate a case and show its streams, parameters and balances");
    addCase(*run, options);
    addJson(*run, options);
    run->add_option("--report", options.reports, "Show a report of the unit, too; repeatable")
        ->type_name("NAME")
        ->allow_extra_args(false)
        ->take_all();
    run->add_option("--image", options.images, "Have the unit draw an image into a file; repeatable")
        ->type_name("NAME=FILE")
        ->allow_extra_args(false)
        ->take_all();
    addImageSize(*run, imageSize);
    addFile(*run, "--save", options.save, "Write the unit's state to a file when the run succeeded");
    run->add_option("--repeat", options.repeat, "Calculate this many times in one process")
        ->type_name("N")
        ->check(CLI::PositiveNumber);

    CLI::App* validate =
        app.add_subcommand("validate", "Connect a case's streams and ask the unit whether it is valid");
    addCase(*validate, options);
    addJson(*validate, options);

    std::string reportName = "Last Calculation";
    CLI::App* report = app.add_subcommand("report", "Calculate a case and show one report of the unit");
    addCase(*report, options);
    report->add_option("name", reportName, "Name of the report; `orvane info` lists them")
        ->capture_default_str();

    ImageRequest drawing;
    CLI::App* image = app.add_subcommand("image", "Calculate a case and have the unit draw one image");
    addCase(*image, options);
    image->add_option("name", drawing.name, "Name of the image; `orvane info` lists them")->required();
    addFile(*image, "file", drawing.file, "PNG file to write")->required();
    addImageSize(*image, imageSize);

    InfoOptions infoOptions;
    CLI::App* info =
        app.add_subcommand("info", "Show what a script declares: ports, parameters, reports, images");
    addFile(*info, "file", infoOptions.file, "Case file or script")
        ->type_name("CASE.toml|SCRIPT.py")
        ->required();
    info->add_flag("--json", infoOptions.json, "As JSON");
    addModule(*info, infoOptions.module);

    std::filesystem::path folder;
    CLI::App* fresh =
        app.add_subcommand("new", "Write a commented case to start from, which runs as it stands");
    addFile(*fresh, "folder", folder, "Folder to write it to")->type_name("DIR")->required();

    std::string filter;
    CLI::App* compounds = app.add_subcommand("compounds", "List the compounds that a case can name");
    compounds->add_option("filter", filter, "Part of a name, formula or CAS number");

    DoctorOptions doctorOptions;
    CLI::App* doctor = app.add_subcommand(
        "doctor", "Tell which module, which Python and which search path are used, and what clashes there");
    doctor->add_flag("--json", doctorOptions.json, "As JSON");
    addModule(*doctor, doctorOptions.module);
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
    if (info->parsed()) return infoCommand(infoOptions);
    if (fresh->parsed()) return newCommand(folder);
    if (doctor->parsed()) return doctorCommand(doctorOptions);
    if (!imageSize.empty()) options.imageSize = {imageSize[0], imageSize[1]};
    if (validate->parsed()) options.show = Show::verdict;
    if (report->parsed()) {
        options.show = Show::report;
        options.reports = {reportName};
    }
    if (image->parsed()) {
        options.show = Show::nothing;
        options.drawings = {drawing};
    }
    return runCommand(options);
}

}  // namespace orvane::host
