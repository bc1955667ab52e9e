#include "host/CaseRun.h"

#include "cobia/Text.h"
#include "host/CalculationReport.h"
#include "host/NearestName.h"
#include "host/Path.h"

#include <algorithm>
#include <chrono>
#include <fmt/format.h>

namespace orvane::host {
namespace {

template <class Items> auto named(Items& items, const std::string& name) {
    return std::ranges::find_if(
        items, [&](const auto& item) { return COBIA::equalIgnoringCase(item.name(), name); });
}

template <class Items> std::vector<std::string> names(const Items& items) {
    std::vector<std::string> result;
    for (const auto& item : items) result.push_back(item.name());
    return result;
}

}  // namespace

CaseRun::CaseRun(const CaseFile& caseFile, std::vector<CaseParameter> settings, UnitSession& session,
                 COBIA::Ref<SimulationContext> context, const COBIA::Ref<PersistStore>& state)
    : case_(caseFile), settings_(std::move(settings)), session_(session), context_(std::move(context)) {
    result_.unitName = case_.unitName.value_or("");
    result_.compounds = case_.package->ids();
    if (case_.unitName) session_.setName(*case_.unitName);
    if (state && case_.script) state->addString("python", *case_.script);
    if (state)
        session_.loadState(*state);
    else if (case_.script)
        session_.loadScript(*case_.script);
}

void CaseRun::prepare() {
    try {
        streams_.connect(case_, session_);
        setParameters();
    }
    catch (const CaseError&) {
        // A Configure that failed declares nothing, and then nothing in the case fits: its error is the one to show.
        const COBIA::Verdict verdict = session_.validate();
        if (verdict.valid || !verdict.message.starts_with("Configure() failed")) throw;
        result_.valid = false;
        result_.message = verdict.message;
        throw UnitInvalid(verdict.message);
    }
}

void CaseRun::setParameters() {
    parameters_ = session_.parameters();
    const auto set = [&](const CaseParameter& given) {
        const auto parameter = named(parameters_, given.name);
        if (parameter == parameters_.end()) {
            throw CaseError(fmt::format("{}: the unit has no parameter '{}'{}", given.place, given.name,
                                        suggestion(given.name, names(parameters_))));
        }
        parameter->set(given);
    };
    for (const CaseParameter& given : case_.parameters) set(given);
    for (const CaseParameter& given : settings_) set(given);
}

bool CaseRun::validate() {
    const COBIA::Verdict verdict = session_.validate();
    result_.valid = verdict.valid;
    result_.message = verdict.message;
    return verdict.valid;
}

void CaseRun::calculate() {
    result_.success = false;
    startMessages();
    const auto start = std::chrono::steady_clock::now();
    const auto stop = [&] {
        result_.elapsedSeconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    try {
        session_.calculate();
    }
    catch (const COBIA::cape_open_error&) {
        stop();
        throw;
    }
    stop();
    result_.success = true;
}

void CaseRun::startMessages() {
    // Calculation after calculation says the same again: that of the last one is enough.
    if (!std::exchange(calculated_, true)) messages_ = context_->messages();
    context_->forgetMessages();
}

void CaseRun::collect(const std::string& error) {
    result_.warnings = messages_;
    for (auto& message : context_->messages()) result_.warnings.push_back(std::move(message));
    result_.output = printedOutput(session_.lastCalculation().value_or(""), error);
    streams_.collect(result_);
    result_.parameters.clear();
    for (const UnitParameter& parameter : parameters_) {
        result_.parameters.push_back({parameter.name(), parameter.unit(), parameter.isInput(),
                                      parameter.isPower(), parameter.value()});
    }
    if (!result_.success) return;
    closure_ = host::closure(result_);
    if (!closure_) return;
    for (auto& warning : closure_->warnings()) result_.warnings.push_back(std::move(warning));
}

}  // namespace orvane::host
