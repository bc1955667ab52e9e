// A 32-bit integer with bounds. -2147483648 is: not specified.
#pragma once

#include "parameters/TypedParameter.h"

namespace orvane {

class IntegerParameter
    : public COBIA::Offering<IntegerParameter, TypedParameter<COBIA::CapeInteger>,
                             COBIA::IntegerParameterAdapter, COBIA::IntegerParameterSpecificationAdapter> {
public:
    /// The declaration's values must be IntegerValues; initial, default and bounds are taken as they are.
    IntegerParameter(ParameterOwner& owner, const ParameterDeclaration& declaration);

    COBIA::CapeInteger value() const noexcept { return current(); }
    COBIA::CapeInteger defaultValue() const noexcept { return values_.standard; }
    COBIA::CapeInteger lowerBound() const noexcept { return values_.min; }
    COBIA::CapeInteger upperBound() const noexcept { return values_.max; }

    ParameterTypeCode typeCode() const noexcept override { return ParameterTypeCode::integer; }
    const char* typeName() const noexcept override { return "integer"; }
    PyRef scriptValue() const override;

protected:
    std::string refusal(COBIA::CapeInteger value) const override;
    COBIA::CapeInteger resetTo() const override { return values_.standard; }
    COBIA::CapeInteger fromScript(PyObject* object) const override;
    void takeDefinition(const Parameter& other) override;

private:
    IntegerValues values_;
};

}  // namespace orvane
