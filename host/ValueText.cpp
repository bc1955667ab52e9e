#include "host/ValueText.h"

#include <cmath>
#include <fmt/format.h>

namespace orvane::host {

std::string numberText(double value) {
    return std::isnan(value) ? std::string(unknownText) : fmt::format("{:.7g}", value);
}

std::string valueText(const ParameterValue& value) {
    if (const auto* real = std::get_if<double>(&value)) return numberText(*real);
    if (const auto* integer = std::get_if<std::int32_t>(&value)) return std::to_string(*integer);
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? "true" : "false";
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* reals = std::get_if<std::vector<double>>(&value)) {
        std::string result;
        for (const double element : *reals) result += (result.empty() ? "" : ", ") + numberText(element);
        return "[" + result + "]";
    }
    return std::string(unknownText);
}

}  // namespace orvane::host
