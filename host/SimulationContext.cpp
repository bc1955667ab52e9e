#include "host/SimulationContext.h"

namespace orvane::host {

void SimulationContext::logMessage(std::string message) {
    const std::lock_guard lock(mutex_);
    messages_.push_back(std::move(message));
}

std::vector<std::string> SimulationContext::messages() const {
    const std::lock_guard lock(mutex_);
    return messages_;
}

void SimulationContext::forgetMessages() {
    const std::lock_guard lock(mutex_);
    messages_.clear();
}

}  // namespace orvane::host
