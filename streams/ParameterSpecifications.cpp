#include "streams/ParameterSpecifications.h"

namespace orvane {

using namespace COBIA;

namespace {

Ref<ICapeInterface> interfaceOf(const Ref<ParameterSpecification>& item) {
    return Ref<ICapeInterface>::share(item->as<ICapeInterface>());
}

}  // namespace

Ref<ICapeInterface> ParameterSpecifications::itemByIndex(CapeInteger index) const {
    if (index < 0 || index >= count()) throw cape_open_error(noSuchItem);
    return interfaceOf(items_[static_cast<std::size_t>(index)]);
}

Ref<ICapeInterface> ParameterSpecifications::itemByName(const std::string& name) const {
    for (const Ref<ParameterSpecification>& item : items_)
        if (equalIgnoringCase(item->name(), name)) return interfaceOf(item);
    throw cape_open_error(noSuchItem);
}

}  // namespace orvane
