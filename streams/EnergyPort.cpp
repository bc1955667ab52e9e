#include "streams/EnergyPort.h"

#include "streams/EnergyObject.h"
#include "streams/HostParameter.h"

namespace orvane {

using namespace COBIA;

namespace {

std::string describe(EnergyKind kind, bool isFeed) {
    return std::string("Orvane Operation ") +
           (kind == EnergyKind::axle      ? "Axle "
            : kind == EnergyKind::thermal ? "Thermal "
                                          : "") +
           "Energy " + (isFeed ? "Feed" : "Product") + " Port";
}

const ParameterSpecifications& specifications() {
    // Never destroyed: a host may hold an item for as long as the process lives.
    static const ParameterSpecifications& all = *new ParameterSpecifications({
        makeObject<ParameterSpecification>("work", "energy", std::vector<double>{2, 1, -3}),
        makeObject<ParameterSpecification>("temperatureLow", "energy", std::vector<double>{0, 0, 0, 0, 1}),
        makeObject<ParameterSpecification>("temperatureHigh", "energy", std::vector<double>{0, 0, 0, 0, 1}),
        makeObject<ParameterSpecification>("axisFrequency", "energy", std::vector<double>{0, 0, -1}),
    });
    return all;
}

}  // namespace

EnergyPort::EnergyPort(PortOwner& owner, const std::string& name, bool isFeed, bool optional, EnergyKind kind)
    : Offering(owner, name, describe(kind, isFeed), isFeed, optional), kind_(kind) {}

void EnergyPort::checkConnection(ICapeInterface* object) {
    const auto collection = query<ICapeCollection>(object);
    if (!collection) throw cape_open_error("Not a collection object");
    if (!findItem(collection, "work")) throw cape_open_error("Energy stream does not contain work parameter");
}

void EnergyPort::prepare() { workGiven_ = temperatureRangeGiven_ = axisFrequencyGiven_ = false; }

void EnergyPort::finish() {
    if (!isConnected()) return;
    const auto require = [&](bool given, const char* what) {
        if (!given) owner().warn(std::string(what) + " not specified for port '" + name() + "'");
    };
    require(workGiven_, "work");
    if (kind_ == EnergyKind::thermal) require(temperatureRangeGiven_, "temperature_range");
    if (kind_ == EnergyKind::axle) require(axisFrequencyGiven_, "axis_frequency");
}

PyRef EnergyPort::scriptObject() {
    const Ref<ICapeInterface> object = connectedObject();
    if (!object) return {};
    return makeEnergyObject(makeEnergyView(CapeOpenVersion::v1_2, *this, owner(), object.get()), kind_,
                            isFeed());
}

void EnergyPort::takeOver(const Port& other) {
    Port::takeOver(other);
    kind_ = dynamic_cast<const EnergyPort&>(other).kind_;
}

Ref<ICapeInterface> EnergyPort::itemByIndex(CapeInteger index) const {
    return specifications().itemByIndex(index);
}

Ref<ICapeInterface> EnergyPort::itemByName(const std::string& name) const {
    return specifications().itemByName(name);
}

CapeInteger EnergyPort::count() const { return specifications().count(); }

}  // namespace orvane
