// Mole fractions as a script gives them.
#pragma once

#include <Python.h>

#include <cstddef>
#include <vector>

namespace orvane {

/// The fractions of an iterable with one number for each compound. They are not normalised, and their signs
/// are not looked at. Throws StringException when there is no value (null or None), when it does not convert,
/// when a fraction is NaN or infinite, and when their sum is further than 0.01 from 1.
std::vector<double> readComposition(PyObject* value, std::size_t compounds);

}  // namespace orvane
