#include "parameters/RealArrayParameter.h"

#include "engine/Conversion.h"
#include "parameters/Dimensionality.h"
#include "parameters/NumberText.h"

namespace orvane {

using COBIA::CapeInteger;

RealArrayParameter::RealArrayParameter(ParameterOwner& owner, const ParameterDeclaration& declaration)
    : Offering(owner, declaration, std::get<RealArrayValues>(declaration.values).initial),
      values_(std::get<RealArrayValues>(declaration.values)),
      dimensionality_(declaration.dimensionality),
      unit_(unitText(dimensionality_)) {}

std::vector<CapeInteger> RealArrayParameter::size() const {
    return {static_cast<CapeInteger>(current().size())};
}

double RealArrayParameter::elementValue(Position position) const { return current()[indexAt(position)]; }

void RealArrayParameter::setElementValue(Position position, double value) {
    requireInput();
    const std::size_t index = indexAt(position);
    if (const std::string reason = refusalOfElement(value); !reason.empty())
        throw COBIA::StringException(reason);
    std::vector<double> changed = current();
    changed[index] = value;
    store(std::move(changed));
}

COBIA::Verdict RealArrayParameter::validateElement(Position position, double value) const {
    if (!isInput()) return {false, cannotValidateOutput};
    indexAt(position);
    return verdict(refusalOfElement(value));
}

PyRef RealArrayParameter::scriptValue() const { return toPython(current()); }

std::string RealArrayParameter::refusal(std::span<const double> value) const {
    if (value.empty()) return isOptional() ? "" : "Value must be specified";
    if (values_.length >= 1 && value.size() != static_cast<std::size_t>(values_.length))
        return "Invalid size";
    for (const double element : value)
        if (std::string reason = refusalOfElement(element); !reason.empty()) return reason;
    return {};
}

std::string RealArrayParameter::refusalOfElement(double value) const {
    if (std::isnan(value)) return isOptional() ? "" : "All elements must be specified";
    if (value < values_.min) return "Element value is below minimum value of " + numberText(values_.min);
    if (value > values_.max) return "Element value is above maximum value of " + numberText(values_.max);
    return {};
}

std::vector<double> RealArrayParameter::resetTo() const {
    return std::vector<double>(static_cast<std::size_t>(std::max(values_.length, 0)),
                               values_.elementStandard);
}

std::vector<double> RealArrayParameter::fromScript(PyObject* object) const {
    return readRealList("value", object);
}

bool RealArrayParameter::sameDefinition(const Parameter& other) const {
    return sameDimensionality(dimensionality_, static_cast<const RealArrayParameter&>(other).dimensionality_);
}

void RealArrayParameter::takeDefinition(const Parameter& other) {
    const auto& array = static_cast<const RealArrayParameter&>(other);
    values_ = array.values_;
    dimensionality_ = array.dimensionality_;
    unit_ = array.unit_;
}

std::size_t RealArrayParameter::indexAt(Position position) const {
    if (position.size() != 1 || position[0] < 0 || static_cast<std::size_t>(position[0]) >= current().size())
        throw COBIA::cape_open_error(COBIA::noSuchItem);
    return static_cast<std::size_t>(position[0]);
}

}  // namespace orvane
