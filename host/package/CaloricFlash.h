// Finds the temperature and phases of a feed at a pressure and an enthalpy or entropy.
// Not here: the phases at a temperature (PhaseSearch), the form of the answer (PengRobinsonModel).
#pragma once

#include "package/PhaseSearch.h"
#include "package/Target.h"

#include <cstddef>
#include <optional>

namespace orvane::package {

/// Phases of one mole of feed of n compounds, all fractions above zero, at a pressure and a molar enthalpy or
/// entropy. First the temperature at which the feed in one phase would have it; if that is not the answer,
/// Newton's method on the amounts and the temperature together, which is at home where the temperature hardly
/// moves while the feed boils; and around both a bracket of temperatures that shrinks until one of them ends
/// in the answer.
class CaloricFlash {
public:
    /// mixture and feed live longer than this. target: an enthalpy or an entropy.
    CaloricFlash(const MixtureParameters& mixture, double pressure, const double* feed, Target target);

    /// Throws PackageError when no temperature between 1 K and 20000 K gives the target, or the solver does
    /// not converge: with the temperatures and values nearest to it.
    void run();

    double temperature() const { return isotherm_->temperature; }
    const PhaseSearch& phases() const { return *search_; }
    /// The phases, where there are two: for a pure compound they do not come from phases().
    bool twoPhases() const { return two_; }
    const PhasePair& pair() const { return pair_; }
    int evaluations() const { return evaluations_; }

private:
    /// A temperature at which the phases are known and do not have the target.
    struct Bound {
        double temperature = 0;
        bool known = false;
        double difference = 0;  ///< value less target
        bool two = false;
        bool liquids = false;  ///< two of them, one refused or left out
        double vaporAmount = 0;
        CompoundArray lnK;    ///< of two phases
        CompoundArray lnPhi;  ///< of one phase
    };

    void setTemperature(double temperature);
    double difference(const CubicPhase& feedPhase) const;
    double difference(const PhasePair& pair) const;
    double slope(const CubicPhase& feedPhase) const;
    double tolerance() const;
    double onePhaseTemperature();
    double searchAt(double temperature, const double* lnK, Bound& bound);
    bool solvePair(Root vaporRoot, Root liquidRoot, double& firstStep);
    bool acceptPair();
    bool bridge(const Bound& low, const Bound& high);
    void pureCompound();

    const MixtureParameters& mixture_;
    double pressure_;
    const double* feed_;
    Quantity quantity_;
    double target_;
    std::size_t n_;
    std::optional<Isotherm> isotherm_;  // at the temperature at hand, with the ideal gas feed at it:
    double idealValue_ = 0;             // enthalpy, or entropy without that of mixing
    double idealHeatCapacity_ = 0;
    std::optional<PhaseSearch> search_;
    PhasePair pair_;
    bool two_ = false;
    int evaluations_ = 0;
};

}  // namespace orvane::package
