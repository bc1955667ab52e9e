// What a unit declares of a parameter: type, default, bounds, options.
#pragma once

#include "host/UnitParameter.h"

#include <string>
#include <vector>

namespace orvane::host {

struct ParameterInfo {
    std::string name;
    std::string description;
    std::string type;  ///< "real", "integer", "boolean", "string", "real array"
    std::string unit;
    bool isInput = false;
    /// Empty where there is none; for arrays those of an element.
    ParameterValue standard, lowerBound, upperBound;
    ParameterValue value;
    std::vector<std::string> options;  ///< of a text; none: any
};

/// Throws cape_open_error.
ParameterInfo parameterInfo(const UnitParameter& parameter);

}  // namespace orvane::host
