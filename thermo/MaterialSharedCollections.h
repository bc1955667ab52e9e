// The lists of compounds and phase types of a Material. Only the Material holds them: their elements hold the
// shared data, and lists in there would keep each other alive.
#pragma once

#include "engine/PyRef.h"
#include "thermo/MaterialSharedData.h"

namespace orvane {

class MaterialSharedCollections {
public:
    explicit MaterialSharedCollections(SharedDataRef shared) : shared_(std::move(shared)) {}

    /// A new list of the same Compound objects at each call.
    PyRef compounds();
    /// A new list of the same PhaseType objects at each call.
    PyRef phaseTypes();

private:
    SharedDataRef shared_;
    PyRef compounds_, phaseTypes_;  // lists, empty until they are needed
};

}  // namespace orvane
