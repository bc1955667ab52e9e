#include "package/IdealModel.h"

#include "package/Checks.h"
#include "package/IdealGas.h"
#include "package/LiquidVolume.h"
#include "package/PackageError.h"
#include "package/RachfordRice.h"
#include "package/TargetSearch.h"
#include "package/VaporPressure.h"

#include <boost/math/tools/toms748_solve.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvane::package {
namespace {

constexpr double R = gasConstant;

VaporPressure vaporPressure(const Compound& compound, double temperature) {
    return {compound.criticalTemperature, compound.criticalPressure, compound.acentricFactor, temperature};
}

}  // namespace

IdealModel::IdealModel(std::vector<Compound> compounds) : compounds_(std::move(compounds)) {
    checkCompounds(compounds_);
    for (const auto& compound : compounds_) {
        if (!(compound.criticalVolume > 0) || !(compound.normalBoilingPoint > 0))
            throw PackageError(
                fmt::format("the ideal liquid needs the critical volume and the normal boiling "
                            "point of {}, and {} and {} are none",
                            compound.id, compound.criticalVolume, compound.normalBoilingPoint));
        liquidVolume_.push_back(saturatedLiquidVolume(compound, compound.normalBoilingPoint));
    }
}

void IdealModel::check(double temperature, double pressure, std::span<const double> x) const {
    checkTemperature(temperature);
    checkPressure(pressure);
    checkComposition(compounds_, x);
}

PhaseProperties IdealModel::properties(PhaseKind kind, double T, double P, std::span<const double> x) const {
    check(T, P, x);
    PhaseFigures of;
    of.temperature = T;
    of.pressure = P;
    of.composition.assign(x.begin(), x.end());
    of.lnPhi = lnPhi(kind, T, P, x);
    for (std::size_t i = 0; i < x.size(); ++i) {
        const auto& compound = compounds_[i];
        const IdealGas gas(compound.heatCapacity, T);
        of.molecularWeight += x[i] * compound.molecularWeight;
        of.idealHeatCapacityCp += x[i] * gas.heatCapacity;
        of.enthalpy += x[i] * gas.enthalpy;
        if (x[i] > 0) of.entropy += x[i] * (gas.entropy - R * std::log(x[i]));
        if (kind == PhaseKind::vapor) continue;

        const auto saturated = vaporPressure(compound, T);
        const double v = liquidVolume_[i], Ps = std::exp(saturated.ln);
        const double slope = Ps * saturated.byTemperature;
        const double bend =
            Ps * (saturated.byTemperatureTwice + saturated.byTemperature * saturated.byTemperature);
        of.enthalpy += x[i] * (v * (P - Ps + T * slope) - R * T * T * saturated.byTemperature);
        of.entropy += x[i] * (v * slope -
                              R * (saturated.ln - std::log(referencePressure) + T * saturated.byTemperature));
        of.heatCapacityCp +=
            x[i] * T * (v * bend - R * (2 * saturated.byTemperature + T * saturated.byTemperatureTwice));
        of.volume += x[i] * v;
    }
    of.heatCapacityCp += of.idealHeatCapacityCp;
    if (kind == PhaseKind::vapor) {
        of.entropy -= R * std::log(P / referencePressure);
        of.volume = R * T / P;
        of.heatCapacityCv = of.heatCapacityCp - R;
        of.volumeByTemperature = R / P;
        of.volumeByPressure = -of.volume / P;
    } else
        of.heatCapacityCv = of.heatCapacityCp;  // neither pressure nor temperature changes the volume
    return PhaseProperties(std::move(of));
}

void IdealModel::lnRatios(double T, double P, double* lnK) const {
    for (std::size_t i = 0; i < compounds_.size(); ++i) {
        const double ln = vaporPressure(compounds_[i], T).ln;
        lnK[i] = ln - std::log(P) + liquidVolume_[i] * (P - std::exp(ln)) / (R * T);
    }
}

std::vector<double> IdealModel::lnPhi(PhaseKind kind, double T, double P, std::span<const double> x) const {
    check(T, P, x);
    std::vector<double> result(size());
    if (kind == PhaseKind::liquid) lnRatios(T, P, result.data());
    return result;
}

std::vector<double> IdealModel::lnPhiByTemperature(PhaseKind kind, double T, double P,
                                                   std::span<const double> x) const {
    check(T, P, x);
    std::vector<double> result(size());
    if (kind == PhaseKind::vapor) return result;
    for (std::size_t i = 0; i < size(); ++i) {
        const auto saturated = vaporPressure(compounds_[i], T);
        const double Ps = std::exp(saturated.ln);
        result[i] = saturated.byTemperature -
                    liquidVolume_[i] / (R * T) * ((P - Ps) / T + Ps * saturated.byTemperature);
    }
    return result;
}

std::vector<double> IdealModel::lnPhiByPressure(PhaseKind kind, double T, double P,
                                                std::span<const double> x) const {
    check(T, P, x);
    std::vector<double> result(size());
    if (kind == PhaseKind::vapor) return result;
    for (std::size_t i = 0; i < size(); ++i) result[i] = liquidVolume_[i] / (R * T) - 1 / P;
    return result;
}

std::vector<double> IdealModel::lnPhiByAmount(PhaseKind, double T, double P,
                                              std::span<const double> x) const {
    check(T, P, x);
    return std::vector<double>(size() * size());
}

