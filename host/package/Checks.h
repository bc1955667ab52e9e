// Whether what a caller gives is a state: the same checks and messages for all models.
// Not here: what they do with it (Model).
#pragma once

#include "package/Compound.h"
#include "package/Target.h"

#include <span>

namespace orvane::package {

/// Throw PackageError, with the value, unless a temperature or pressure is finite and positive.
void checkTemperature(double temperature);
void checkPressure(double pressure);

/// Throws PackageError unless there are one to maxCompounds compounds, each once, with a molecular weight, critical
/// constants and an acentric factor; it names the compound and the constant that it lacks.
void checkCompounds(std::span<const Compound> compounds);

/// Throws PackageError, with the compound and the value, unless x holds a finite fraction of at least 0 for each
/// compound and their sum is within 1e-9 of 1.
void checkComposition(std::span<const Compound> compounds, std::span<const double> x);

/// Throws PackageError, with the value, for a number that no state has.
void checkTarget(const Target& target);

}  // namespace orvane::package
