#include "host/StreamParameter.h"

#include <cmath>
#include <fmt/format.h>
#include <limits>

namespace orvane::host {

using namespace COBIA;

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

}  // namespace

Verdict StreamParameter::validateValue(double value) const {
    if (!std::isfinite(value)) return {false, fmt::format("{} is no amount", value)};
    if (value < definition_.lowerBound)
        return {false, fmt::format("{} is below {}, the least value", value, definition_.lowerBound)};
    return {true, {}};
}

void StreamParameter::setValue(double value) {
    if (isFixed_) throw StringException("it is that of a feed, which the case gives");
    if (const Verdict verdict = validateValue(value); !verdict.valid) throw StringException(verdict.message);
    definition_.value = value;
}

double StreamParameter::defaultValue() const { return none; }

double StreamParameter::upperBound() const { return none; }

CapeParamMode StreamParameter::mode() const {
    return isFixed_ ? CapeParamMode::output : CapeParamMode::input;
}

void StreamParameter::reset() { throw StringException("it has no default value"); }

}  // namespace orvane::host
