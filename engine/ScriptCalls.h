// Calling a function of a unit's script: what the function is given, and what becomes of what it prints, warns of,
// returns and raises.
// Not here: loading the script (ScriptModule), when to call what (the unit).
#pragma once

#include "engine/ScriptedUnit.h"
#include "engine/ScriptModule.h"

#include <string>

namespace orvane {

enum class FunctionKind { configure = 0, validate = 1, calculate = 2, named = 3 };

/// What a call leaves behind: what was printed, and what went wrong, empty when all is well. UTF-8.
struct CallTexts {
    std::string output;
    std::string errors;
};

/// Calls one of the three functions that have their own kind. A script without Validate passes it, and a module that stands for the script need
/// not have a Configure of its own: such functions are not `required`. Throws only when the interpreter did not start.
CallTexts callScriptFunction(ScriptedUnit& unit, const ScriptModule& script, FunctionKind kind,
                             bool required = true);

/// A picture to be drawn by a function of the script.
struct ImageCall {
    std::string function;
    std::string path;   // of the PNG file to write
    int width, height;  // pixels
};

/// Calls function(unit, path, width, height). Throws only when the interpreter did not start.
CallTexts callImageFunction(ScriptedUnit& unit, const ScriptModule& script, const ImageCall& image);

}  // namespace orvane
