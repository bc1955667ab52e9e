#include "parameters/IntegerParameter.h"

#include "engine/Conversion.h"

namespace orvane {

using COBIA::CapeInteger;

IntegerParameter::IntegerParameter(ParameterOwner& owner, const ParameterDeclaration& declaration)
    : Offering(owner, declaration, std::get<IntegerValues>(declaration.values).initial),
      values_(std::get<IntegerValues>(declaration.values)) {}

std::string IntegerParameter::refusal(CapeInteger value) const {
    if (value == COBIA::undefinedInteger) return "Value must be specified";
    if (value < values_.min) return "Value is below minimum value of " + std::to_string(values_.min);
    if (value > values_.max) return "Value is above maximum value of " + std::to_string(values_.max);
    return {};
}

PyRef IntegerParameter::scriptValue() const { return toPython(value()); }

CapeInteger IntegerParameter::fromScript(PyObject* object) const {
    const int value = PyLong_AsInt(object);
    if (value == -1 && PyErr_Occurred()) throw PythonErrorSet();
    return value;
}

void IntegerParameter::takeDefinition(const Parameter& other) {
    values_ = static_cast<const IntegerParameter&>(other).values_;
}

}  // namespace orvane
