// Values as tables show them.
#pragma once

#include "host/UnitParameter.h"

#include <string>
#include <string_view>

namespace orvane::host {

/// What stands where nothing is known.
inline constexpr std::string_view unknownText = "-";

/// Seven significant digits: what an equation of state is good for, and enough to see a balance close.
std::string numberText(double value);

std::string valueText(const ParameterValue& value);

}  // namespace orvane::host
