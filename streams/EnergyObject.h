// The scripting type capeopen_unit.EnergyObject: the energy stream on a port, as a script reads it, and writes it where
// the port is a product.
// Threads: with the interpreter lock held.
#pragma once

#include "engine/ScriptedUnit.h"
#include "streams/CapeEnergyObject.h"

#include <memory>
#include <string>

namespace orvane {

class EnergyObject {
public:
    EnergyObject(std::unique_ptr<CapeEnergyObject> stream, EnergyKind kind, bool isFeed) noexcept
        : stream_(std::move(stream)), kind_(kind), isFeed_(isFeed) {}

    // The attributes of the scripting type.

    double work() const { return stream_->work(); }
    void setWork(PyObject* value);
    PyRef temperatureRange() const;
    void setTemperatureRange(PyObject* value);
    double axisFrequency() const;
    void setAxisFrequency(PyObject* value);
    std::string streamName() const { return stream_->streamName(); }

private:
    void requireThermal() const;
    void requireAxle() const;
    void requireProduct() const;

    std::unique_ptr<CapeEnergyObject> stream_;
    EnergyKind kind_;
    bool isFeed_;
};

extern PyTypeObject energyObjectType;

/// A new object of the scripting type, as scripts find it in unit.ports.
PyRef makeEnergyObject(std::unique_ptr<CapeEnergyObject> stream, EnergyKind kind, bool isFeed);

}  // namespace orvane
