// The unit's private_data as bytes, to be saved with it.
#pragma once

#include "engine/ScriptedUnit.h"
#include "engine/ScriptModule.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orvane {

/// The pickled dictionary; nothing when it is empty or cannot be pickled, of which the unit is warned. What refers to
/// classes or functions of the script itself cannot be: another session makes the module anew, under another name.
std::vector<std::uint8_t> storePrivateData(ScriptedUnit& unit, const ScriptModule& script);

/// Replaces the dictionary by the pickled one. When that fails the unit is warned and keeps what it had: false.
bool restorePrivateData(std::span<const std::uint8_t> stored, ScriptedUnit& unit);

}  // namespace orvane
