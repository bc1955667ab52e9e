// The Peng-Robinson equation of state as a model: phase equilibrium of a feed by any two conditions.
// Not here: the search for a new phase (StabilityTest), the composition of two phases (TwoPhaseSplit), the
// solvers for other conditions (CaloricFlash, VaporFractionFlash, TargetSearch).
#pragma once

#include "package/Model.h"

namespace orvane::package {

/// Vapour-liquid equilibrium over an equation of state.
///
/// Naming of a single phase. Where the cubic has three roots, by the one that is stable. Where it has one, by
/// the critical point of the equation of state for a pure compound with the a and b of the mixture:
/// - below its temperature (where a/(b R T) has the critical value): Liquid if denser than its volume,
///   3.951 b;
/// - above: Liquid if the volume is below 1.75 b, which is the density of a compressed liquid and a choice
///   of ours, or if the stability test met a less dense phase that nearly forms, so that a liquid above its
///   bubble pressure keeps its name;
/// - Vapor otherwise.
///
/// Second liquids. The package has one liquid. A feed that would form a vapour and two liquids is answered by
/// the vapour-liquid split of lowest Gibbs energy, with a warning that describes the liquid left out. A feed
/// that forms two liquids and no vapour is refused with LiquidLiquidSplit. Where a second liquid begins to be
/// left out the enthalpy, entropy and volume of the answer jump; a flash to a value within the jump is refused,
/// with the conditions on both of its sides.
class PengRobinsonModel final : public Model {
public:
    explicit PengRobinsonModel(PengRobinson equation);

    const PengRobinson& equation() const { return equation_; }

    std::string_view name() const override { return "Peng-Robinson"; }
    const std::vector<Compound>& compounds() const override { return equation_.compounds(); }

    PhaseProperties properties(PhaseKind kind, double temperature, double pressure,
                               std::span<const double> x) const override;
    std::vector<double> lnPhi(PhaseKind kind, double temperature, double pressure,
                              std::span<const double> x) const override;
    std::vector<double> lnPhiByTemperature(PhaseKind kind, double temperature, double pressure,
                                           std::span<const double> x) const override;
    std::vector<double> lnPhiByPressure(PhaseKind kind, double temperature, double pressure,
                                        std::span<const double> x) const override;
    std::vector<double> lnPhiByAmount(PhaseKind kind, double temperature, double pressure,
                                      std::span<const double> x) const override;

    Equilibrium phasesAt(double temperature, double pressure, std::span<const double> feed) const override;
    Equilibrium atPressure(double pressure, Target target, std::span<const double> feed) const override;
    Equilibrium atTemperature(double temperature, Target target, std::span<const double> feed) const override;

private:
    Equilibrium caloric(double pressure, Target target, std::span<const double> feed) const;
    Equilibrium atVaporFraction(Variable given, double value, Target target,
                                std::span<const double> feed) const;

    PengRobinson equation_;
};

}  // namespace orvane::package
