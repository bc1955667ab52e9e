// Validation and the calculation of the unit operation, and what its script's calls see of it.
#include "cobia/Call.h"
#include "engine/Conversion.h"
#include "engine/PythonEntry.h"
#include "parameters/Dimension.h"
#include "parameters/MakeParameter.h"
#include "parameters/ParameterObject.h"
#include "platform/Clock.h"
#include "unit/CompoundCheck.h"
#include "unit/MakePort.h"
#include "unit/OrvaneOperation.h"

#include <chrono>

namespace orvane {

using namespace COBIA;

// Validation

Verdict OrvaneOperation::validate() {
    const std::optional<std::string> fault = findFault();
    return {!fault, fault.value_or("")};
}

std::optional<std::string> OrvaneOperation::findFault() {
    ensureConfigured();
    const auto find = [&]() -> std::optional<std::string> {
        if (!configureError_.empty()) return "Configure() failed: " + configureError_;
        if (auto fault = checkConnections(currentPorts(), declared_.allowInconsistentCompounds)) return fault;
        for (const Ref<Parameter>& parameter : currentParameters()) {
            if (!parameter->isInput()) continue;
            const Verdict verdict = parameter->validate();
            if (!verdict.valid)
                return "Parameter '" + parameter->name() + "' is not valid: " + verdict.message;
        }
        CallTexts texts = callScriptFunction(*this, script_, FunctionKind::validate, false);
        scriptOutput_ = std::move(texts.output);
        scriptError_ = texts.errors;
        return texts.errors.empty() ? std::nullopt : std::optional(std::move(texts.errors));
    };
    validationStatus_ = CapeValidationStatus::notValidated;  // and so it stays when the host fails
    std::optional<std::string> fault = find();
    validationStatus_ = fault ? CapeValidationStatus::invalid : CapeValidationStatus::valid;
    return fault;
}

// Calculation

void OrvaneOperation::calculate() {
    if (!run()) throw cape_open_error(scriptError_);
}

bool OrvaneOperation::run() {
    runReportHeader_ = "Calculation starts: Calculation at " + utcDateAndTime() + "\r\n\r\n";
    runReportFooter_.clear();
    lastOutput_.clear();
    modified_ = true;
    const auto start = std::chrono::steady_clock::now();
    ensureConfigured();
    const RunStateScope calculating(*this, RunState::calculating);
    scriptError_.clear();
    scriptOutput_.clear();
    if (validationStatus_ != CapeValidationStatus::valid) {
        const std::optional<std::string> fault = findFault();
        lastOutput_ += scriptOutput_;
        if (fault) {
            scriptError_ = "Unit is not valid: " + *fault;
            return false;
        }
    }
    const auto writeFooter = [&] {
        const auto elapsed = std::chrono::steady_clock::now() - start;
        runReportFooter_ = "\r\n\r\nCalculation took " + elapsedText(elapsed) + " s\r\n";
    };
    const ScriptSession session;
    try {
        runScript();
        if (scriptError_.empty()) finishPorts();
    }
    catch (const std::exception& error) {
        // The host gets the error itself; what was printed until then stays readable.
        scriptError_ = error.what();
        collectOutput();
        writeFooter();
        throw;
    }
    collectOutput();
    writeFooter();
    return scriptError_.empty();
}

void OrvaneOperation::runScript() {
    for (const Ref<Parameter>& parameter : currentParameters()) parameter->setValueGiven(false);
    for (const Ref<Port>& port : currentPorts()) port->prepare();
    CallTexts texts = callScriptFunction(*this, script_, FunctionKind::calculate);
    scriptOutput_ = std::move(texts.output);
    scriptError_ = std::move(texts.errors);
}

void OrvaneOperation::finishPorts() {
    for (const Ref<Parameter>& parameter : currentParameters())
        if (!parameter->isInput() && !parameter->isValueGiven())
            warn("Ouput parameter '" + parameter->name() + "' was never specified");
    for (const Ref<Port>& port : currentPorts())
        if (!port->isFeed()) port->finish();
}

void OrvaneOperation::collectOutput() {
    const std::string warnings = std::exchange(scriptEngine().outputText(), {});
    if (!warnings.empty()) scriptOutput_ += "\r\n" + warnings;
    lastOutput_ += scriptOutput_;
    if (!scriptError_.empty()) lastOutput_ += "\r\n" + scriptError_;
}

// What the script's calls see

void OrvaneOperation::addPort(const PortDeclaration& port) {
    declaring_.addPort(port.name, runState_ == RunState::configuring, [&] { return makePort(*this, port); });
}

void OrvaneOperation::addParameter(const ParameterDeclaration& parameter) {
    declaring_.addParameter(parameter.name, runState_ == RunState::configuring,
                            [&] { return makeParameter(*this, parameter); });
}

void OrvaneOperation::addReport(const std::string& name) {
    declaring_.addReport(name, runState_ == RunState::configuring);
}

void OrvaneOperation::addImage(const std::string& name, const std::string& function) {
    declaring_.addImage(name, function, runState_ == RunState::configuring);
}

void OrvaneOperation::defineFrom(PyRef module) {
    declaring_.defineFrom(std::move(module), runState_ == RunState::configuring);
}

void OrvaneOperation::setAllowInconsistentCompounds(bool allow) {
    declaring_.setAllowInconsistentCompounds(allow, runState_ == RunState::configuring);
}

bool OrvaneOperation::allowsInconsistentCompounds() const {
    return (runState_ == RunState::configuring ? declaring_ : declared_).allowInconsistentCompounds;
}

const std::vector<double>* OrvaneOperation::exponents(PyObject* dimension) const {
    return dimensionExponents(dimension);
}

PyRef OrvaneOperation::functionModule() const {
    return declared_.module ? declared_.module : script_.module();
}

void OrvaneOperation::fillPorts(PyObject* dictionary) {
    for (const Ref<Port>& port : currentPorts())
        if (const PyRef object = port->scriptObject())
            check(PyDict_SetItem(dictionary, toPython(port->name()).get(), object.get()));
}

void OrvaneOperation::fillParameters(PyObject* dictionary) {
    for (const Ref<Parameter>& parameter : currentParameters())
        check(PyDict_SetItem(dictionary, toPython(parameter->nameText()).get(),
                             makeParameterObject(parameter).get()));
}

void OrvaneOperation::setReports(std::vector<std::pair<std::string, std::string>> reports) {
    reports_.clear();
    for (auto& [name, text] : reports) reports_[upperCase(name)] = std::move(text);
}

void OrvaneOperation::endCall() noexcept {
    // One by one, since what a release sets off may destroy other holders.
    while (!holders_.back().empty()) {
        HostObjectHolder* const holder = holders_.back().back();
        holders_.back().pop_back();
        holder->releaseHostObjects();
    }
    if (holders_.size() > 1) holders_.pop_back();
}

void OrvaneOperation::removeHolder(HostObjectHolder& holder) noexcept {
    for (std::vector<HostObjectHolder*>& ofCall : holders_) std::erase(ofCall, &holder);
}

void OrvaneOperation::warn(const std::string& text) {
    if (scriptEngine().startupError().empty()) scriptEngine().outputText() += "Warning: " + text + "\n";
    if (diagnostic_ && !editing_)
        call<&ICapeDiagnostic::Table::LogMessage>(diagnostic_,
                                                  StringObject(name_ + " warning: " + text).in());
}

}  // namespace orvane
