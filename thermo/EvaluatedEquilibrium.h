// An equilibrium that has been read, with its phases as the objects that scripts see: behind a
// PhaseEquilibrium, and behind the Material of a feed.
#pragma once

#include "thermo/MaterialSharedData.h"
#include "thermo/PropertyRequest.h"

namespace orvane {

class EvaluatedEquilibrium {
public:
    EvaluatedEquilibrium(SharedDataRef shared, const Equilibrium& equilibrium);

    /// The list of Phase objects itself, which a script may have changed.
    PyRef phases() const { return phases_; }
    double vaporFraction() const { return vaporFraction_; }
    /// Those of the first phase; at equilibrium all have the same.
    double temperature() const { return temperature_; }
    double pressure() const { return pressure_; }

    /// The sums over the phases, each at its present state, of phase fraction times the phase's values.
    /// Throws StringException when a phase has no fraction, temperature or pressure, and when the phases'
    /// results do not fit.
    PropertyValues overallProperties(PropertyNames names) const;
    /// J/mol, in the same way.
    double enthalpy() const;
    /// True when vapour and something else are present, and one of them has exactly nothing of the mixture.
    bool isOnVaporBoundary() const;

private:
    /// Calls `take` with each Phase of the list.
    template <class Take> void forEachPhase(Take&& take) const;

    SharedDataRef shared_;
    PyRef phases_;
    double vaporFraction_, temperature_, pressure_;
};

}  // namespace orvane
