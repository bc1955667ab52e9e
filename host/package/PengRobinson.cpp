#include "package/PengRobinson.h"

#include "package/Checks.h"
#include "package/CompoundTable.h"
#include "package/CubicPhase.h"
#include "package/PackageError.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvane::package {
namespace {

double kappa(double acentricFactor) {
    return 0.37464 + (1.54226 - 0.26992 * acentricFactor) * acentricFactor;
}

std::size_t indexOf(const std::vector<Compound>& compounds, const std::string& id) {
    const auto found = std::ranges::find(compounds, id, &Compound::id);
    if (found == compounds.end())
        throw PackageError(
            fmt::format("an interaction parameter is given for '{}', which is not in the mixture", id));
    return static_cast<std::size_t>(found - compounds.begin());
}

}  // namespace

PengRobinson::PengRobinson(std::vector<Compound> compounds, const std::vector<Interaction>& overrides)
    : compounds_(std::move(compounds)) {
    checkCompounds(compounds_);
    const std::size_t n = compounds_.size();
    const auto& table = CompoundTable::instance();
    auto& p = parameters_;
    p.size = n;
    for (std::size_t i = 0; i < n; ++i) {
        const auto& compound = compounds_[i];
        const double Tc = compound.criticalTemperature, Pc = compound.criticalPressure;
        const double RTc = gasConstant * Tc;
        const double m = kappa(compound.acentricFactor);
        const double rootAc = RTc * std::sqrt(omegaA / Pc);
        p.criticalTemperature.push_back(Tc);
        p.criticalPressure.push_back(Pc);
        p.acentricFactor.push_back(compound.acentricFactor);
        p.covolume.push_back(omegaB * RTc / Pc);
        p.rootA.push_back(rootAc * (1 + m));
        p.rootASlope.push_back(rootAc * m / std::sqrt(Tc));
        p.heatCapacity.push_back(compound.heatCapacity);
        for (std::size_t j = 0; j < n; ++j)
            p.oneMinusInteraction.push_back(1 - table.interaction(compound.id, compounds_[j].id));
    }
    for (const auto& [first, second, kij] : overrides) {
        const std::size_t i = indexOf(compounds_, first), j = indexOf(compounds_, second);
        if (i == j)
            throw PackageError(fmt::format("an interaction parameter of {} with itself is given", first));
        if (!std::isfinite(kij))
            throw PackageError(
                fmt::format("the interaction parameter of {} and {} is {}", first, second, kij));
        p.oneMinusInteraction[i * n + j] = p.oneMinusInteraction[j * n + i] = 1 - kij;
    }
}

double PengRobinson::interaction(std::size_t i, std::size_t j) const {
    return 1 - parameters_.oneMinusInteraction.at(i * size() + j);
}

namespace {

// Checks the state, solves for the root and lets `use` read what it wants of the phase.
template <class Use>
auto withPhase(const PengRobinson& equation, double T, double P, std::span<const double> x, Root root,
               Use use) {
    checkTemperature(T);
    checkPressure(P);
    checkComposition(equation.compounds(), x);
    const Isotherm isotherm(equation.parameters(), T);
    CubicPhase phase;
    phase.solve(isotherm, P, x.data(), root);
    return use(phase);
}

}  // namespace

double PengRobinson::compressibilityFactor(double T, double P, std::span<const double> x, Root root) const {
    return withPhase(*this, T, P, x, root, [](const CubicPhase& phase) { return phase.Z; });
}

double PengRobinson::volume(double T, double P, std::span<const double> x, Root root) const {
    return withPhase(*this, T, P, x, root, [](const CubicPhase& phase) { return phase.volume; });
}

std::vector<double> PengRobinson::lnPhi(double T, double P, std::span<const double> x, Root root) const {
    return withPhase(*this, T, P, x, root, [this](const CubicPhase& phase) {
        return std::vector<double>(phase.lnPhi.begin(),
                                   phase.lnPhi.begin() + static_cast<std::ptrdiff_t>(size()));
    });
}

std::vector<double> PengRobinson::lnPhiByTemperature(double T, double P, std::span<const double> x,
                                                     Root root) const {
    return withPhase(*this, T, P, x, root, [this](const CubicPhase& phase) {
        std::vector<double> result(size());
        phase.lnPhiByTemperature(result.data());
        return result;
    });
}

std::vector<double> PengRobinson::lnPhiByPressure(double T, double P, std::span<const double> x,
                                                  Root root) const {
    return withPhase(*this, T, P, x, root, [this](const CubicPhase& phase) {
        std::vector<double> result(size());
        phase.lnPhiByPressure(result.data());
        return result;
    });
}

std::vector<double> PengRobinson::lnPhiByAmount(double T, double P, std::span<const double> x,
                                                Root root) const {
    return withPhase(*this, T, P, x, root, [this](const CubicPhase& phase) {
        std::vector<double> result(size() * size());
        phase.lnPhiByAmount(result.data(), size());
        return result;
    });
}

Departure PengRobinson::departure(double T, double P, std::span<const double> x, Root root) const {
    return withPhase(*this, T, P, x, root, [](const CubicPhase& phase) { return phase.departure(); });
}

}  // namespace orvane::package
