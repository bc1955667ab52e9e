// The unit's private_data as bytes, to be saved with it.
#pragma once

#include "engine/ScriptedUnit.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orvane {

/// The pickled dictionary; nothing when it is empty or cannot be pickled, of which the unit is warned.
std::vector<std::uint8_t> storePrivateData(ScriptedUnit& unit);

/// Replaces the dictionary by the pickled one. When that fails the unit is warned and keeps what it had: false.
bool restorePrivateData(std::span<const std::uint8_t> stored, ScriptedUnit& unit);

}  // namespace orvane
