#include "host/RunCommand.h"

#include "host/CalculationReport.h"
#include "host/CaseReader.h"
#include "host/CaseRun.h"
#include "host/Closure.h"
#include "host/ExitCode.h"
#include "host/ModuleLoader.h"
#include "host/Path.h"
#include "host/ResultJson.h"
#include "host/ResultTables.h"
#include "host/StateFile.h"
#include "host/System.h"
#include "host/Watchdog.h"

#include <cstdio>
#include <fmt/format.h>

namespace orvane::host {
namespace {

class Command {
public:
    explicit Command(const RunOptions& options) : options_(options) {
        if (jsonOnly()) output_.emplace();
    }

    int run() {
        try {
            carryOut();
        }
        catch (const CaseError& error) {
            fail(exitWrongUse, error.what());
        }
        catch (const ModuleError& error) {
            fail(exitNotLoaded, error.what());
        }
        catch (const std::exception& error) {
            fail(exitUnitFailed, error.what());
        }
        judgeStop();
        watchdog_.reset();
        return show();
    }

private:
    bool jsonOnly() const { return options_.json == "-"; }

    void fail(int code, const std::string& message) {
        exitCode_ = code;
        result_.success = false;
        result_.error = message;
    }

    void carryOut() {
        const CaseFile caseFile = readCase(options_.caseFile);
        std::vector<CaseParameter> settings;
        for (const std::string& setting : options_.settings) settings.push_back(readSetting(setting));
        std::vector<ImageRequest> images = options_.drawings;
        for (const std::string& image : options_.images) {
            auto [name, file] =
                readAssignment(image, "--image", "NAME=FILE, such as --image Profile=profile.png");
            images.push_back({std::move(name), std::move(file)});
        }
        const ReportRequests requests(options_.reports, std::move(images));
        const auto state = options_.load ? loadStateFile(*options_.load) : nullptr;
        result_.compounds = caseFile.package->ids();

        // Before the module is loaded: loading, and the script's Configure, may be what never ends.
        if (options_.timeout) {
            RunResult known = result_;
            known.error = timeoutText();
            watchdog_.emplace(std::chrono::duration<double>(*options_.timeout),
                              [this, known = std::move(known)] {
                                  say("error", known.error);
                                  writeJson(known);
                              });
        }

        const ModuleLoader module(options_.module);
        const auto context = COBIA::makeObject<SimulationContext>();
        if (options_.imageSize) context->setImageSize(options_.imageSize->first, options_.imageSize->second);
        UnitSession session(module, context);
        interrupts_.emplace();
        std::optional<CaseRun> run;
        try {
            run.emplace(caseFile, std::move(settings), session, context, state);
        }
        catch (const COBIA::cape_open_error& error) {
            if (!state) throw;
            throw CaseError(
                fmt::format("{}: the unit does not take this state: {}", options_.load->string(),
                            error.code() == COBIA::capeOpenError
                                ? error.directText()
                                : fmt::format("item '{}': {}", state->failedItem(), error.directText())));
        }
        carryOut(*run, session, requests);
        if (exitCode_ == exitSuccess && !stopAsked()) finish(session, *context, requests);
    }

    void carryOut(CaseRun& run, UnitSession& session, const ReportRequests& requests) {
        std::string unitError;
        bool calculated = false;
        try {
            run.prepare();
            if (!run.validate()) throw UnitInvalid(run.result().message);
            requests.check(session);
            if (options_.show != Show::verdict) {
                calculated = true;
                calculate(run);
            }
        }
        catch (const UnitInvalid& error) {
            fail(exitUnitFailed, fmt::format("the unit is not valid: {}", error.what()));
        }
        catch (const COBIA::cape_open_error& error) {
            fail(exitUnitFailed, error.what());
            unitError = error.directText();
        }
        run.collect(unitError);
        if (calculated) requests.collect(session, run.result());
        closure_ = run.closure();
        std::string error = std::move(result_.error);
        result_ = std::move(run.result());
        result_.error = std::move(error);
        result_.success = exitCode_ == exitSuccess;
    }

