// A list of real numbers with one dimension and bounds for its elements. The empty list is: not specified; so is an
// element that is NaN.
#pragma once

#include "parameters/TypedParameter.h"

#include <span>

namespace orvane {

class RealArrayParameter
    : public COBIA::Offering<RealArrayParameter, TypedParameter<std::vector<double>, std::span<const double>>,
                             COBIA::ArrayRealParameterAdapter, COBIA::ArrayRealParameterSpecificationAdapter,
                             COBIA::ArrayParameterAdapter, COBIA::ArrayParameterSpecificationAdapter> {
public:
    /// The index of an element, as the host gives it: one number.
    using Position = std::span<const COBIA::CapeInteger>;

    /// The declaration's values must be RealArrayValues; initial, default and bounds are taken as they are.
    RealArrayParameter(ParameterOwner& owner, const ParameterDeclaration& declaration);

    std::span<const double> value() const noexcept { return current(); }
    // Default and bounds of an element.
    double defaultValue() const noexcept { return values_.elementStandard; }
    double lowerBound() const noexcept { return values_.min; }
    double upperBound() const noexcept { return values_.max; }
    std::span<const double> dimensionality() const noexcept { return dimensionality_; }

    COBIA::CapeInteger numDimensions() const noexcept { return 1; }
    /// Of the current value.
    std::vector<COBIA::CapeInteger> size() const;

    // Elements. A position that is not one index into the current value: code 107.

    double elementValue(Position position) const;
    void setElementValue(Position position, double value);
    COBIA::Verdict validateElement(Position position, double value) const;

    ParameterTypeCode typeCode() const noexcept override { return ParameterTypeCode::arrayReal; }
    const char* typeName() const noexcept override { return "real[]"; }
    std::string_view unit() const noexcept override { return unit_; }
    PyRef scriptValue() const override;

protected:
    std::string refusal(std::span<const double> value) const override;
    std::vector<double> resetTo() const override;
    std::vector<double> fromScript(PyObject* object) const override;
    bool sameDefinition(const Parameter& other) const override;
    void takeDefinition(const Parameter& other) override;

private:
    std::string refusalOfElement(double value) const;
    std::size_t indexAt(Position position) const;

    RealArrayValues values_;
    std::vector<double> dimensionality_;
    std::string unit_;
};

}  // namespace orvane
