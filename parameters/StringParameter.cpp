#include "parameters/StringParameter.h"

#include "engine/Conversion.h"

namespace orvane {

using COBIA::StringException;

StringParameter::StringParameter(ParameterOwner& owner, const ParameterDeclaration& declaration)
    : Offering(owner, declaration, std::get<StringValues>(declaration.values).initial),
      values_(std::get<StringValues>(declaration.values)) {}

std::string StringParameter::defaultValue() const {
    if (values_.standard.empty()) throw StringException("no default value");
    return values_.standard;
}

std::vector<std::string> StringParameter::optionList() const {
    if (values_.options.empty()) throw StringException("no option list");
    return values_.options;
}

std::string StringParameter::refusal(const std::string& value) const {
    const auto& options = values_.options;
    if (value.empty()) return isOptional() ? "" : "Value must be specified";
    if (options.empty() || std::ranges::find(options, value) != options.end()) return {};
    if (options.size() >= 6) return "value is not valid";

    std::string text = "value must be one of ";
    for (std::size_t i = 0; i < options.size(); ++i) {
        if (i > 0) text += i + 1 == options.size() ? " or " : ", ";
        text += '"' + options[i] + '"';
    }
    return text;
}

PyRef StringParameter::scriptValue() const { return toPython(current()); }

std::string StringParameter::fromScript(PyObject* object) const { return toText(object); }

void StringParameter::takeDefinition(const Parameter& other) {
    values_ = static_cast<const StringParameter&>(other).values_;
}

}  // namespace orvane