    /// What is made of a unit whose calculation succeeded.
    void finish(UnitSession& session, SimulationContext& context, const ReportRequests& requests) {
        context.forgetMessages();
        try {
            requests.draw(session);
            if (options_.save) writeWhole(*options_.save, stateText(*session.saveState()));
        }
        catch (const COBIA::cape_open_error& error) {
            fail(exitUnitFailed, error.directText());
        }
        catch (const std::runtime_error& error) {
            fail(exitWrongUse, error.what());
        }
        for (auto& message : context.messages()) result_.warnings.push_back(std::move(message));
    }

    void calculate(CaseRun& run) {
        const bool progress = options_.repeat > 1 && errorIsTerminal();
        double total = 0;
        for (int i = 1; i <= options_.repeat && !stopAsked(); ++i) {
            if (progress) fmt::print(stderr, "\rcalculation {} of {} ", i, options_.repeat);
            run.calculate();
            total += run.result().elapsedSeconds;
        }
        if (progress) fmt::print(stderr, "\n");
        run.result().elapsedSeconds = total / options_.repeat;
    }

    bool timeIsUp() const { return watchdog_ && watchdog_->timeIsUp(); }
    bool interrupted() const { return interrupts_ && interrupts_->interrupted(); }
    bool stopAsked() const { return timeIsUp() || interrupted(); }

    /// A run that was stopped may have failed in any way, or not at all: that it was stopped is what counts.
    void judgeStop() {
        const std::string cause = result_.error.empty() ? "" : ": " + result_.error;
        if (timeIsUp())
            fail(exitTimedOut, timeoutText() + cause);
        else if (interrupted())
            fail(exitInterrupted, "interrupted" + cause);
    }

    std::string timeoutText() const { return fmt::format("timed out after {:g} s", *options_.timeout); }

    /// What there is to show, whatever came of the run; gives the exit code.
    int show() {
        if (!jsonOnly()) showTables();
        for (const std::string& warning : result_.warnings) say("warning", warning);
        if (!result_.error.empty()) say("error", result_.error);
        if (!writeJson(result_) && exitCode_ == exitSuccess) exitCode_ = exitWrongUse;
        return exitCode_;
    }

    void showTables() {
        const bool succeeded = exitCode_ == exitSuccess;
        if (options_.show == Show::tables || options_.show == Show::verdict) {
            if (!result_.output.empty()) fmt::print("{}\n\n", result_.output);
        }
        if (options_.show == Show::verdict && succeeded)
            fmt::print("{}: the unit is valid\n", textOf(options_.caseFile));
        if (options_.show == Show::tables && succeeded) {
            fmt::print("{}", resultTables(result_, closure_));
            if (options_.repeat > 1) {
                fmt::print("\n{} calculations, {:.3g} s each on average\n", options_.repeat,
                           result_.elapsedSeconds);
            }
        }
        for (const auto& [name, text] : result_.reports) {
            if (options_.show == Show::tables) fmt::print("\nReport '{}'\n", name);
            if (options_.show != Show::nothing) fmt::print("{}", endingInLine(plainLineEnds(text)));
        }
        if (std::fflush(stdout) != 0)
            fail(exitWrongUse, "the results could not be written to standard output");
    }

    static std::string endingInLine(std::string text) {
        if (!text.empty() && !text.ends_with('\n')) text += '\n';
        return text;
    }

    static void say(std::string_view kind, std::string_view text) {
        while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
        fmt::print(stderr, "{}: {}\n", kind, text);
    }

    /// Does nothing unless it was asked for. False when the result could not be written, which was said then.
    bool writeJson(const RunResult& result) {
        if (!options_.json) return true;
        try {
            const std::string text = resultJson(result);
            if (jsonOnly())
                output_->write(text);
            else
                writeWhole(pathOf(*options_.json), text);
            return true;
        }
        catch (const std::exception& error) {
            say("error", error.what());
            return false;
        }
    }

    const RunOptions& options_;
    std::optional<ReservedOutput> output_;
    std::optional<Watchdog> watchdog_;
    std::optional<InterruptWatch> interrupts_;
    RunResult result_;
    std::optional<Closure> closure_;
    int exitCode_ = exitSuccess;
};

}  // namespace

int runCommand(const RunOptions& options) {
    try {
        return Command(options).run();
    }
    catch (const std::exception& error) {
        fmt::print(stderr, "error: {}\n", error.what());
        return exitWrongUse;
    }
}

}  // namespace orvane::host
