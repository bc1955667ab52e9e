#include "host/SimulationContext.h"

namespace orvane::host {

std::vector<std::string> SimulationContext::namedValueList() const {
    if (!imageSize_) return {};
    return {"ImageWidth", "ImageHeight"};
}

COBIA::ValueObject::Content SimulationContext::namedValue(const std::string& name) const {
    if (imageSize_ && name == "ImageWidth") return imageSize_->first;
    if (imageSize_ && name == "ImageHeight") return imageSize_->second;
    throw COBIA::cape_open_error(COBIA::noSuchItem);
}

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
