// A thermodynamic model of a mixture: what the streams of a case ask for, whichever model it is.
// Not here: the models (PengRobinsonModel, IdealModel).
#pragma once

#include "package/Compound.h"
#include "package/Equilibrium.h"
#include "package/Interaction.h"
#include "package/PhaseProperties.h"
#include "package/Target.h"

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace orvane::package {

/// Immutable, so threads may share one.
///
/// Everywhere below, compositions are mole fractions in the order of compounds(), sum 1 (not normalised here);
/// zero fractions are allowed, of a phase they give the figures at infinite dilution. All members throw
/// PackageError when the temperature or pressure is not finite and positive, when a composition has another
/// length, a fraction is negative or not a number or the sum is not within 1e-9 of 1, and when a solver does
/// not converge. They never return NaN.
class Model {
public:
    virtual ~Model() = default;

    virtual std::string_view name() const = 0;  ///< as case files write it
    virtual const std::vector<Compound>& compounds() const = 0;
    std::size_t size() const { return compounds().size(); }

    // One phase of a given name, whether or not it is the stable one.

    virtual PhaseProperties properties(PhaseKind kind, double temperature, double pressure,
                                       std::span<const double> x) const = 0;

    /// ln of the fugacity coefficients, and their derivatives by temperature [1/K] and by pressure [1/Pa] at
    /// constant composition.
    virtual std::vector<double> lnPhi(PhaseKind kind, double temperature, double pressure,
                                      std::span<const double> x) const = 0;
    virtual std::vector<double> lnPhiByTemperature(PhaseKind kind, double temperature, double pressure,
                                                   std::span<const double> x) const = 0;
    virtual std::vector<double> lnPhiByPressure(PhaseKind kind, double temperature, double pressure,
                                                std::span<const double> x) const = 0;
    /// By amount in one mole of mixture, element i * size() + j: d lnPhi_i / d n_j [1/mol]. Symmetric.
    virtual std::vector<double> lnPhiByAmount(PhaseKind kind, double temperature, double pressure,
                                              std::span<const double> x) const = 0;

    // Equilibrium of one mole of feed.

    /// As temperaturePressure(), but two liquids are no error: Equilibrium::refusal tells of them.
    virtual Equilibrium phasesAt(double temperature, double pressure, std::span<const double> feed) const = 0;

    /// Temperature [K] and pressure [Pa]. A pure compound gives one phase. Throws LiquidLiquidSplit for two
    /// liquids.
    Equilibrium temperaturePressure(double temperature, double pressure, std::span<const double> feed) const;

    /// The temperature at which the feed has the target at this pressure, and the phases there. A vapour
    /// fraction of 0 gives the boiling point with the first vapour as a phase of fraction 0, one of 1 the dew
    /// point with the first liquid. A pure compound may give two phases.
    virtual Equilibrium atPressure(double pressure, Target target, std::span<const double> feed) const = 0;

    /// The pressure likewise. Where several have the enthalpy asked for, the lowest.
    virtual Equilibrium atTemperature(double temperature, Target target,
                                      std::span<const double> feed) const = 0;

protected:
    Model() = default;
    Model(const Model&) = default;
    Model& operator=(const Model&) = default;
};

/// The models there are, the usual one first.
constexpr std::array<std::string_view, 2> modelNames() { return {"Peng-Robinson", "ideal"}; }

/// The model of this name, letter case aside. Throws PackageError for an unknown one, with the known ones, for
/// interaction parameters that it does not take, and as the constructors of the models do.
std::unique_ptr<const Model> makeModel(std::string_view name, std::vector<Compound> compounds,
                                       const std::vector<Interaction>& overrides);

/// Enthalpy [J/mol], entropy [J/mol/K] and volume [m3/mol] of one mole of feed over all phases.
double enthalpy(const Model& model, const Equilibrium& equilibrium);
double entropy(const Model& model, const Equilibrium& equilibrium);
double volume(const Model& model, const Equilibrium& equilibrium);

}  // namespace orvane::package
