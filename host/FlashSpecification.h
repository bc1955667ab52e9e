// What the texts mean by which a unit asks for a flash.
// Not here: the flash (PropertyPackage), the values of its conditions (MaterialObject).
#pragma once

#include "cobia/Wire.h"
#include "host/Property.h"
#include "host/PropertyPackage.h"

namespace orvane::host {

/// A specification is property, basis and phase: "overall", or for the vapour fraction the label of the
/// vapour. Throws StringException, naming what is wrong.
ConditionKind conditionKind(COBIA::TextsView specification);

/// The property whose value the condition takes: of the mixture, for the vapour fraction of the vapour.
Property propertyOf(ConditionKind kind);

/// Whether the package finds this solution where there are several: it knows of one, the normal one.
bool isSolutionType(COBIA::CapeTextView text);

}  // namespace orvane::host
