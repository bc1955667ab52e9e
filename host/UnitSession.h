// One unit operation from creation to release, as a simulator leads it: context, script, ports, parameters,
// validation, calculation.
// Not here: loading the module (ModuleLoader), streams and results (CaseRun).
// Threads: the one that made it.
#pragma once

#include "cobia/Call.h"
#include "cobia/Wire.h"
#include "host/ModuleLoader.h"
#include "host/PersistStore.h"
#include "host/SimulationContext.h"
#include "host/UnitParameter.h"

#include <optional>
#include <string>
#include <vector>

namespace orvane::host {

/// A port of the unit.
class UnitPort {
public:
    explicit UnitPort(COBIA::Ref<COBIA::ICapeInterface> item);

    const std::string& name() const { return name_; }
    const std::string& description() const { return description_; }
    COBIA::CapePortType type() const { return type_; }
    /// "material", "energy" or "information".
    static const char* typeName(COBIA::CapePortType type);
    const char* typeName() const { return typeName(type_); }
    bool isFeed() const { return direction_ == COBIA::CapePortDirection::inlet; }
    const COBIA::Ref<COBIA::ICapeUnitPort>& port() const { return port_; }

    /// The parameter that an information port looks for.
    struct Wanted {
        std::string name;
        std::vector<double> dimensionality;
    };
    /// As the port says; from one that does not, a number of the port's name.
    Wanted wanted() const;

private:
    COBIA::Ref<COBIA::ICapeUnitPort> port_;
    std::string name_, description_;
    COBIA::CapePortType type_{};
    COBIA::CapePortDirection direction_{};
};

/// A report that the unit offers.
struct UnitReport {
    std::string name;
    std::string type;  ///< "text/plain", "image/png"

    bool isImage() const { return type == "image/png"; }
};

/// All members but the destructor throw cape_open_error with what the unit says, and ModuleError when its interpreter did
/// not start.
class UnitSession {
public:
    UnitSession(const ModuleLoader& module, COBIA::Ref<SimulationContext> context);
    UnitSession(const UnitSession&) = delete;
    UnitSession& operator=(const UnitSession&) = delete;
    /// Disconnects what was connected here, then terminates and releases the unit. Failures on this way
    /// change nothing about the results and are dropped.
    ~UnitSession();

    void setName(const std::string& name);
    /// Takes the place of the script that the unit has. To be called before anything runs the script.
    void loadScript(const std::string& script);
    /// Takes the place of all that the unit has. To be called before anything runs the script.
    void loadState(PersistStore& state);
    COBIA::Ref<PersistStore> saveState();

    /// As the script's Configure declared them; none when it failed, which validate() tells.
    std::vector<UnitPort> ports();
    std::vector<UnitParameter> parameters();

    /// Keeps the connection until the session ends.
    void connect(const UnitPort& port, COBIA::ICapeInterface* stream);

    COBIA::Verdict validate();
    void calculate();

    /// Texts and images; none when the unit offers no reports.
    std::vector<UnitReport> reports();
    std::string reportText(const std::string& name);
    /// Has the unit draw an image into a file.
    void drawImage(const std::string& name, const std::filesystem::path& file);
    /// What the unit reports of the last calculation, what the script printed included. Empty when the unit
    /// offers no reports.
    std::optional<std::string> lastCalculation();

private:
    template <class Item> std::vector<Item> items(const COBIA::Ref<COBIA::ICapeCollection>& collection);

    COBIA::Ref<COBIA::ICapePersist> persistence();

    COBIA::Ref<SimulationContext> context_;
    COBIA::Ref<COBIA::ICapeInterface> object_;
    COBIA::Ref<COBIA::ICapeUnit> unit_;
    COBIA::Ref<COBIA::ICapeUtilities> utilities_;
    std::vector<COBIA::Ref<COBIA::ICapeUnitPort>> connected_;
};

}  // namespace orvane::host
