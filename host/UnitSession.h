// One unit operation from creation to release, as a simulator leads it: context, script, ports, parameters,
// validation, calculation.
// Not here: loading the module (ModuleLoader), streams and results (CaseRun).
// Threads: the one that made it.
#pragma once

#include "cobia/Call.h"
#include "cobia/Wire.h"
#include "host/ModuleLoader.h"
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
    bool isMaterial() const { return type_ == COBIA::CapePortType::material; }
    bool isFeed() const { return direction_ == COBIA::CapePortDirection::inlet; }
    const COBIA::Ref<COBIA::ICapeUnitPort>& port() const { return port_; }

private:
    COBIA::Ref<COBIA::ICapeUnitPort> port_;
    std::string name_;
    COBIA::CapePortType type_{};
    COBIA::CapePortDirection direction_{};
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

    /// As the script's Configure declared them; none when it failed, which validate() tells.
    std::vector<UnitPort> ports();
    std::vector<UnitParameter> parameters();

    /// Keeps the connection until the session ends.
    void connect(const UnitPort& port, COBIA::ICapeInterface* stream);

    COBIA::Verdict validate();
    void calculate();

    /// What the unit reports of the last calculation, what the script printed included. Empty when the unit
    /// offers no reports.
    std::optional<std::string> lastCalculation();

private:
    template <class Item> std::vector<Item> items(const COBIA::Ref<COBIA::ICapeCollection>& collection);

    COBIA::Ref<SimulationContext> context_;
    COBIA::Ref<COBIA::ICapeInterface> object_;
    COBIA::Ref<COBIA::ICapeUnit> unit_;
    COBIA::Ref<COBIA::ICapeUtilities> utilities_;
    std::vector<COBIA::Ref<COBIA::ICapeUnitPort>> connected_;
};

}  // namespace orvane::host
