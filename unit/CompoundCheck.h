// Whether the streams that are connected to a unit speak of the same compounds.
#pragma once

#include "streams/Port.h"

#include <optional>
#include <span>
#include <string>

namespace orvane {

/// The first thing that is wrong with what is connected, as a message; nothing when all is well: ports that are not
/// optional are connected, and material ports, unless `allowInconsistent`, list the same compounds in the same order
/// without regard to case. Throws what the host's material objects fail with.
std::optional<std::string> checkConnections(std::span<const COBIA::Ref<Port>> ports, bool allowInconsistent);

}  // namespace orvane
