// A compound as a phase of its own, the start of a search for a phase that is mostly this compound.
// Not here: the search (StabilityTest).
#pragma once

#include "package/CubicPhase.h"

#include <cstddef>

namespace orvane::package {

/// The pure compound i in its dense root: what starts as the vapour of a compound that could condense stays a vapour,
/// and the liquid would be missed.
class DensePure {
public:
    /// The isotherm lives longer than this. Throws PackageError as CubicRoots does.
    DensePure(const Isotherm& isotherm, double pressure, std::size_t i);

    double lnPhi, reducedVolume;

    /// lnPhi of each compound at infinite dilution in this one.
    void infiniteDilution(double* out) const;

private:
    const Isotherm& isotherm_;
    std::size_t i_;
    double lnU_, perCovolume_, perAttraction_;
};

}  // namespace orvane::package