Equilibrium IdealModel::phasesAt(double T, double P, std::span<const double> feed) const {
    check(T, P, feed);
    CompoundArray lnK;
    lnRatios(T, P, lnK.data());
    Equilibrium result;
    result.temperature = T;
    result.pressure = P;
    PhaseAmounts amounts;
    if (rachfordRice(size(), feed.data(), lnK.data(), amounts)) {
        double vapor = 0, liquid = 0;
        for (std::size_t i = 0; i < size(); ++i) {
            vapor += amounts.vapor[i];
            liquid += amounts.liquid[i];
        }
        result.phases = {{PhaseKind::vapor, vapor, {}}, {PhaseKind::liquid, liquid, {}}};
        for (std::size_t i = 0; i < size(); ++i) {
            result.phases[0].composition.push_back(amounts.vapor[i] / vapor);
            result.phases[1].composition.push_back(amounts.liquid[i] / liquid);
        }
        result.vaporFraction = vapor;
        return result;
    }
    // One phase, then: a liquid where no bubble would form, sum z K <= 1.
    double bubbles = 0;
    for (std::size_t i = 0; i < size(); ++i) bubbles += feed[i] * std::exp(std::min(lnK[i], 600.0));
    const auto kind = bubbles <= 1 ? PhaseKind::liquid : PhaseKind::vapor;
    result.phases = {{kind, 1, {feed.begin(), feed.end()}}};
    result.vaporFraction = kind == PhaseKind::vapor ? 1 : 0;
    return result;
}

Equilibrium IdealModel::atPressure(double pressure, Target target, std::span<const double> feed) const {
    checkPressure(pressure);
    return at(Variable::pressure, pressure, target, feed);
}

Equilibrium IdealModel::atTemperature(double temperature, Target target, std::span<const double> feed) const {
    checkTemperature(temperature);
    return at(Variable::temperature, temperature, target, feed);
}

Equilibrium IdealModel::at(Variable given, double value, Target target, std::span<const double> feed) const {
    checkComposition(compounds_, feed);
    checkTarget(target);
    if (target.quantity != Quantity::vaporFraction)
        return TargetSearch(*this, given, value, target, feed).run();
    if (target.solution == Solution::retrograde)
        throw PackageError("the ideal model has no retrograde solution; ask for the normal one");
    return atVaporFraction(given, value, target.value, feed);
}

Equilibrium IdealModel::atVaporFraction(Variable given, double value, double beta,
                                        std::span<const double> feed) const {
    const bool findTemperature = given == Variable::pressure;
    CompoundArray lnK;
    double vapor = 0, liquid = 0;  // sums of y and x
    // Rises with temperature and with falling pressure, from negative to positive.
    const auto excess = [&](double unknown) {
        lnRatios(findTemperature ? unknown : value, findTemperature ? value : unknown, lnK.data());
        vapor = liquid = 0;
        for (std::size_t i = 0; i < size(); ++i) {
            const double K = std::exp(std::clamp(lnK[i], -600.0, 600.0));
            liquid += feed[i] / (1 - beta + beta * K);
            vapor += feed[i] * K / (1 - beta + beta * K);
        }
        return (findTemperature ? 1 : -1) * std::log(vapor / liquid);
    };
    double low = 0, high = 0;
    const double least = findTemperature ? lowestTemperature : lowestPressure;
    const double most = findTemperature ? highestTemperature : highestPressure;
    double start = findTemperature ? 300 : 1e5, atLow = 0, atHigh = 0;
    for (double at = start, factor = 1.1;; factor *= factor) {
        const double here = excess(at);
        if (here == 0) {
            low = high = at;
            break;
        }
        (here < 0 ? low : high) = at;
        (here < 0 ? atLow : atHigh) = here;
        if (low > 0 && high > 0) break;
        if ((at == least && here > 0) || (at == most && here < 0))
            throw PackageError(fmt::format("no {} between {} and {} gives the vapour fraction {} at {} = {}",
                                           findTemperature ? "temperature [K]" : "pressure [Pa]", least, most,
                                           beta, findTemperature ? "P [Pa]" : "T [K]", value));
        at = std::clamp(here < 0 ? at * factor : at / factor, least, most);
    }
    if (low < high) {
        std::uintmax_t steps = 200;
        const auto found = boost::math::tools::toms748_solve(
            excess, low, high, atLow, atHigh, boost::math::tools::eps_tolerance<double>(52), steps);
        low = std::abs(excess(found.first)) < std::abs(excess(found.second)) ? found.first : found.second;
    }
    excess(low);

    Equilibrium result;
    result.temperature = findTemperature ? low : value;
    result.pressure = findTemperature ? value : low;
    result.vaporFraction = beta;
    result.phases = {{PhaseKind::vapor, beta, {}}, {PhaseKind::liquid, 1 - beta, {}}};
    for (std::size_t i = 0; i < size(); ++i) {
        const double K = std::exp(std::clamp(lnK[i], -600.0, 600.0));
        result.phases[0].composition.push_back(feed[i] * K / (1 - beta + beta * K) / vapor);
        result.phases[1].composition.push_back(feed[i] / (1 - beta + beta * K) / liquid);
    }
    return result;
}

}  // namespace orvane::package
