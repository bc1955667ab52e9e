#include "streams/CapeEnergyObject_1_2.h"

#include "streams/EnergyPort.h"

namespace orvane {

using namespace COBIA;

std::unique_ptr<CapeEnergyObject> makeEnergyView(CapeOpenVersion version, EnergyPort& port, PortOwner& owner,
                                                 ICapeInterface* object) {
    if (version != CapeOpenVersion::v1_2) throw StringException("Unsupported CAPE-OPEN version");
    return forPort(port.name(), [&] { return std::make_unique<CapeEnergyObject_1_2>(port, owner, object); });
}

CapeEnergyObject_1_2::CapeEnergyObject_1_2(EnergyPort& port, PortOwner& owner, ICapeInterface* object)
    : owner_(&owner), port_(Ref<EnergyPort>::share(&port)), object_(Ref<ICapeInterface>::share(object)) {
    const auto collection = query<ICapeCollection>(object);
    if (!collection) throw StringException("object does not implement ICapeCollection");
    work_ = HostParameter(collection, "work");
    if (!work_.isThere()) throw StringException("parameter 'work' not found");
    if (port.kind() == EnergyKind::thermal) {
        temperatureLow_ = HostParameter(collection, "temperatureLow");
        temperatureHigh_ = HostParameter(collection, "temperatureHigh");
    }
    if (port.kind() == EnergyKind::axle) axisFrequency_ = HostParameter(collection, "axisFrequency");
    owner.addHolder(*this);
}

CapeEnergyObject_1_2::~CapeEnergyObject_1_2() {
    if (owner_) owner_->removeHolder(*this);
}

void CapeEnergyObject_1_2::releaseHostObjects() noexcept {
    owner_ = nullptr;
    port_ = nullptr;
    object_ = nullptr;
    work_ = temperatureLow_ = temperatureHigh_ = axisFrequency_ = HostParameter();
}

EnergyPort& CapeEnergyObject_1_2::port() {
    if (!port_) throw StringException("not initialized");
    return *port_;
}

double CapeEnergyObject_1_2::work() {
    return forPort(port().name(), [&] { return work_.value(); });
}

void CapeEnergyObject_1_2::setWork(double work) {
    forPort(port().name(), [&] { work_.setValue(work); });
}

TemperatureRange CapeEnergyObject_1_2::temperatureRange() {
    return forPort(port().name(), [&] {
        return TemperatureRange{temperatureLow_.value(), temperatureHigh_.value()};
    });
}

void CapeEnergyObject_1_2::setTemperatureRange(TemperatureRange range) {
    forPort(port().name(), [&] {
        const double before = temperatureLow_.value();
        temperatureLow_.setValue(range.low);
        try {
            temperatureHigh_.setValue(range.high);
        }
        catch (const std::exception&) {
            try {
                temperatureLow_.setValue(before);
            }
            catch (const std::exception&) {
                // The host took a value and does not take back the one before: what it refused first is what to tell.
            }
            throw;
        }
    });
}

double CapeEnergyObject_1_2::axisFrequency() {
    return forPort(port().name(), [&] { return axisFrequency_.value(); });
}

void CapeEnergyObject_1_2::setAxisFrequency(double frequency) {
    forPort(port().name(), [&] { axisFrequency_.setValue(frequency); });
}

std::string CapeEnergyObject_1_2::streamName() {
    port();
    const auto identification = query<ICapeIdentification>(object_);
    if (!identification) throw StringException("information stream does not implement ICapeIdentification");
    return text<&ICapeIdentification::Table::getComponentName>(identification.get());
}

}  // namespace orvane
