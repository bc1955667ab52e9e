#include "engine/Enumerations.h"

#include "engine/ScriptedUnit.h"

#include <initializer_list>

namespace orvane {
namespace {

struct Named {
    const char* name;
    int code;
};

void addAll(PyTypeObject& type, std::initializer_list<Named> constants) {
    for (const auto& [name, code] : constants)
        addConstant(type, name, createObject<EnumerationConstant>(type, code));
}

int code(PortTypeCode type) { return static_cast<int>(type); }
int code(ParameterTypeCode type) { return static_cast<int>(type); }

}  // namespace

PyTypeObject portTypeType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.PortType",
    .tp_basicsize = sizeof(PyObjectOf<EnumerationConstant>),
    .tp_dealloc = destroy<EnumerationConstant>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "PortType\n\nPass a PortType as type argument when creating a port.\n\n"
              "Defined PortTypes are MATERIAL, ENERGY and INFORMATION.",
    .tp_new = refuse<"A PortType cannot be created. Use unit.PortType.MATERIAL, unit.PortType.ENERGY or "
                     "unit.PortType.INFORMATION.">,
};

PyTypeObject portDirectionType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.PortDirection",
    .tp_basicsize = sizeof(PyObjectOf<EnumerationConstant>),
    .tp_dealloc = destroy<EnumerationConstant>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "PortDirection\n\nPass a PortDirection as direction argument when creating a port.\n\n"
              "Defined PortDirections are FEED and PRODUCT.",
    .tp_new = refuse<
        "A PortDirection cannot be created. Use unit.PortDirection.FEED or unit.PortDirection.PRODUCT.">,
};

PyTypeObject parameterTypeType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.ParameterType",
    .tp_basicsize = sizeof(PyObjectOf<EnumerationConstant>),
    .tp_dealloc = destroy<EnumerationConstant>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "ParameterType\n\nPass a ParameterType as type argument when creating a Parameter.\n\n"
              "Defined ParameterTypes are REAL, INTEGER, BOOLEAN, STRING and ARRAY_REAL.",
    .tp_new =
        refuse<"A ParameterType cannot be created. Use unit.ParameterType.REAL, unit.ParameterType.INTEGER, "
               "unit.ParameterType.BOOLEAN, unit.ParameterType.STRING, unit.ParameterType.ARRAY_REAL.">,
};

PyTypeObject parameterModeType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.ParameterMode",
    .tp_basicsize = sizeof(PyObjectOf<EnumerationConstant>),
    .tp_dealloc = destroy<EnumerationConstant>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "ParameterMode\n\nPass a ParameterMode as mode argument when creating a Parameter.\n\n"
              "Defined ParameterModes are INPUT and OUTPUT.",
    .tp_new = refuse<
        "A ParameterMode cannot be created. Use unit.ParameterMode.INPUT or unit.ParameterMode.OUTPUT.">,
};

void addPortTypes() {
    addAll(portTypeType, {{"MATERIAL", code(PortTypeCode::material)},
                          {"ENERGY", code(PortTypeCode::energy)},
                          {"INFORMATION", code(PortTypeCode::information)}});
}

void addPortDirections() { addAll(portDirectionType, {{"FEED", 1}, {"PRODUCT", 0}}); }

void addParameterTypes() {
    addAll(parameterTypeType, {{"REAL", code(ParameterTypeCode::real)},
                               {"INTEGER", code(ParameterTypeCode::integer)},
                               {"BOOLEAN", code(ParameterTypeCode::boolean)},
                               {"STRING", code(ParameterTypeCode::string)},
                               {"ARRAY_REAL", code(ParameterTypeCode::arrayReal)}});
}

void addParameterModes() { addAll(parameterModeType, {{"INPUT", 1}, {"OUTPUT", 0}}); }

}  // namespace orvane
