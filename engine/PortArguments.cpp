#include "engine/PortArguments.h"

#include "cobia/Error.h"
#include "engine/Enumerations.h"

namespace orvane {
namespace {

using COBIA::StringException;

/// The keyword arguments of add_port as they came.
struct Arguments {
    const char* name = nullptr;
    PyObject* type = nullptr;
    PyObject* direction = nullptr;
    int optional = 0;
    const char* dataName = nullptr;
    PyObject* dimension = nullptr;
    int difference = 0;
    int axle = 0;
    int thermal = 0;

    bool hasDimension() const { return dimension && dimension != Py_None; }
};

void refuseIf(bool given, const char* keyword, const char* portType) {
    if (given) throw StringException() << keyword << " cannot be specified for " << portType << " port";
}

}  // namespace

std::vector<double> readDimension(const ScriptedUnit& unit, PyObject* dimension, bool difference) {
    std::vector<double> exponents;
    if (dimension && dimension != Py_None) {
        const std::vector<double>* given = unit.exponents(dimension);
        if (!given) throw StringException("Invalid dimension: not a Dimension.");
        exponents = *given;
    }
    if (difference) {
        exponents.resize(9);
        exponents[8] = 1;
    }
    return exponents;
}

PortDeclaration readPortArguments(const ScriptedUnit& unit, PyObject* arguments, PyObject* keywords) {
    static const char* const names[] = {"name",      "type",       "direction", "optional", "data_name",
                                        "dimension", "difference", "axle",      "thermal",  nullptr};
    Arguments given;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "sOO|$pzOppp:add_port", const_cast<char**>(names),
                                     &given.name, &given.type, &given.direction, &given.optional,
                                     &given.dataName, &given.dimension, &given.difference, &given.axle,
                                     &given.thermal))
        throw PythonErrorSet();
    const auto* type = contentIf<EnumerationConstant>(given.type, portTypeType);
    if (!type) throw ArgumentTypeError("type must be PortType");
    const auto* direction = contentIf<EnumerationConstant>(given.direction, portDirectionType);
    if (!direction) throw ArgumentTypeError("direction must be PortDirection");

    PortDeclaration port;
    port.name = given.name;
    port.type = static_cast<PortTypeCode>(type->code);
    port.isFeed = direction->code != 0;
    port.optional = given.optional != 0;
    switch (port.type) {
    case PortTypeCode::material:
        refuseIf(given.dataName, "data_name", "material");
        refuseIf(given.hasDimension(), "dimension", "material");
        refuseIf(given.difference, "difference", "material");
        refuseIf(given.axle, "axle", "material");
        refuseIf(given.thermal, "thermal", "material");
        break;
    case PortTypeCode::energy:
        refuseIf(given.dataName, "data_name", "energy");
        refuseIf(given.hasDimension(), "dimension", "energy");
        refuseIf(given.difference, "difference", "energy");
        if (given.axle && given.thermal)
            throw StringException("energy port can be axle or thermal, but not both");
        port.energyKind = given.axle      ? EnergyKind::axle
                          : given.thermal ? EnergyKind::thermal
                                          : EnergyKind::plain;
        break;
    case PortTypeCode::information:
        refuseIf(given.axle, "axle", "information");
        refuseIf(given.thermal, "thermal", "information");
        port.dimensionality = readDimension(unit, given.dimension, given.difference != 0);
        port.dataName = given.dataName ? given.dataName : given.name;
        break;
    default: throw StringException("Invalid port type, must be MATERIAL=0, ENERGY=1, or INFORMATION=2");
    }
    return port;
}

}  // namespace orvane
