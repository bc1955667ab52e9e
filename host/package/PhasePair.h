// Two phases that share one mole of feed, and how far they are from equilibrium.
// Not here: the way to equilibrium (TwoPhaseSplit at a temperature, CaloricSplit at an enthalpy or entropy).
#pragma once

#include "package/CubicPhase.h"
#include "package/MixtureParameters.h"
#include "package/RachfordRice.h"

#include <Eigen/Core>

namespace orvane::package {

/// Matrix and vector of one row per compound and one more, without memory of their own on the heap.
using SmallMatrix =
    Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, 0, maxCompounds + 1, maxCompounds + 1>;
using SmallVector = Eigen::Matrix<double, Eigen::Dynamic, 1, 0, maxCompounds + 1, 1>;

/// A vapour and a liquid of one mole of feed at a temperature and pressure. The vapour is the phase of larger
/// reduced volume once order() has been called; before that the names only tell two phases apart.
struct PhasePair {
    PhaseAmounts amounts;  ///< both kept, so that the lesser of each compound has its digits
    double vaporAmount = 0;
    double liquidAmount = 0;
    CompoundArray vaporComposition;
    CompoundArray liquidComposition;
    CubicPhase vapor;
    CubicPhase liquid;
    CompoundArray imbalance;  ///< ln of the fugacity of each compound in the vapour less that in the liquid
    double gibbs = 0;         ///< (G - sum z_i G_i of the ideal gas at the pressure) / R T
    double error = 0;         ///< largest imbalance of a compound whose mole fractions are both above 1e-250

    /// Solves both phases for the amounts. The roots are given where the phases are so nearly alike that both
    /// would have the same stable one.
    void evaluate(const Isotherm& isotherm, double pressure, Root vaporRoot = Root::stable,
                  Root liquidRoot = Root::stable);

    /// Adds `length` of a step to the vapour's amounts and takes it from the liquid's. Where that is much of
    /// an amount, it changes by the logarithm instead, at most by a factor of exp(5), and stays positive.
    void transfer(std::size_t n, const SmallVector& step, double length);

    /// sqrt(v_i l_i / z_i): in these units the second derivatives of the Gibbs energy are of order 1.
    void scale(std::size_t n, const double* feed, CompoundArray& out) const;

    /// Second derivatives of gibbs by the vapour's amounts in units of `scale`, into the first n rows and
    /// columns.
    void secondDerivatives(std::size_t n, const CompoundArray& scale, SmallMatrix& out) const;

    /// Names the phase of larger reduced volume the vapour.
    void order();

    /// Largest absolute ln K: what tells the phases apart.
    double distance(std::size_t n) const;
};

}  // namespace orvane::package
