// The access to the one parameter of a connected information object that a port uses. Nothing else reads or writes it,
// and nothing here knows Python.
// A host that fails is told as StringException that names the port and carries the host's own text.
// Threads: the calculating thread only.
#pragma once

#include "streams/Port.h"

#include <memory>
#include <string>

namespace orvane {

class InformationPort;

class CapeExternalParameter {
public:
    virtual ~CapeExternalParameter() = default;

    /// What the host calls the parameter.
    virtual std::string name() = 0;
    /// SI units of the port's dimension.
    virtual double value() = 0;
    virtual void setValue(double value) = 0;

    /// The port; throws "not initialized" once the unit has made the view let go of the host's objects. From then on
    /// nothing works.
    virtual InformationPort& port() = 0;
};

/// A view of the parameter that the port chose in the object that is connected to it. Throws StringException for a version
/// other than 1.2 and, naming both, when the parameter is not there any more.
std::unique_ptr<CapeExternalParameter> makeExternalView(CapeOpenVersion version, InformationPort& port,
                                                        PortOwner& owner, COBIA::ICapeInterface* object);

}  // namespace orvane
