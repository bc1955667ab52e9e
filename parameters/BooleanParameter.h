// True or false: always specified, and always valid.
#pragma once

#include "parameters/TypedParameter.h"

namespace orvane {

class BooleanParameter
    : public COBIA::Offering<BooleanParameter, TypedParameter<bool>, COBIA::BooleanParameterAdapter,
                             COBIA::BooleanParameterSpecificationAdapter> {
public:
    /// The declaration's values must be BooleanValues.
    BooleanParameter(ParameterOwner& owner, const ParameterDeclaration& declaration);

    bool value() const noexcept { return current(); }
    bool defaultValue() const noexcept { return default_; }
    /// Valid also for outputs, unlike all other types.
    COBIA::Verdict validateValue(bool) const { return {true, {}}; }

    ParameterTypeCode typeCode() const noexcept override { return ParameterTypeCode::boolean; }
    const char* typeName() const noexcept override { return "boolean"; }
    PyRef scriptValue() const override;

protected:
    std::string refusal(bool) const override { return {}; }
    bool resetTo() const override { return default_; }
    bool fromScript(PyObject* object) const override;
    void takeDefinition(const Parameter& other) override;

private:
    bool default_;
};

}  // namespace orvane
