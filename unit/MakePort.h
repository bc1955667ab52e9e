// From a port's declaration to the port of its kind.
#pragma once

#include "engine/ScriptedUnit.h"
#include "streams/Port.h"

namespace orvane {

/// Throws StringException for an unknown type.
COBIA::Ref<Port> makePort(PortOwner& owner, const PortDeclaration& port);

}  // namespace orvane
