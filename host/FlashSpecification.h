// What the texts mean by which a unit asks for a flash.
// Not here: the flash (PropertyPackage), the values of its conditions (MaterialObject).
#pragma once

#include "cobia/Wire.h"
#include "host/Property.h"
#include "host/PropertyPackage.h"

#include <optional>

namespace orvane::host {

/// A specification is property, basis and phase: "overall", or for the vapour fraction the label of the
/// vapour. Throws StringException, naming what is wrong.
ConditionKind conditionKind(COBIA::TextsView specification);

/// The property whose value the condition takes: of the mixture, for the vapour fraction of the vapour.
Property propertyOf(ConditionKind kind);

/// Which solution is meant where there are several; "unspecified" is the normal one. Empty for an unknown text.
std::optional<package::Solution> solutionType(COBIA::CapeTextView text);

/// Whether there is a choice of solutions with these conditions: one of them is the vapour fraction.
bool hasSolutionTypes(ConditionKind first, ConditionKind second);

}  // namespace orvane::host
