// The energy object of a CAPE-OPEN 1.2 host: a collection of real parameters.
// Threads: the calculating thread only.
#pragma once

#include "streams/CapeEnergyObject.h"
#include "streams/HostParameter.h"

namespace orvane {

class CapeEnergyObject_1_2 final : public CapeEnergyObject, private HostObjectHolder {
public:
    /// Throws StringException: "parameter 'work' not found" and its like, without the port's name.
    CapeEnergyObject_1_2(EnergyPort& port, PortOwner& owner, COBIA::ICapeInterface* object);
    CapeEnergyObject_1_2(const CapeEnergyObject_1_2&) = delete;
    CapeEnergyObject_1_2& operator=(const CapeEnergyObject_1_2&) = delete;
    ~CapeEnergyObject_1_2() override;

    double work() override;
    void setWork(double work) override;
    TemperatureRange temperatureRange() override;
    void setTemperatureRange(TemperatureRange range) override;
    double axisFrequency() override;
    void setAxisFrequency(double frequency) override;
    std::string streamName() override;

    EnergyPort& port() override;

private:
    void releaseHostObjects() noexcept override;

    PortOwner* owner_;
    COBIA::Ref<EnergyPort> port_;
    COBIA::Ref<COBIA::ICapeInterface> object_;
    HostParameter work_;
    HostParameter temperatureLow_, temperatureHigh_;  // thermal ports
    HostParameter axisFrequency_;                     // axle ports
};

}  // namespace orvane
