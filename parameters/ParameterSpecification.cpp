#include "parameters/ParameterSpecification.h"

#include <limits>

namespace orvane {

using namespace COBIA;

ParameterSpecification::ParameterSpecification(std::string name, const std::string& portName,
                                               std::vector<double> dimensionality)
    : name_(std::move(name)),
      description_("Parameter descriptor for " + portName + " port"),
      dimensionality_(std::move(dimensionality)) {}

double ParameterSpecification::defaultValue() const { throw StringException("No default value"); }

double ParameterSpecification::lowerBound() const noexcept {
    return std::numeric_limits<double>::quiet_NaN();
}

double ParameterSpecification::upperBound() const noexcept {
    return std::numeric_limits<double>::quiet_NaN();
}

void ParameterSpecification::setName(const std::string&) { throw cape_open_error(denied); }

void ParameterSpecification::setDescription(const std::string&) { throw cape_open_error(denied); }

std::string ParameterSpecification::errorSource() const {
    return "Orvane Operation parameter specification \"" + name_ + "\"";
}

}  // namespace orvane
