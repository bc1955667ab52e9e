// Bytes as text.
// Source: RFC 4648, section 4.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::host {

std::string toBase64(std::span<const std::uint8_t> bytes);

/// Empty for a text of another form.
std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text);

}  // namespace orvane::host
