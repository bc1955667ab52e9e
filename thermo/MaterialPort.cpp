#include "thermo/MaterialPort.h"

#include "cobia/Call.h"
#include "thermo/CapeMaterial.h"
#include "thermo/Material.h"

namespace orvane {

using namespace COBIA;

MaterialPort::MaterialPort(PortOwner& owner, std::string name, bool isFeed, bool optional)
    : Port(owner, std::move(name),
           std::string("Orvane Operation Material ") + (isFeed ? "Feed" : "Product") + " Port", isFeed,
           optional) {}

void MaterialPort::checkConnection(ICapeInterface* object) {
    if (!query<ICapeThermoMaterial>(object)) throw cape_open_error("Not a material object");
}

void MaterialPort::prepare() { specification_.reset(); }

void MaterialPort::finish() {
    if (!isConnected()) return;
    specification_.checkComplete(name(), [&](const std::string& problem) { owner().warn(problem); });
    material()->flashProduct();
}

PyRef MaterialPort::scriptObject() {
    if (!isConnected()) return {};
    specification_.clearCopy();
    return makeMaterialObject(material(), isFeed());
}

CompoundList MaterialPort::compoundList() { return material()->compounds(); }

std::unique_ptr<CapeMaterial> MaterialPort::material() {
    const Ref<ICapeInterface> object = connectedObject();
    if (!object) throw cape_open_error(nullPointer);
    return makeMaterial(CapeOpenVersion::v1_2, *this, owner(), object.get());
}

}  // namespace orvane
