// States in which a feed has a given vapour fraction: a line over temperature and pressure.
// Not here: which state of the line is wanted (VaporFractionFlash).
#pragma once

#include "package/CubicPhase.h"
#include "package/PhasePair.h"
#include "package/Target.h"

#include <array>
#include <cstddef>

namespace orvane::package {

/// A state on the line of constant vapour fraction of a feed of n compounds, all fractions above zero; a bubble
/// line for the fraction 0, a dew line for 1. The unknowns are ln K of each compound, ln T and ln P, and any one of
/// them may be kept: at temperature and pressure near the critical point, at a ln K there.
/// Source of the method: M. L. Michelsen, Fluid Phase Equilib. 4 (1980) 1-10.
class QualityLine {
public:
    using State = std::array<double, maxCompounds + 2>;

    /// mixture and feed live longer than this.
    QualityLine(const MixtureParameters& mixture, const double* feed, double vaporFraction);

    std::size_t temperatureIndex() const { return n_; }
    std::size_t pressureIndex() const { return n_ + 1; }
    std::size_t index(Variable variable) const { return variable == Variable::temperature ? n_ : n_ + 1; }

    State state{};  ///< ln K of each compound, ln T, ln P
    double temperature() const;
    double pressure() const;

    /// Sets a state near to the line at a temperature or pressure, by Wilson's ratios and then some successive
    /// substitutions. False when it leaves all bounds.
    bool start(Variable given, double value);

    /// Newton's method from the state at hand with one unknown kept. False, with the state undefined, when it
    /// does not converge or both phases become one. Where roots are three, the vapour takes the largest and the
    /// liquid the smallest when byName, both the stable one otherwise.
    bool correct(std::size_t kept, bool byName, int maxSteps = 25);

    /// Changes of all unknowns with the one kept, along the line. After correct().
    bool slopes(std::size_t kept, State& out);
    /// Changes of all unknowns with the vapour fraction, with one kept. After correct().
    bool byVaporFraction(std::size_t kept, State& out);

    /// Whether the vapour is the less dense phase.
    bool vaporIsLighter() const { return vapor_.reducedVolume() > liquid_.reducedVolume(); }
    double largestLnK() const;
    int steps() const { return steps_; }  ///< of the last correct()
    int evaluations() const { return evaluations_; }

    /// The phases at hand on an isotherm at temperature(), which lives longer than they.
    PhasePair pair(const Isotherm& isotherm) const;

private:
    static constexpr int maxRows = maxCompounds + 2;
    using Matrix = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, 0, maxRows, maxRows>;
    using Vector = Eigen::Matrix<double, Eigen::Dynamic, 1, 0, maxRows, 1>;

    void compose();
    void solvePhases(const Isotherm& isotherm, Root vaporRoot, Root liquidRoot);
    double residuals(Vector& out) const;
    void derivatives(Matrix& out) const;
    bool solveWithout(std::size_t kept, const Matrix& full, const Vector& right, Vector& out) const;

    const MixtureParameters& mixture_;
    const double* feed_;
    double vaporFraction_;
    std::size_t n_;
    CompoundArray x_, y_;  // sums 1 only at the solution
    double sumX_ = 1, sumY_ = 1;
    CompoundArray liquidShare_, vaporShare_;  // x and y over their sums
    CubicPhase vapor_, liquid_;
    Matrix matrix_;
    int steps_ = 0;
    int evaluations_ = 0;
};

}  // namespace orvane::package
