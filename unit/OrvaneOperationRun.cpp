// The configure step, validation and the calculation of the unit operation, and what its script's calls see of it.
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

#include <algorithm>
#include <chrono>

namespace orvane {

using namespace COBIA;

/// What the unit is busy with; idle again on every way out.
class OrvaneOperation::RunStateScope {
public:
    RunStateScope(OrvaneOperation& unit, RunState state) noexcept : unit_(unit), before_(unit.runState_) {
        unit_.runState_ = state;
    }
    RunStateScope(const RunStateScope&) = delete;
    RunStateScope& operator=(const RunStateScope&) = delete;
    ~RunStateScope() { unit_.runState_ = before_; }

private:
    OrvaneOperation& unit_;
    RunState before_;
};

// The configure step

void OrvaneOperation::ensureConfigured() {
    // A script that calls back into the unit through the host finds it as it is.
    if (runState_ != RunState::idle || (configured_ && !needsConfigure_)) return;
    configure();
    restoreSavedValues();
    configured_ = true;
}

void OrvaneOperation::configure() {
    if (!needsConfigure_) return;
    if (!scriptFile_) throw StringException(scriptFileError_);
    const RunStateScope configuring(*this, RunState::configuring);
    configureError_.clear();
    scriptError_.clear();
    if (needsReload_) {
        declared_.module = PyRef();
        configureError_ = scriptError_ = script_.load(scriptFile_->path());
        if (!configureError_.empty()) return;
        needsReload_ = false;
        validationStatus_ = CapeValidationStatus::notValidated;
    }
    CallTexts texts = runConfigure();
    configureError_ = std::move(texts.errors);
    if (configureError_.empty()) adoptDeclarations();
    needsConfigure_ = false;
}

CallTexts OrvaneOperation::runConfigure() {
    const ScriptSession session;
    declaring_ = {};
    declared_.module = PyRef();
    CallTexts texts = callScriptFunction(*this, script_, FunctionKind::configure);
    if (!texts.errors.empty() || !declaring_.module) return texts;
    declared_.module = declaring_.module;
    declaring_.startModule();
    CallTexts ofModule = callScriptFunction(*this, script_, FunctionKind::configure, false);
    return {texts.output + ofModule.output, std::move(ofModule.errors)};
}

namespace {

/// Those of the new items, or in their place the one that was there before under the same name and of the same kind,
/// with the new definition.
template <class Item>
std::vector<Ref<Item>> merge(const std::vector<Ref<Item>>& before, std::vector<Ref<Item>> declared) {
    for (Ref<Item>& item : declared) {
        const auto same = std::find_if(before.begin(), before.end(), [&](const Ref<Item>& old) {
            return equalIgnoringCase(old->name(), item->name()) && old->sameKind(*item);
        });
        if (same == before.end()) continue;
        (*same)->takeOver(*item);
        item->disown();
        item = *same;
    }
    for (const Ref<Item>& old : before)
        if (std::find(declared.begin(), declared.end(), old) == declared.end()) old->disown();
    return declared;
}

}  // namespace

void OrvaneOperation::adoptDeclarations() {
    ports_->replace(merge(ports_->items(), std::move(declaring_.ports)));
    parameters_->replace(merge(parameters_->items(), std::move(declaring_.parameters)));
    declaring_.ports.clear();
    declaring_.parameters.clear();
    const InterpreterLock lock;
    declared_ = std::exchange(declaring_, {});

    // A report that is declared anew keeps the text that it had.
    std::map<std::string, std::string> reports;
    for (const std::string& report : declared_.reports) {
        const std::string key = upperCase(report);
        reports[key] = std::move(reports_[key]);
    }
    reports_ = std::move(reports);
}

void OrvaneOperation::restoreSavedValues() {
    if (savedValues_.empty() || !configureError_.empty()) return;
    const auto saved = std::exchange(savedValues_, {});
    const ScriptSession session;
    std::vector<std::string> warnings;
    for (const Ref<Parameter>& parameter : parameters_->items()) {
        const std::string name = parameter->name();
        const auto found = std::ranges::find(saved, name, &UnitState::SavedParameter::name);
        if (found == saved.end()) {
            warnings.push_back("Value for '" + name + "' was not loaded");
            continue;
        }
        try {
            parameter->restore(found->value);
        }
        catch (const std::exception& error) {
            warnings.push_back("Value for '" + name + "' was not restored: " + error.what());
        }
    }
    for (const std::string& warning : warnings) warn(warning);
}

// Validation

Verdict OrvaneOperation::validate() {
    const std::optional<std::string> fault = findFault();
    return {!fault, fault.value_or("")};
}

std::optional<std::string> OrvaneOperation::findFault() {
    ensureConfigured();
    const auto find = [&]() -> std::optional<std::string> {
        if (!configureError_.empty()) return "Configure() failed: " + configureError_;
        if (auto fault = checkConnections(ports_->items(), declared_.allowInconsistentCompounds))
            return fault;
        for (const Ref<Parameter>& parameter : parameters_->items()) {
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
    for (const Ref<Parameter>& parameter : parameters_->items()) parameter->setValueGiven(false);
    for (const Ref<Port>& port : ports_->items()) port->prepare();
    CallTexts texts = callScriptFunction(*this, script_, FunctionKind::calculate);
    scriptOutput_ = std::move(texts.output);
    scriptError_ = std::move(texts.errors);
}

void OrvaneOperation::finishPorts() {
    for (const Ref<Parameter>& parameter : parameters_->items())
        if (!parameter->isInput() && !parameter->isValueGiven())
            warn("Ouput parameter '" + parameter->name() + "' was never specified");
    for (const Ref<Port>& port : ports_->items())
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
    declaring_.checkPort(port.name, runState_ == RunState::configuring);
    declaring_.ports.push_back(makePort(*this, port));
}

void OrvaneOperation::addParameter(const ParameterDeclaration& parameter) {
    declaring_.checkParameter(parameter.name, runState_ == RunState::configuring);
    declaring_.parameters.push_back(makeParameter(*this, parameter));
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
    for (const Ref<Port>& port : ports_->items())
        if (const PyRef object = port->scriptObject())
            check(PyDict_SetItem(dictionary, toPython(port->name()).get(), object.get()));
}

void OrvaneOperation::fillParameters(PyObject* dictionary) {
    for (const Ref<Parameter>& parameter : parameters_->items())
        check(PyDict_SetItem(dictionary, toPython(parameter->nameText()).get(),
                             makeParameterObject(parameter).get()));
}

void OrvaneOperation::setReports(std::vector<std::pair<std::string, std::string>> reports) {
    reports_.clear();
    for (auto& [name, text] : reports) reports_[upperCase(name)] = std::move(text);
}

void OrvaneOperation::releaseWrappers() noexcept {
    // One by one, since what a release sets off may destroy other holders.
    while (!holders_.empty()) {
        HostObjectHolder* const holder = holders_.back();
        holders_.pop_back();
        holder->releaseHostObjects();
    }
}

void OrvaneOperation::warn(const std::string& text) {
    if (scriptEngine().startupError().empty()) scriptEngine().outputText() += "Warning: " + text + "\n";
    if (diagnostic_)
        call<&ICapeDiagnostic::Table::LogMessage>(diagnostic_,
                                                  StringObject(name_ + " warning: " + text).in());
}

}  // namespace orvane
