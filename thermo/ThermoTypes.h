// The scripting types of this folder, for the ordered list that the engine makes ready.
#pragma once

#include <Python.h>

namespace orvane {

extern PyTypeObject materialSharedDataType;
extern PyTypeObject materialSharedCollectionsType;
extern PyTypeObject materialType;
extern PyTypeObject phaseTypeType;
extern PyTypeObject phaseType;
extern PyTypeObject phasePairType;
extern PyTypeObject phaseEquilibriumType;
extern PyTypeObject compoundType;

}  // namespace orvane
