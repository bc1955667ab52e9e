#include "unit/CompoundCheck.h"

#include "cobia/Text.h"
#include "thermo/MaterialPort.h"

#include <algorithm>

namespace orvane {
namespace {

bool sameCompounds(const CompoundList& a, const CompoundList& b) {
    return std::equal(a.identifiers.begin(), a.identifiers.end(), b.identifiers.begin(), b.identifiers.end(),
                      COBIA::equalIgnoringCase);
}

}  // namespace

std::optional<std::string> checkConnections(std::span<const COBIA::Ref<Port>> ports, bool allowInconsistent) {
    std::optional<CompoundList> reference;
    std::string referenceName;
    for (const COBIA::Ref<Port>& port : ports) {
        const std::string name = port->name();
        if (!port->isConnected()) {
            if (port->isOptional()) continue;
            return "Port '" + name + "' is not connected";
        }
        auto* material = dynamic_cast<MaterialPort*>(port.get());
        if (allowInconsistent || !material) continue;
        CompoundList compounds = material->compoundList();
        if (!compounds.consistent())
            return "inconsistent compound data from material object connected to port '" + name + "'";
        if (compounds.identifiers.empty())
            return "material object connected to port '" + name + "' contains no compounds";
        if (!reference) {
            reference = std::move(compounds);
            referenceName = name;
        } else if (!sameCompounds(compounds, *reference)) {
            return "material objects connected to ports '" + name + "' and '" + referenceName +
                   "' do not have same compounds";
        }
    }
    return std::nullopt;
}

}  // namespace orvane
