#include "parameters/BooleanParameter.h"

#include "engine/Conversion.h"

namespace orvane {

BooleanParameter::BooleanParameter(ParameterOwner& owner, const ParameterDeclaration& declaration)
    : Offering(owner, declaration, std::get<BooleanValues>(declaration.values).initial),
      default_(std::get<BooleanValues>(declaration.values).standard) {}

PyRef BooleanParameter::scriptValue() const { return toPython(value()); }

bool BooleanParameter::fromScript(PyObject* object) const { return toBool(object); }

void BooleanParameter::takeDefinition(const Parameter& other) {
    default_ = static_cast<const BooleanParameter&>(other).default_;
}

}  // namespace orvane
