// A real parameter in a collection of the host's, as energy and information streams carry their values.
// Threads: the calculating thread only.
#pragma once

#include "cobia/Call.h"

#include <string>

namespace orvane {

/// The item of that name; empty when the collection answers that it has none. Any other failure throws
/// cape_open_error with the host's own error.
COBIA::Ref<COBIA::ICapeInterface> findItem(const COBIA::Ref<COBIA::ICapeCollection>& collection,
                                           const std::string& name);

/// Runs a body that works on what is connected to a port. Its failure is told as StringException that names the port.
template <class Body> auto forPort(const std::string& name, Body&& body) {
    try {
        return body();
    }
    catch (const std::exception& error) {
        throw COBIA::StringException() << "For object connected to port '" << name << "': " << error.what();
    }
}

class HostParameter {
public:
    /// One that is not there.
    HostParameter() = default;
    /// The collection's parameter of that name, which need not be there. Throws StringException when it is no real
    /// parameter, and what findItem throws.
    HostParameter(const COBIA::Ref<COBIA::ICapeCollection>& collection, std::string name);

    bool isThere() const noexcept { return static_cast<bool>(parameter_); }
    /// NaN when the parameter is not there. Throws cape_open_error.
    double value() const;
    /// Throws StringException when the parameter is not there, and cape_open_error.
    void setValue(double value);

private:
    std::string name_;
    COBIA::Ref<COBIA::ICapeRealParameter> parameter_;
};

}  // namespace orvane
