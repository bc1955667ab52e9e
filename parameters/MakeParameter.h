// From a script's declaration to the parameter of its type.
#pragma once

#include "parameters/Parameter.h"

namespace orvane {

/// The type follows from the declaration's values. The owner must outlive the parameter or disown it.
COBIA::Ref<Parameter> makeParameter(ParameterOwner& owner, const ParameterDeclaration& declaration);

}  // namespace orvane
