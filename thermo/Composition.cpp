#include "thermo/Composition.h"

#include "cobia/Error.h"
#include "engine/Conversion.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace orvane {

using COBIA::StringException;

namespace {

/// Most compositions are lists of floats, which are read without an iterator. Empty when the value is
/// something else.
std::vector<double> readFloats(PyObject* value) {
    std::vector<double> result;
    if (!PyList_CheckExact(value)) return result;
    const Py_ssize_t size = PyList_GET_SIZE(value);
    result.reserve(static_cast<std::size_t>(size));
    for (Py_ssize_t i = 0; i < size; ++i) {
        PyObject* const element = PyList_GET_ITEM(value, i);
        if (!PyFloat_CheckExact(element)) return {};
        result.push_back(PyFloat_AS_DOUBLE(element));
    }
    return result;
}

}  // namespace

std::vector<double> readComposition(PyObject* value, std::size_t compounds) {
    if (!value || value == Py_None) throw StringException("uninitialized composition");
    std::vector<double> x = readFloats(value);
    if (x.empty()) x = readRealList("composition", value);
    if (x.size() != compounds)
        throw StringException("number of elements in composition does not match number of compounds");
    if (!std::ranges::all_of(x, [](double fraction) { return std::isfinite(fraction); }))
        throw StringException("one or more elements of composition are unspecified (not a number)");
    if (std::abs(1 - std::accumulate(x.begin(), x.end(), 0.0)) > 0.01)
        throw StringException("sum(composition) is not unity");
    return x;
}

}  // namespace orvane
