// The arguments of create_phase_equilibrium, which has two forms: by position, and by keyword.
#pragma once

#include "thermo/FlashCondition.h"

#include <Python.h>

namespace orvane {

/// Throws StringException with the rule that the arguments break, and PythonErrorSet for a value that is no
/// number.
FlashSpecification readEquilibriumArguments(PyObject* arguments, PyObject* keywords, std::size_t compounds);

}  // namespace orvane
