// A real number with a dimension and bounds. NaN is: not specified, and for a bound: none.
#pragma once

#include "parameters/TypedParameter.h"

#include <span>

namespace orvane {

class RealParameter
    : public COBIA::Offering<RealParameter, TypedParameter<double>, COBIA::RealParameterAdapter,
                             COBIA::RealParameterSpecificationAdapter> {
public:
    /// The declaration's values must be RealValues; initial, default and bounds are taken as they are.
    RealParameter(ParameterOwner& owner, const ParameterDeclaration& declaration);

    double value() const noexcept { return current(); }
    double defaultValue() const noexcept { return values_.standard; }
    double lowerBound() const noexcept { return values_.min; }
    double upperBound() const noexcept { return values_.max; }
    std::span<const double> dimensionality() const noexcept { return dimensionality_; }

    ParameterTypeCode typeCode() const noexcept override { return ParameterTypeCode::real; }
    const char* typeName() const noexcept override { return "real"; }
    std::string_view unit() const noexcept override { return unit_; }
    PyRef scriptValue() const override;

protected:
    std::string refusal(double value) const override;
    double resetTo() const override { return values_.standard; }
    double fromScript(PyObject* object) const override;
    bool sameDefinition(const Parameter& other) const override;
    void takeDefinition(const Parameter& other) override;

private:
    RealValues values_;
    std::vector<double> dimensionality_;
    std::string unit_;
};

}  // namespace orvane
