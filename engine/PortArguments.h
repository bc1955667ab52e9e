// The arguments of unit.add_port and the rules that bind them, in the order in which they are checked.
#pragma once

#include "engine/ScriptedUnit.h"

namespace orvane {

/// Throws ArgumentTypeError, StringException with the broken rule, or PythonErrorSet.
PortDeclaration readPortArguments(const ScriptedUnit& unit, PyObject* arguments, PyObject* keywords);

/// The exponents of a dimension argument that may be absent (null or None: none), with the mark of a difference.
/// Throws StringException when it is no Dimension.
std::vector<double> readDimension(const ScriptedUnit& unit, PyObject* dimension, bool difference);

}  // namespace orvane
