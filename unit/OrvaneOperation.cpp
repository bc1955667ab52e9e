#include "unit/OrvaneOperation.h"

#include "cobia/Call.h"
#include "engine/PrivateData.h"
#include "engine/PythonEntry.h"
#include "engine/UnitObject.h"
#include "platform/DefaultScript.h"
#include "platform/Files.h"
#include "platform/Identifier.h"
#include "platform/TextMode.h"
#include "unit/ScriptingTypes.h"

namespace orvane {

using namespace COBIA;

OrvaneOperation::OrvaneOperation()
    : parameters_(makeObject<Collection<Parameter>>("Parameter")),
      ports_(makeObject<Collection<Port>>("Port")),
      script_("unit" + randomIdentifier()) {
    try {
        scriptFile_.emplace();
        writeFile(scriptFile_->path(), defaultScriptText());
    }
    catch (const std::exception& error) {
        scriptFileError_ = error.what();
    }
    // Units may be made on several threads at once.
    [[maybe_unused]] static const bool typesNamed = (setScriptingTypes(allScriptingTypes()), true);
    if (!scriptEngine().startupError().empty()) return;
    const InterpreterLock lock;
    unitObject_ = createObject<UnitObject>(unitType, static_cast<ScriptedUnit&>(*this));
    callArguments_ = PyRef::steal(PyTuple_Pack(1, unitObject_.get()));
}

OrvaneOperation::~OrvaneOperation() {
    for (const Ref<Port>& port : ports_->items()) port->disown();
    for (const Ref<Parameter>& parameter : parameters_->items()) parameter->disown();
    endCall();
    if (!unitObject_ || !scriptEngine().isRunning()) {
        // Without an interpreter there is nobody to give the references back to.
        unitObject_.detach();
        callArguments_.detach();
        declared_.module.detach();
        declaring_.module.detach();
        script_.abandon();
        return;
    }
    const InterpreterLock lock;
    contentOf<UnitObject>(unitObject_.get()).disown();
    script_.release();
    for (PyRef* reference : {&callArguments_, &unitObject_, &declared_.module, &declaring_.module})
        *reference = PyRef();
}

void OrvaneOperation::setName(const std::string& name) {
    name_ = name;
    modified_ = true;
}

void OrvaneOperation::setDescription(const std::string& description) {
    description_ = description;
    modified_ = true;
}

Ref<ICapeCollection> OrvaneOperation::portCollection() {
    ensureConfigured();
    return Ref<ICapeCollection>::share(ports_->as<ICapeCollection>());
}

Ref<ICapeCollection> OrvaneOperation::parameterCollection() {
    ensureConfigured();
    return Ref<ICapeCollection>::share(parameters_->as<ICapeCollection>());
}

void OrvaneOperation::setSimulationContext(ICapeSimulationContext* context) {
    diagnostic_ = query<ICapeDiagnostic>(context);
    contextValues_ = query<ICapeCOSEUtilities>(context);
}

void OrvaneOperation::terminate() {
    diagnostic_ = nullptr;
    contextValues_ = nullptr;
}

void OrvaneOperation::save(ICapePersistWriter* writer, bool) {
    if (!writer) throw cape_open_error(nullPointer);
    ensureConfigured();
    UnitState state;
    if (!scriptFile_) throw StringException(scriptFileError_);
    state.script = readFile(scriptFile_->path());
    if (wellFormed(state.script) != state.script)
        warn("The script is not UTF-8 text; what is not is saved as U+FFFD");
    state.lastOutput = lastOutput_;
    state.runReportHeader = runReportHeader_;
    state.runReportFooter = runReportFooter_;
    // Values that still wait for a Configure that succeeds go on as they came.
    state.parameters = savedValues_;
    if (state.parameters.empty())
        for (const Ref<Parameter>& parameter : parameters_->items())
            state.parameters.push_back({parameter->name(), parameter->storedValue()});
    state.reports.assign(reports_.begin(), reports_.end());
    state.images = declared_.images;
    state.privateData = storePrivateData(*this, script_);
    if (state.privateData.empty()) state.privateData = unreadPrivateData_;
    writeState(writer, state);
}

void OrvaneOperation::load(ICapePersistReader* reader) {
    if (!reader) throw cape_open_error(nullPointer);
    std::vector<std::string> warnings;
    UnitState state = readState(reader, warnings);
    const ScriptSession session;
    writeScript(state.script);

    // From here on nothing fails but telling the host of warnings.
    needsReload_ = needsConfigure_ = true;
    lastOutput_ = std::move(state.lastOutput);
    runReportHeader_ = std::move(state.runReportHeader);
    runReportFooter_ = std::move(state.runReportFooter);
    reports_.clear();
    for (auto& [name, text] : state.reports) reports_[name] = std::move(text);
    declared_.images = std::move(state.images);
    savedValues_ = std::move(state.parameters);
    invalidate();
    modified_ = false;

    unreadPrivateData_ = std::move(state.privateData);
    if (!unreadPrivateData_.empty() && restorePrivateData(unreadPrivateData_, *this))
        unreadPrivateData_.clear();
    for (const std::string& warning : warnings) warn(warning);
}

void OrvaneOperation::writeScript(const std::string& script) {
    if (!scriptFile_) throw StringException("unable to write python script to temp file");
    try {
        writeFile(scriptFile_->path(), inTextMode(script));
    }
    catch (const StringException&) {
        throw StringException("unable to write python script to temp file");
    }
}

void OrvaneOperation::invalidate() {
    validationStatus_ = CapeValidationStatus::notValidated;
    modified_ = true;
}

}  // namespace orvane
