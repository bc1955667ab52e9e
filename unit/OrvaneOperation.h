// The unit operation as a host sees it: created with the default script, configured by the script's own declarations,
// validated, calculated, saved and loaded. It owns the script, its module and its object `unit`, the ports and parameters,
// and the texts of the last runs.
// Not here: the rules of declarations (Declarations), what is saved under which name (UnitState), the checks on what is
// connected (CompoundCheck), the editor's callbacks (EditorTable), running the script (engine).
// Threads: the host calls from one thread at a time; script work waits for that of all other units.
#pragma once

#include "cobia/Adapters.h"
#include "engine/ScriptCalls.h"
#include "platform/TemporaryFile.h"
#include "unit/Collection.h"
#include "unit/Declarations.h"
#include "unit/EditorTable.h"
#include "unit/UnitState.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace orvane {

class OrvaneOperation final
    : public COBIA::CapeOpenObject<OrvaneOperation, COBIA::IdentificationAdapter, COBIA::UnitAdapter,
                                   COBIA::PersistAdapter, COBIA::UtilitiesAdapter, COBIA::ReportAdapter>,
      private ScriptedUnit,
      private PortOwner,
      private ParameterOwner,
      private EditedUnit {
public:
    /// Makes the script file and starts the interpreter where that is still to do. What fails of either is told by
    /// every later operation that needs it.
    OrvaneOperation();

    // ICapeIdentification

    std::string name() const { return name_; }
    void setName(const std::string& name);
    std::string description() const { return description_; }
    void setDescription(const std::string& description);

    // ICapeUnit

    COBIA::Ref<COBIA::ICapeCollection> portCollection();
    COBIA::CapeValidationStatus validationStatus() const { return validationStatus_; }
    COBIA::Verdict validate();
    void calculate();

    // ICapePersist

    /// Never clears the modified flag, whatever the host asks for. While a Configure fails, what was loaded for its
    /// parameters is saved as it came.
    void save(COBIA::ICapePersistWriter* writer, bool clearDirty);
    /// Takes nothing over unless all that matters can be read; what does not is a warning.
    void load(COBIA::ICapePersistReader* reader);
    bool isDirty() const { return modified_; }

    // ICapeUtilities

    COBIA::Ref<COBIA::ICapeCollection> parameterCollection();
    void setSimulationContext(COBIA::ICapeSimulationContext* context);
    void initialize() {}
    void terminate();
    /// Shows the editor and waits for it. Without its library nothing happens but the error that says so. One editor at a
    /// time, and none while the script runs.
    COBIA::CapeEditResult edit(COBIA::CapeWindowId parent);

    // ICapeReport. An unknown name, type or locale: code 107.

    /// The script's reports, the calculation report, the script's images.
    void reportNames(COBIA::TextsOut names);
    std::vector<std::string> reportTypes(const std::string& name);
    std::vector<std::string> reportLocales(const std::string& name, const std::string& type);
    bool checkReportSpec(const std::string& name, const std::string& type, const std::string& locale);
    std::string generateReport(const std::string& name, const std::string& type, const std::string& locale);
    /// A text in UTF-8 with its own line ends, or a PNG image drawn now.
    void generateReportFile(const std::string& name, const std::string& type, const std::string& locale,
                            const std::string& fileName);

private:
    enum class RunState { configuring = 0, calculating = 1, idle = 2 };
    /// What the unit is busy with; as before on every way out.
    class RunStateScope {
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
    using Ports = std::vector<COBIA::Ref<Port>>;
    using Parameters = std::vector<COBIA::Ref<Parameter>>;
    /// The ports and parameters while an editor is open; the host's collections follow when it has closed.
    struct Snapshot {
        Ports ports;
        Parameters parameters;
    };

    ~OrvaneOperation() override;

    std::string errorSource() const override { return description_; }

    /// The configure step, where it has not run yet or the script has changed since.
    void ensureConfigured();
    /// Loads and runs Configure as far as needed. What it declared takes the place of the current ports and parameters
    /// when all went well, and gets its saved values; otherwise all stays as it was, and configureError_ says why.
    void configure();
    /// Runs Configure, and that of the module it named, if any.
    CallTexts runConfigure();
    /// The declared ports and parameters take the place of those before; one that was there already keeps its connection
    /// or value, and hosts their reference to it.
    void adoptDeclarations();
    /// The host's collections take over, and the unit lets go of what it no longer has.
    void replaceCollections(Snapshot now);
    /// What was saved of the parameters, once, and warnings of what has no place.
    void restoreSavedValues();

    /// Why the unit cannot calculate, or nothing.
    std::optional<std::string> findFault();
    /// True when the script's Calculate and all ports were content; otherwise scriptError_ says why.
    bool run();
    void runScript();
    void finishPorts();
    /// Adds what the run printed, and its error, to lastOutput_.
    void collectOutput();

    /// The text of a text report; nothing when the name is none.
    std::optional<std::string> reportText(const std::string& name) const;
    const Image* findImage(const std::string& name) const;
    /// A whole number that the simulation context gives under this name, or what is usual.
    int contextValue(const char* name, int usual) const;

    void invalidate();
    void writeScript(const std::string& script);

    // ScriptedUnit

    void addPort(const PortDeclaration& port) override;
    void addParameter(const ParameterDeclaration& parameter) override;
    void addReport(const std::string& name) override;
    void addImage(const std::string& name, const std::string& function) override;
    void defineFrom(PyRef module) override;
    void setAllowInconsistentCompounds(bool allow) override;
    bool allowsInconsistentCompounds() const override;
    const std::vector<double>* exponents(PyObject* dimension) const override;
    PyRef functionModule() const override;
    PyRef unitObject() const override { return unitObject_; }
    PyRef callArguments() const override { return callArguments_; }
    void fillPorts(PyObject* dictionary) override;
    void fillParameters(PyObject* dictionary) override;
    std::vector<std::string> declaredReports() const override { return declared_.reports; }
    void setReports(std::vector<std::pair<std::string, std::string>> reports) override;
    void beginCall() override { holders_.emplace_back(); }
    void endCall() noexcept override;
    void warn(const std::string& text) override;

    // EditedUnit

    std::string scriptPath() const override;
    void scriptChanged() override;
    CallTexts configureInEditor() override;
    CallTexts calculateInEditor() override;
    const Ports& currentPorts() const override { return editing_ ? editing_->ports : ports_->items(); }
    const Parameters& currentParameters() const override {
        return editing_ ? editing_->parameters : parameters_->items();
    }
    const Declarations& declarations() const override { return declared_; }
    const std::string& outputOfLastRun() const override { return lastOutput_; }
    void setOutputOfLastRun(std::string text) override;
    std::string textOfReport(const std::string& name) const override;
    std::string drawImage(const Image& image) override;

    // PortOwner, ParameterOwner

    void portChanged() override { invalidate(); }
    void parameterChanged() override { invalidate(); }
    void addHolder(HostObjectHolder& holder) override { holders_.back().push_back(&holder); }
    void removeHolder(HostObjectHolder& holder) noexcept override;

    std::string name_ = "Orvane Operation";
    std::string description_ = "CAPE-OPEN Unit Operation using python script for calculations";
    COBIA::Ref<Collection<Parameter>> parameters_;
    COBIA::Ref<Collection<Port>> ports_;
    COBIA::CapeValidationStatus validationStatus_ = COBIA::CapeValidationStatus::notValidated;
    bool modified_ = false;  // since creation or the last Load, anything that Save stores
    COBIA::Ref<COBIA::ICapeDiagnostic> diagnostic_;
    COBIA::Ref<COBIA::ICapeCOSEUtilities> contextValues_;

    std::optional<TemporaryFile> scriptFile_;
    std::string scriptFileError_;  // why there is no script file
    RunState runState_ = RunState::idle;
    bool needsReload_ = true;
    bool needsConfigure_ = true;
    bool configured_ = false;          // once the first configure step has run
    std::optional<Snapshot> editing_;  // while an editor is open
    std::string configureOutput_, configureError_, scriptOutput_, scriptError_;
    std::string lastOutput_, runReportHeader_, runReportFooter_;

    ScriptModule script_;
    PyRef unitObject_, callArguments_;
    Declarations declaring_;  // what the running Configure has declared so far
    Declarations
        declared_;  // what the last successful one declared; ports and parameters are in the collections
    std::map<std::string, std::string> reports_;          // text by upper-cased name
    std::vector<UnitState::SavedParameter> savedValues_;  // loaded, until Configure declares their parameters
    std::vector<std::uint8_t>
        unreadPrivateData_;  // loaded, but could not be restored: kept for the next Save
    /// Alive, each with a hold on objects of the host: those made outside of calls, then those of each call under way.
    std::vector<std::vector<HostObjectHolder*>> holders_{1};
    EditorTable editorTable_{*this};
};

}  // namespace orvane
