// The rows of data/*.csv as tables.py writes them into C++ when the package is built.
// Not here: looking them up (CompoundTable, the only user).
#pragma once

#include "package/Compound.h"
#include "package/Interaction.h"

#include <vector>

namespace orvane::package {

std::vector<Compound> compoundRows();
std::vector<Interaction> interactionRows();

}  // namespace orvane::package
