// Dimensionality vectors: the exponents of m, kg, s, A, K, mol, cd and rad, and a ninth entry of 1 for a difference of
// temperatures or pressures. A vector may be shorter than nine; what it leaves out counts as zero.
// Not here: what scripts build them with (Dimension).
#pragma once

#include <span>
#include <string>

namespace orvane {

/// The unit that users see: "J/mol" where the unit has a name, otherwise "kg/m**3"; empty without dimension.
/// The difference entry is not shown. More than nine entries give "<error>".
std::string unitText(std::span<const double> dimensionality);

/// Common entries agree within 1e-8, and what one vector has more is exactly zero. NaN agrees with nothing.
bool sameDimensionality(std::span<const double> a, std::span<const double> b);

}  // namespace orvane
