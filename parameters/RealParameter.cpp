#include "parameters/RealParameter.h"

#include "engine/Conversion.h"
#include "parameters/Dimensionality.h"
#include "parameters/NumberText.h"

namespace orvane {

RealParameter::RealParameter(ParameterOwner& owner, const ParameterDeclaration& declaration)
    : Offering(owner, declaration, std::get<RealValues>(declaration.values).initial),
      values_(std::get<RealValues>(declaration.values)),
      dimensionality_(declaration.dimensionality),
      unit_(unitText(dimensionality_)) {}

std::string RealParameter::refusal(double value) const {
    if (std::isnan(value)) return isOptional() ? "" : "Value must be specified";
    if (value < values_.min) return "Value is below minimum value of " + numberText(values_.min);
    if (value > values_.max) return "Value is above maximum value of " + numberText(values_.max);
    return {};
}

PyRef RealParameter::scriptValue() const { return toPython(value()); }

double RealParameter::fromScript(PyObject* object) const { return toDouble(object); }

bool RealParameter::sameDefinition(const Parameter& other) const {
    return sameDimensionality(dimensionality_, static_cast<const RealParameter&>(other).dimensionality_);
}

void RealParameter::takeDefinition(const Parameter& other) {
    const auto& real = static_cast<const RealParameter&>(other);
    values_ = real.values_;
    dimensionality_ = real.dimensionality_;
    unit_ = real.unit_;
}

}  // namespace orvane
