// Carries a case out on the unit: streams made and connected, parameters set, validation, calculation,
// results.
// Not here: reading the case (CaseReader), showing the results.
#pragma once

#include "host/CaseFile.h"
#include "host/CaseStreams.h"
#include "host/Closure.h"
#include "host/RunResult.h"
#include "host/UnitSession.h"

#include <optional>
#include <string>
#include <vector>

namespace orvane::host {

/// The steps in their order: prepare, validate, calculate. Each puts what it finds into result().
class CaseRun {
public:
    /// Gives the unit its script, or a saved state, in which the case's script takes the place of the saved one. Throws
    /// cape_open_error. `settings` come after the case's own parameters, and these after the saved ones.
    CaseRun(const CaseFile& caseFile, std::vector<CaseParameter> settings, UnitSession& session,
            COBIA::Ref<SimulationContext> context, const COBIA::Ref<PersistStore>& state = nullptr);

    /// Makes and connects the streams and sets the parameters. Throws CaseError for what does not fit the
    /// unit, and UnitInvalid when the script's Configure failed and left nothing to fit.
    void prepare();

    /// Whether the unit is valid.
    bool validate();

    /// One calculation, timed. Throws cape_open_error when the unit fails.
    void calculate();

    /// What is known now: streams, parameters, messages and, after a success, what does not close. `error` is
    /// the unit's own error text, which its output ends with. Throws cape_open_error.
    void collect(const std::string& error);
    const std::optional<Closure>& closure() const { return closure_; }

    RunResult& result() { return result_; }

private:
    void setParameters();
    /// Starts the messages of a calculation; those before the first one are kept.
    void startMessages();

    const CaseFile& case_;
    std::vector<CaseParameter> settings_;
    UnitSession& session_;
    COBIA::Ref<SimulationContext> context_;
    CaseStreams streams_;
    std::vector<UnitParameter> parameters_;
    std::vector<std::string> messages_;  // of the unit, before its first calculation
    bool calculated_ = false;
    RunResult result_;
    std::optional<Closure> closure_;
};

/// The unit says that it is not valid. The message is the unit's.
class UnitInvalid : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace orvane::host
