// A text, free or one of a list of options. The empty text is: not specified.
#pragma once

#include "parameters/TypedParameter.h"

namespace orvane {

class StringParameter
    : public COBIA::Offering<StringParameter, TypedParameter<std::string, const std::string&>,
                             COBIA::StringParameterAdapter, COBIA::StringParameterSpecificationAdapter> {
public:
    /// The declaration's values must be StringValues; initial and default are taken as they are.
    StringParameter(ParameterOwner& owner, const ParameterDeclaration& declaration);

    std::string value() const { return current(); }
    /// Throws StringException when there is none.
    std::string defaultValue() const;
    /// Throws StringException when there is none.
    std::vector<std::string> optionList() const;
    bool restrictedToList() const noexcept { return !values_.options.empty(); }

    ParameterTypeCode typeCode() const noexcept override { return ParameterTypeCode::string; }
    const char* typeName() const noexcept override { return "string"; }
    PyRef scriptValue() const override;

protected:
    std::string refusal(const std::string& value) const override;
    std::string resetTo() const override { return values_.standard; }
    std::string fromScript(PyObject* object) const override;
    void takeDefinition(const Parameter& other) override;

private:
    StringValues values_;
};

}  // namespace orvane
