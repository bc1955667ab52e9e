#include "streams/HostParameter.h"

#include <limits>

namespace orvane {

using namespace COBIA;

Ref<ICapeInterface> findItem(const Ref<ICapeCollection>& collection, const std::string& name) {
    try {
        return obtain<ICapeInterface, &ICapeCollection::Table::ItemByName>(collection.get(),
                                                                           StringObject(name).in());
    }
    catch (const cape_open_error& error) {
        // Collections that know no such name answer with the one or the other.
        if (error.code() == noSuchItem || error.code() == invalidArgument) return nullptr;
        throw;
    }
}

HostParameter::HostParameter(const Ref<ICapeCollection>& collection, std::string name)
    : name_(std::move(name)) {
    const Ref<ICapeInterface> item = findItem(collection, name_);
    if (!item) return;
    parameter_ = query<ICapeRealParameter>(item);
    if (!parameter_)
        throw StringException() << "parameter '" << name_ << "' does not implement ICapeRealParameter";
}

double HostParameter::value() const {
    double value = std::numeric_limits<double>::quiet_NaN();
    if (parameter_) call<&ICapeRealParameter::Table::getValue>(parameter_, &value);
    return value;
}

void HostParameter::setValue(double value) {
    if (!parameter_) throw StringException() << "parameter '" << name_ << "' not found";
    call<&ICapeRealParameter::Table::putValue>(parameter_, value);
}

}  // namespace orvane
