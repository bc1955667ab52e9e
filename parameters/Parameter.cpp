#include "parameters/Parameter.h"

namespace orvane {

using namespace COBIA;

Parameter::Parameter(ParameterOwner& owner, const ParameterDeclaration& declaration)
    : owner_(&owner),
      name_(declaration.name),
      description_(declaration.description),
      isInput_(declaration.isInput),
      isOptional_(declaration.optional) {}

CapeParamMode Parameter::mode() const { return isInput_ ? CapeParamMode::input : CapeParamMode::output; }

CapeParamType Parameter::type() const {
    switch (typeCode()) {
    case ParameterTypeCode::real: return CapeParamType::real;
    case ParameterTypeCode::integer: return CapeParamType::integer;
    case ParameterTypeCode::string: return CapeParamType::string;
    case ParameterTypeCode::boolean: return CapeParamType::boolean;
    case ParameterTypeCode::arrayReal: return CapeParamType::arrayReal;
    }
    throw StringException() << "parameter '" << name_ << "' has an unknown type";
}

Verdict Parameter::validate() {
    std::string reason = isInput_ ? refusalOfCurrent() : std::string();
    status_ = reason.empty() ? CapeValidationStatus::valid : CapeValidationStatus::invalid;
    return {reason.empty(), std::move(reason)};
}

void Parameter::reset() {
    requireInput();
    resetValue();
}

void Parameter::setName(const std::string&) { throw cape_open_error(denied); }

void Parameter::setDescription(const std::string&) { throw cape_open_error(denied); }

bool Parameter::sameKind(const Parameter& other) const {
    return typeCode() == other.typeCode() && sameDefinition(other);
}

void Parameter::takeOver(const Parameter& other) {
    if (typeCode() != other.typeCode()) throw StringException("incorrect type");
    takeDefinition(other);
    name_ = other.name_;
    description_ = other.description_;
    isInput_ = other.isInput_;
    isOptional_ = other.isOptional_;
    status_ = CapeValidationStatus::notValidated;
}

void Parameter::changed() {
    status_ = CapeValidationStatus::notValidated;
    if (owner_) owner_->parameterChanged();
}

void Parameter::requireInput() const {
    if (!isInput_) throw cape_open_error(denied);
}

std::string Parameter::errorSource() const { return "Orvane Operation parameter \"" + name_ + "\""; }

}  // namespace orvane
