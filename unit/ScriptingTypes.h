// The ordered list of all scripting types.
#pragma once

#include "engine/ScriptType.h"

#include <span>

namespace orvane {

/// In the order in which the engine makes them ready.
std::span<const ScriptingType> allScriptingTypes();

}  // namespace orvane
