#include "unit/MakePort.h"

#include "streams/EnergyPort.h"
#include "streams/InformationPort.h"
#include "thermo/MaterialPort.h"

namespace orvane {

using namespace COBIA;

Ref<Port> makePort(PortOwner& owner, const PortDeclaration& port) {
    switch (port.type) {
    case PortTypeCode::material:
        return makeObject<MaterialPort>(owner, port.name, port.isFeed, port.optional);
    case PortTypeCode::energy:
        return makeObject<EnergyPort>(owner, port.name, port.isFeed, port.optional, port.energyKind);
    case PortTypeCode::information:
        return makeObject<InformationPort>(owner, port.name, port.dataName, port.isFeed, port.optional,
                                           port.dimensionality);
    }
    throw StringException() << "port '" << port.name << "' has an unknown type";
}

}  // namespace orvane
