// The value of a parameter as JSON.
#pragma once

#include "host/UnitParameter.h"

#include <nlohmann/json.hpp>
#include <type_traits>
#include <variant>

namespace orvane::host {

/// Null for a value that is not given.
inline nlohmann::ordered_json parameterJson(const ParameterValue& value) {
    return std::visit(
        [](const auto& content) -> nlohmann::ordered_json {
            if constexpr (std::is_same_v<std::decay_t<decltype(content)>, std::monostate>)
                return nullptr;
            else
                return content;
        },
        value);
}

}  // namespace orvane::host
