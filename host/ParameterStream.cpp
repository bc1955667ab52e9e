#include "host/ParameterStream.h"

namespace orvane::host {

using namespace COBIA;

ParameterStream::ParameterStream(std::string name, const std::string& kind, bool isFeed,
                                 std::vector<StreamParameter::Definition> parameters)
    : name_(std::move(name)), description_(kind + " stream '" + name_ + "'") {
    for (auto& parameter : parameters)
        parameters_.push_back(makeObject<StreamParameter>(std::move(parameter), description_, isFeed));
}

Ref<ICapeInterface> ParameterStream::itemByIndex(CapeInteger index) const {
    if (index < 0 || index >= count()) throw cape_open_error(noSuchItem);
    return Ref<ICapeInterface>::share(parameters_[static_cast<std::size_t>(index)]->as<ICapeInterface>());
}

Ref<ICapeInterface> ParameterStream::itemByName(const std::string& name) const {
    for (const auto& parameter : parameters_) {
        if (equalIgnoringCase(parameter->name(), name))
            return Ref<ICapeInterface>::share(parameter->as<ICapeInterface>());
    }
    throw cape_open_error(noSuchItem);
}

}  // namespace orvane::host
