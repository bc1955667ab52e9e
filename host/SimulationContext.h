// The simulation environment as the unit sees it: a place to send messages to.
// Not here: materials by name and named values, which no unit of ours asks a simulator for.
#pragma once

#include "cobia/HostAdapters.h"

#include <mutex>
#include <string>
#include <vector>

namespace orvane::host {

/// Collects what the unit logs. Messages may come from any thread.
class SimulationContext : public COBIA::CapeOpenObject<SimulationContext, COBIA::SimulationContextAdapter,
                                                       COBIA::DiagnosticAdapter> {
public:
    // ICapeDiagnostic. On a command line there is nothing to pop up: both kinds are kept alike.
    void popUpMessage(std::string message) { logMessage(std::move(message)); }
    void logMessage(std::string message);

    /// What came so far, oldest first.
    std::vector<std::string> messages() const;
    void forgetMessages();

protected:
    std::string errorSource() const override { return "orvane host"; }

private:
    mutable std::mutex mutex_;
    std::vector<std::string> messages_;
};

}  // namespace orvane::host
