// The scripting type capeopen_unit.Dimension: scripts multiply, divide and raise the base units METER, KILOGRAM, ...
// Not here: the unit's text and the comparison (Dimensionality).
// Threads: with the interpreter lock held.
#pragma once

#include "engine/PyRef.h"

#include <utility>
#include <vector>

namespace orvane {

/// Immutable; every operator gives a new object.
class Dimension {
public:
    explicit Dimension(std::vector<double> exponents) noexcept : exponents_(std::move(exponents)) {}

    const std::vector<double>& exponents() const noexcept { return exponents_; }

    // The operators, as the interpreter calls them: either operand may be of another type. Throw ArgumentTypeError.

    static PyRef multiply(PyObject* a, PyObject* b);
    static PyRef divide(PyObject* a, PyObject* b);
    static PyRef power(PyObject* base, PyObject* exponent, PyObject* modulus);

private:
    std::vector<double> exponents_;
};

extern PyTypeObject dimensionType;

/// Puts the eight base units into the type, once it is ready.
void addDimensionConstants();

/// The exponents of a Dimension object, which owns them; null when the object is none.
const std::vector<double>* dimensionExponents(PyObject* object) noexcept;

}  // namespace orvane
