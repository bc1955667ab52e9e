// The access to the energy object that the host has connected to a port. Nothing else reads or writes it, and nothing
// here knows Python.
// SI units. A host that fails is told as StringException that names the port and carries the host's own text.
// Threads: the calculating thread only.
#pragma once

#include "streams/Port.h"

#include <memory>
#include <string>

namespace orvane {

class EnergyPort;

struct TemperatureRange {
    double low, high;  // K
};

class CapeEnergyObject {
public:
    virtual ~CapeEnergyObject() = default;

    virtual double work() = 0;  // W
    virtual void setWork(double work) = 0;
    /// NaN where the host's object does not have the temperature. Thermal ports only.
    virtual TemperatureRange temperatureRange() = 0;
    /// Both or none: when the host refuses the second, the first is put back.
    virtual void setTemperatureRange(TemperatureRange range) = 0;
    /// 1/s; NaN where the host's object does not have it. Axle ports only.
    virtual double axisFrequency() = 0;
    virtual void setAxisFrequency(double frequency) = 0;
    /// What the host calls the connected object.
    virtual std::string streamName() = 0;

    /// The port; throws "not initialized" once the unit has made the view let go of the host's objects. From then on
    /// nothing works.
    virtual EnergyPort& port() = 0;
};

/// A view of the object that is connected to the port. Throws StringException for a version other than 1.2 and, naming the
/// port, for an object that lacks what the port's kind needs.
std::unique_ptr<CapeEnergyObject> makeEnergyView(CapeOpenVersion version, EnergyPort& port, PortOwner& owner,
                                                 COBIA::ICapeInterface* object);

}  // namespace orvane
