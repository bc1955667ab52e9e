// The arguments of unit.add_parameter and the rules that bind them, in the order in which they are checked.
#pragma once

#include "engine/ScriptedUnit.h"

namespace orvane {

/// Throws ArgumentTypeError, StringException with the broken rule, or PythonErrorSet.
ParameterDeclaration readParameterArguments(const ScriptedUnit& unit, PyObject* arguments,
                                            PyObject* keywords);

}  // namespace orvane
