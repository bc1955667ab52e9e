#include "engine/ParameterArguments.h"

#include "cobia/Error.h"
#include "engine/Enumerations.h"
#include "engine/PortArguments.h"

#include <algorithm>
#include <climits>
#include <limits>

namespace orvane {
namespace {

using COBIA::StringException;

constexpr int undefinedInteger = INT_MIN;
constexpr int noLength = INT_MIN;  // what a length that was not given looks like

/// The keyword arguments of add_parameter as they came; None counts as absent.
struct Arguments {
    const char* name = nullptr;
    PyObject* type = nullptr;
    PyObject* mode = nullptr;
    PyObject* standard = nullptr;
    PyObject* initial = nullptr;
    PyObject* min = nullptr;
    PyObject* max = nullptr;
    PyObject* dimension = nullptr;
    int difference = 0;
    int optional = 0;
    const char* description = nullptr;
    PyObject* options = nullptr;
    int length = noLength;

    bool hasLength() const { return length != noLength; }
};

bool isGiven(PyObject* argument) { return argument && argument != Py_None; }

void require(bool holds, const char* rule) {
    if (!holds) throw StringException(rule);
}

/// The converted argument, or `absent`; a failed conversion is the rule's failure.
template <class Value, class Convert>
Value readOr(Value absent, PyObject* argument, const char* rule, Convert&& convert) {
    if (!isGiven(argument)) return absent;
    try {
        return convert(argument);
    }
    catch (const PythonErrorSet&) {
        PyErr_Clear();
        throw StringException(rule);
    }
}

double readReal(double absent, PyObject* argument, const char* rule) {
    return readOr(absent, argument, rule, toDouble);
}

int readInteger(int absent, PyObject* argument, const char* rule) {
    return readOr(absent, argument, rule, [](PyObject* value) {
        const int result = PyLong_AsInt(value);
        if (result == -1 && PyErr_Occurred()) throw PythonErrorSet();
        return result;
    });
}

std::string readString(const std::string& absent, PyObject* argument, const char* rule) {
    return readOr(absent, argument, rule, toText);
}

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

RealValues readRealValues(const Arguments& given) {
    require(!isGiven(given.options), "Cannot specify options for a real parameter");
    require(!given.hasLength(), "Cannot specify length for a real parameter");
    RealValues values{};
    values.standard = readReal(nan, given.standard, "Invalid default value.");
    values.initial = readReal(values.standard, given.initial, "Invalid initial value.");
    values.min = readReal(nan, given.min, "Invalid minimum value.");
    values.max = readReal(nan, given.max, "Invalid maximum value.");
    return values;
}

IntegerValues readIntegerValues(const Arguments& given) {
    require(!isGiven(given.options), "Cannot specify options for an integer parameter");
    require(!given.hasLength(), "Cannot specify length for an integer parameter");
    require(!given.optional, "For integer parameters, optional=True is not supported.");
    require(!given.difference, "For integer parameters, difference=True is not allowed.");
    require(!isGiven(given.dimension), "For integer parameters, dimension cannot be specified.");
    IntegerValues values{};
    values.standard = readInteger(0, given.standard, "Invalid default value.");
    values.initial = readInteger(values.standard, given.initial, "Invalid initial value.");
    values.min = readInteger(undefinedInteger, given.min, "Invalid minimum value.");
    values.max = readInteger(INT_MAX, given.max, "Invalid maximum value.");
    return values;
}

StringValues readStringValues(const Arguments& given) {
    require(!given.difference, "For string parameters, difference=True is not allowed.");
    require(!given.hasLength(), "Cannot specify length for a string parameter");
    require(!isGiven(given.dimension), "For string parameters, dimension cannot be specified.");
    require(!isGiven(given.min), "For string parameters, min cannot be specified.");
    require(!isGiven(given.max), "For string parameters, max cannot be specified.");
    StringValues values;
    values.standard = readString({}, given.standard, "Invalid default value.");
    values.initial = readString(values.standard, given.initial, "Invalid initial value.");
    if (isGiven(given.options)) {
        values.options = readStringList("options", given.options).texts;
        require(!values.options.empty(), "If an option list is specified, it cannot be empty.");
        require(
            !isGiven(given.standard) || std::find(values.options.begin(), values.options.end(),
                                                  values.standard) != values.options.end(),
            "If an option list and default value are specified, default value must appear in option list.");
    }
    return values;
}

BooleanValues readBooleanValues(const Arguments& given) {
    require(!isGiven(given.options), "Cannot specify options for a boolean parameter");
    require(!given.hasLength(), "Cannot specify length for a boolean parameter");
    require(!given.optional, "For boolean parameters, optional=True is not supported.");
    require(!given.difference, "For boolean parameters, difference=True is not allowed.");
    require(!isGiven(given.dimension), "For boolean parameters, dimension cannot be specified.");
    require(!isGiven(given.min), "For boolean parameters, min cannot be specified.");
    require(!isGiven(given.max), "For boolean parameters, max cannot be specified.");
    const bool standard = readOr(false, given.standard, "Invalid default value.", toBool);
    // `initial` only says that there is an initial value; the value is the default's.
    return {standard, standard};
}

RealArrayValues readRealArrayValues(const Arguments& given) {
    require(!isGiven(given.options), "Cannot specify options for a real array parameter");
    require(!given.hasLength() || given.length >= 1, "Value of length must be positive");
    RealArrayValues values{};
    values.length = given.hasLength() ? given.length : 0;
    values.elementStandard = readReal(nan, given.standard, "Invalid default value.");
    if (isGiven(given.initial))
        values.initial = readRealList("initial", given.initial);
    else
        values.initial.assign(static_cast<std::size_t>(values.length), values.elementStandard);
    values.min = readReal(nan, given.min, "Invalid minimum value.");
    values.max = readReal(nan, given.max, "Invalid maximum value.");
    return values;
}

std::string composedDescription(ParameterTypeCode type, bool isInput, bool hasOptions) {
    const char* kind = "Real";
    if (type == ParameterTypeCode::integer) kind = "Integer";
    if (type == ParameterTypeCode::boolean) kind = "Boolean";
    if (type == ParameterTypeCode::string) kind = hasOptions ? "Option" : "String";
    return std::string("Orvane Operation ") + kind + (isInput ? " Input" : " Output") + " Parameter";
}

}  // namespace

ParameterDeclaration readParameterArguments(const ScriptedUnit& unit, PyObject* arguments,
                                            PyObject* keywords) {
    static const char* const names[] = {"name",        "type",    "mode",      "default",    "initial",
                                        "min",         "max",     "dimension", "difference", "optional",
                                        "description", "options", "length",    nullptr};
    Arguments given;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "sOO|$OOOOOppzOi:add_parameter",
                                     const_cast<char**>(names), &given.name, &given.type, &given.mode,
                                     &given.standard, &given.initial, &given.min, &given.max,
                                     &given.dimension, &given.difference, &given.optional, &given.description,
                                     &given.options, &given.length))
        throw PythonErrorSet();
    const auto* type = contentIf<EnumerationConstant>(given.type, parameterTypeType);
    if (!type) throw ArgumentTypeError("type must be ParameterType");
    const auto* mode = contentIf<EnumerationConstant>(given.mode, parameterModeType);
    if (!mode) throw ArgumentTypeError("mode must be ParameterMode");

    ParameterDeclaration parameter;
    parameter.name = given.name;
    parameter.isInput = mode->code != 0;
    parameter.optional = given.optional != 0;
    const auto code = static_cast<ParameterTypeCode>(type->code);
    switch (code) {
    case ParameterTypeCode::real: parameter.values = readRealValues(given); break;
    case ParameterTypeCode::integer: parameter.values = readIntegerValues(given); break;
    case ParameterTypeCode::string: parameter.values = readStringValues(given); break;
    case ParameterTypeCode::boolean: parameter.values = readBooleanValues(given); break;
    case ParameterTypeCode::arrayReal: parameter.values = readRealArrayValues(given); break;
    default: throw StringException("Invalid parameter type.");
    }
    if (code == ParameterTypeCode::real || code == ParameterTypeCode::arrayReal)
        parameter.dimensionality = readDimension(unit, given.dimension, given.difference != 0);
    parameter.description = given.description && *given.description
                                ? given.description
                                : composedDescription(code, parameter.isInput, isGiven(given.options));
    return parameter;
}

}  // namespace orvane
