// A port for an energy stream: what the host connected, and which values the script has given in this run.
// Not here: reading and writing the host's object (CapeEnergyObject), what the script sees (EnergyObject).
// Threads: the calculating thread only, with the interpreter lock held where Python is touched.
#pragma once

#include "engine/ScriptedUnit.h"
#include "streams/CapeEnergyObject.h"
#include "streams/ParameterSpecifications.h"

namespace orvane {

class EnergyPort final : public COBIA::Offering<EnergyPort, Port, COBIA::CollectionAdapter> {
public:
    EnergyPort(PortOwner& owner, const std::string& name, bool isFeed, bool optional, EnergyKind kind);

    COBIA::CapePortType portType() const override { return COBIA::CapePortType::energy; }
    EnergyKind kind() const noexcept { return kind_; }

    /// Forgets which values an earlier run was given.
    void prepare() override;
    /// Warns of each value that the script left out. Nothing happens without a connection.
    void finish() override;
    /// A new EnergyObject on a new view.
    PyRef scriptObject() override;
    /// The kind, too: each asks the same of what is connected.
    void takeOver(const Port& other) override;

    // What the script has given. EnergyObject marks it.

    void markWork() noexcept { workGiven_ = true; }
    void markTemperatureRange() noexcept { temperatureRangeGiven_ = true; }
    void markAxisFrequency() noexcept { axisFrequencyGiven_ = true; }

    // ICapeCollection: the parameters that energy streams have, as specifications. One set for all ports.

    COBIA::Ref<COBIA::ICapeInterface> itemByIndex(COBIA::CapeInteger index) const;
    COBIA::Ref<COBIA::ICapeInterface> itemByName(const std::string& name) const;
    COBIA::CapeInteger count() const;

private:
    /// Throws cape_open_error unless the object is a collection with the parameter "work".
    void checkConnection(COBIA::ICapeInterface* object) override;

    EnergyKind kind_;
    bool workGiven_ = false, temperatureRangeGiven_ = false, axisFrequencyGiven_ = false;
};

}  // namespace orvane
