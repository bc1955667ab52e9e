// Finds the temperature or pressure at which a feed has a given vapour fraction.
// Not here: the equations and their solution nearby (QualityLine), the form of the answer (PengRobinsonModel).
#pragma once

#include "package/PhaseSearch.h"
#include "package/QualityLine.h"
#include "package/Target.h"

#include <optional>
#include <string>

namespace orvane::package {

/// Phases of one mole of feed of n compounds, all fractions above zero, at a temperature or a pressure and a
/// vapour fraction. First from Wilson's ratios straight to the state; where that does not lead to the branch wanted,
/// or to a state that other phases beat, along the whole line of this vapour fraction from low pressure to the
/// critical point, on which all its states stand.
class VaporFractionFlash {
public:
    /// mixture and feed live longer than this. target: a vapour fraction.
    VaporFractionFlash(const MixtureParameters& mixture, Variable given, double value, const double* feed,
                       Target target);

    /// False when no state of the branch was found: then complaint() tells what was found instead. Throws
    /// PackageError when a pure compound has no saturation there.
    bool run();
    std::string complaint() const;

    double temperature() const { return isotherm_->temperature; }
    double pressure() const { return pressure_; }
    const PhasePair& pair() const { return pair_; }
    /// Empty for a pure compound.
    const std::optional<PhaseSearch>& phases() const { return search_; }
    int evaluations() const { return evaluations_; }

private:
    void pureCompound();
    bool accept(QualityLine& line);
    bool trace(Variable start, double startValue, double direction);
    bool solveFrom(QualityLine line, const QualityLine::State& guess);

    const MixtureParameters& mixture_;
    Variable given_;
    double value_;
    const double* feed_;
    Target target_;
    std::optional<Isotherm> isotherm_;
    double pressure_ = 0;
    PhasePair pair_;
    std::optional<PhaseSearch> search_;
    std::string found_;  // states that were not the answer, for the message
    int evaluations_ = 0;
};

}  // namespace orvane::package
