// The simulation environment as the unit sees it: a place to send messages to.
// Not here: materials by name, which no unit of ours asks a simulator for.
#pragma once

#include "cobia/HostAdapters.h"

#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvane::host {

/// Collects what the unit logs. Messages may come from any thread.
class SimulationContext
    : public COBIA::CapeOpenObject<SimulationContext, COBIA::SimulationContextAdapter,
                                   COBIA::DiagnosticAdapter, COBIA::COSEUtilitiesAdapter> {
public:
    /// Pixels of the images that the unit draws.
    void setImageSize(COBIA::CapeInteger width, COBIA::CapeInteger height) { imageSize_ = {width, height}; }

    // ICapeCOSEUtilities: "ImageWidth" and "ImageHeight", once they are set. Another name: code 107.
    std::vector<std::string> namedValueList() const;
    COBIA::ValueObject::Content namedValue(const std::string& name) const;

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
    std::optional<std::pair<COBIA::CapeInteger, COBIA::CapeInteger>> imageSize_;
};

}  // namespace orvane::host
