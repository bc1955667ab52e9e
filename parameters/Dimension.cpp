#include "parameters/Dimension.h"

#include "engine/ScriptType.h"

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

constexpr const char* expectedDimension = "Expected a Dimension";

const Dimension* asDimension(PyObject* object) noexcept {
    return contentIf<Dimension>(object, dimensionType);
}

PyRef makeDimension(std::vector<double> exponents) {
    return createObject<Dimension>(dimensionType, std::move(exponents));
}

/// a + scale * b, as long as the longer of the two.
PyRef combine(const Dimension& a, const Dimension& b, double scale) {
    std::vector<double> result = a.exponents();
    result.resize(std::max(result.size(), b.exponents().size()));
    for (std::size_t i = 0; i < b.exponents().size(); ++i) result[i] += scale * b.exponents()[i];
    return makeDimension(std::move(result));
}

PyRef scaled(const Dimension& dimension, double factor) {
    std::vector<double> result = dimension.exponents();
    for (double& exponent : result) exponent *= factor;
    return makeDimension(std::move(result));
}

/// What an object is as a number. One that is none gives the error of an operand that is no Dimension; what is no
/// ordinary error, such as an interrupt, stays.
double numberOperand(PyObject* object) {
    const double number = PyFloat_AsDouble(object);
    if (number == -1.0 && PyErr_Occurred()) {
        if (!PyErr_ExceptionMatches(PyExc_Exception)) throw PythonErrorSet();
        PyErr_Clear();
        throw ArgumentTypeError(expectedDimension);
    }
    return number;
}

template <auto operation, class... Operands> PyObject* operatorOf(Operands*... operands) noexcept {
    return pythonGuard([&] { return operation(operands...).detach(); });
}

PyNumberMethods operators = {
    .nb_multiply = operatorOf<Dimension::multiply, PyObject, PyObject>,
    .nb_power = operatorOf<Dimension::power, PyObject, PyObject, PyObject>,
    .nb_true_divide = operatorOf<Dimension::divide, PyObject, PyObject>,
};

}  // namespace

PyRef Dimension::multiply(PyObject* a, PyObject* b) {
    const Dimension* left = asDimension(a);
    const Dimension* right = asDimension(b);
    if (!left || !right) throw ArgumentTypeError(expectedDimension);
    return combine(*left, *right, 1);
}

PyRef Dimension::divide(PyObject* a, PyObject* b) {
    const Dimension* divisor = asDimension(b);
    if (!divisor) throw ArgumentTypeError(expectedDimension);
    if (const Dimension* dividend = asDimension(a)) return combine(*dividend, *divisor, -1);
    if (!(std::abs(numberOperand(a) - 1) <= 1e-12))
        throw ArgumentTypeError("Only the number 1 can be divided by a dimension");
    return scaled(*divisor, -1);
}

PyRef Dimension::power(PyObject* base, PyObject* exponent, PyObject* modulus) {
    const Dimension* dimension = asDimension(base);
    if (!dimension) throw ArgumentTypeError(expectedDimension);
    const double factor = toDouble(exponent);
    if (modulus != Py_None) throw ArgumentTypeError("Ternary power not supported for Dimension");
    return scaled(*dimension, factor);
}

PyTypeObject dimensionType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.Dimension",
    .tp_basicsize = sizeof(PyObjectOf<Dimension>),
    .tp_dealloc = destroy<Dimension>,
    .tp_as_number = &operators,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "Dimension\n\n"
              "Pass a Dimension as dimensionality argument when creating real typed parameters.\n\n"
              "Basic dimensions are METER, KILOGRAM, SECOND, AMPERE, KELVIN, MOLE, CANDELA, RADIAN.\n\n"
              "Dimension objects can be combined to create new Dimensions. Examples:\n\n"
              "JOULE=unit.Dimension.KILOGRAM*unit.Dimension.METER**2/unit.Dimension.SECOND**2\n"
              "WATT=JOULE/unit.Dimension.SECOND\n"
              "HERTZ=1/unit.Dimension.SECOND\n\n"
              "Real typed parameters take an optional additional argument difference=True that should be "
              "specified for "
              "temperature differences and pressure differences, e.g. pressure drop.",
    .tp_new =
        refuse<"A Dimension cannot be created. Use base units unit.Dimension.METER, unit.Dimension.KILOGRAM, "
               "unit.Dimension.SECOND, unit.Dimension.AMPERE, unit.Dimension.KELVIN, unit.Dimension.MOLE, "
               "unit.Dimension.CANDELA, and unit.Dimension.RADIAN or derived units.">,
};

void addDimensionConstants() {
    constexpr const char* names[] = {"METER",  "KILOGRAM", "SECOND",  "AMPERE",
                                     "KELVIN", "MOLE",     "CANDELA", "RADIAN"};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        std::vector<double> exponents(i + 1);
        exponents[i] = 1;
        addConstant(dimensionType, names[i], makeDimension(std::move(exponents)));
    }
}

const std::vector<double>* dimensionExponents(PyObject* object) noexcept {
    const Dimension* dimension = asDimension(object);
    return dimension ? &dimension->exponents() : nullptr;
}

}  // namespace orvane
