// How people write the unit of a quantity: "W", "K", "J/mol", from the exponents of the SI base units.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::host {

/// The exponents of m, kg, s, A, K, mol, cd and rad, in this order; missing ones at the end are 0, a ninth
/// entry marks a difference and does not show. Empty for a quantity without unit. Combinations without a name
/// of their own are written out: "m2 kg s-3".
std::string unitText(std::span<const double> dimensionality);

/// The exponents of a unit that unitText gives a name to, or of a base unit; empty for another text.
std::optional<std::vector<double>> exponentsOf(std::string_view unit);

/// Whether the exponents are those of a power, W.
bool isPower(std::span<const double> dimensionality);

}  // namespace orvane::host
