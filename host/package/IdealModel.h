// Ideal gas and ideal liquid.
// Not here: the search for a state by other conditions than temperature and vapour fraction (TargetSearch).
#pragma once

#include "package/Model.h"

#include <vector>

namespace orvane::package {

/// An ideal gas above an ideal solution of incompressible liquids. The fugacity of a compound in the liquid is
///     f_i = x_i Ps_i exp(v_i (P - Ps_i) / (R T)),
/// with the vapour pressure Ps_i of VaporPressure and a constant volume v_i, that of the saturated liquid at the
/// normal boiling point (LiquidVolume). The exponential is Poynting's factor: without it Raoult's law and the
/// volume of the liquid contradict each other. Enthalpy, entropy and heat capacity of the liquid are the
/// derivatives of its Gibbs energy, so the heat of vaporisation is that of Clausius and Clapeyron with these
/// volumes. Phases, their names and the temperature or pressure of a vapour fraction are always unique: there is
/// no critical point, no retrograde solution and no second liquid.
class IdealModel final : public Model {
public:
    /// One to maxCompounds compounds. Throws PackageError, naming the compound and the constant that it lacks,
    /// or a compound that comes twice.
    explicit IdealModel(std::vector<Compound> compounds);

    std::string_view name() const override { return "ideal"; }
    const std::vector<Compound>& compounds() const override { return compounds_; }

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
    void check(double temperature, double pressure, std::span<const double> x) const;
    /// ln K_i = ln of the fugacity coefficients of the liquid.
    void lnRatios(double temperature, double pressure, double* lnK) const;
    Equilibrium at(Variable given, double value, Target target, std::span<const double> feed) const;
    Equilibrium atVaporFraction(Variable given, double value, double vaporFraction,
                                std::span<const double> feed) const;

    std::vector<Compound> compounds_;
    std::vector<double> liquidVolume_;  // m3/mol
};

}  // namespace orvane::package
