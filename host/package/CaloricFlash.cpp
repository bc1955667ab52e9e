#include "package/CaloricFlash.h"

#include "package/IdealGas.h"
#include "package/PackageError.h"
#include "package/Target.h"

#include <Eigen/LU>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvane::package {
namespace {

constexpr double R = gasConstant;
constexpr double aimed = 1e-13;     // of the scale that tolerance() names
constexpr double accepted = 1e-10;  // when rounding stops the solver before
constexpr double epsilon = std::numeric_limits<double>::epsilon();

}  // namespace

CaloricFlash::CaloricFlash(const MixtureParameters& mixture, double pressure, const double* feed,
                           Target target)
    : mixture_(mixture),
      pressure_(pressure),
      feed_(feed),
      quantity_(target.quantity),
      target_(target.value),
      n_(mixture.size) {}

void CaloricFlash::setTemperature(double temperature) {
    isotherm_.emplace(mixture_, temperature);
    idealValue_ = quantity_ == Quantity::enthalpy ? 0 : -R * std::log(pressure_ / referencePressure);
    idealHeatCapacity_ = 0;
    for (std::size_t i = 0; i < n_; ++i) {
        const IdealGas gas(mixture_.heatCapacity[i], temperature);
        idealValue_ += feed_[i] * (quantity_ == Quantity::enthalpy ? gas.enthalpy : gas.entropy);
        idealHeatCapacity_ += feed_[i] * gas.heatCapacity;
    }
}

double CaloricFlash::difference(const CubicPhase& phase) const {
    const auto departure = phase.departure();
    if (quantity_ == Quantity::enthalpy) return idealValue_ + departure.enthalpy - target_;
    double mixing = 0;
    for (std::size_t i = 0; i < n_; ++i) mixing += feed_[i] * std::log(feed_[i]);
    return idealValue_ - R * mixing + departure.entropy - target_;
}

double CaloricFlash::difference(const PhasePair& pair) const {
    const auto vapor = pair.vapor.departure(), liquid = pair.liquid.departure();
    if (quantity_ == Quantity::enthalpy)
        return idealValue_ + pair.vaporAmount * vapor.enthalpy + pair.liquidAmount * liquid.enthalpy -
               target_;
    double mixing = 0;
    for (std::size_t i = 0; i < n_; ++i)
        mixing += pair.amounts.vapor[i] * std::log(pair.vaporComposition[i]) +
                  pair.amounts.liquid[i] * std::log(pair.liquidComposition[i]);
    return idealValue_ - R * mixing + pair.vaporAmount * vapor.entropy + pair.liquidAmount * liquid.entropy -
           target_;
}

double CaloricFlash::slope(const CubicPhase& phase) const {
    double cp, cv;
    phase.heatCapacityDepartures(cp, cv);
    const double total = idealHeatCapacity_ + cp;
    return quantity_ == Quantity::enthalpy ? total : total / isotherm_->temperature;
}

double CaloricFlash::tolerance() const { return scale({quantity_, target_}, isotherm_->temperature); }

// The temperature at which the feed, in the stable root of one phase, has the target; or at which that root
// changes and the value jumps across the target.
double CaloricFlash::onePhaseTemperature() {
    double low = lowestTemperature, high = highestTemperature, T = 300;
    bool lowKnown = false, highKnown = false;
    // A jump is a first guess only for a mixture, but the saturation temperature for a pure compound.
    const double narrow = n_ == 1 ? epsilon : 1e-4;
    CubicPhase phase;
    for (;;) {
        setTemperature(T);
        phase.solve(*isotherm_, pressure_, feed_, Root::stable);
        ++evaluations_;
        const double f = difference(phase);
        if (std::abs(f) <= aimed * tolerance()) return T;
        (f < 0 ? low : high) = T;
        (f < 0 ? lowKnown : highKnown) = true;
        double next = T - f / slope(phase);
        if (!(next > low && next < high))
            next = high / low < 1.1 ? 0.5 * (low + high) : std::sqrt(low * high);
        next = std::clamp(next, T / 1.6, T * 1.6);
        if (std::abs(next - T) <= epsilon * T || high - low <= narrow * high) {
            if (lowKnown && highKnown) return T;
            if (n_ > 1)
                return 300;  // two phases may reach what one does not; any temperature is a start then
            if (high - low <= narrow * high || std::abs(f) > accepted * tolerance())
                throw PackageError(fmt::format(
                    "no temperature between {} K and {} K gives the {} {} at P = {} Pa: at {} K "
                    "it differs by {}",
                    lowestTemperature, highestTemperature, describe(quantity_), target_, pressure_, T, f));
            return T;
        }
        T = next;
    }
}

// At the saturation temperature, where the value jumps: both roots in the proportion that gives the target.
void CaloricFlash::pureCompound() {
    search_.emplace(*isotherm_, pressure_, feed_);
    search_->run();
    if (std::abs(difference(search_->single())) <= accepted * tolerance()) return;

    pair_.vapor.solve(*isotherm_, pressure_, feed_, Root::vaporLike);
    pair_.liquid.solve(*isotherm_, pressure_, feed_, Root::liquidLike);
    const double above = difference(pair_.vapor), below = difference(pair_.liquid);
    const double imbalance = pair_.vapor.lnPhi[0] - pair_.liquid.lnPhi[0];
    if (!(below < 0 && above > 0 && std::abs(imbalance) < 1e-9))
        throw PackageError(fmt::format(
            "no phases of the pure compound at P = {} Pa have the {} {}: at T = {} K the "
            "liquid differs by {}, the vapour by {}, the logarithms of their fugacities by {}",
            pressure_, describe(quantity_), target_, isotherm_->temperature, below, above, imbalance));
    pair_.vaporAmount = pair_.amounts.vapor[0] = -below / (above - below);
    pair_.liquidAmount = pair_.amounts.liquid[0] = above / (above - below);
    pair_.vaporComposition[0] = pair_.liquidComposition[0] = 1;
    two_ = true;
}

// Newton's method on amounts and temperature together, from pair_ and the temperature at hand. False when it
// leaves the region of two phases or does not converge. firstStep: the change of temperature by its first
// step, which from phases in equilibrium is the step of Newton's method on the temperature alone.
bool CaloricFlash::solvePair(Root vaporRoot, Root liquidRoot, double& firstStep) {
    const auto rows = static_cast<Eigen::Index>(n_);
    SmallMatrix matrix(rows + 1, rows + 1);
    SmallVector step(rows + 1);
    CompoundArray scale, vaporByT, liquidByT;
    constexpr int maxSteps = 40;
    int shortened = 0, stalled = 0;
    double T = isotherm_->temperature, smallest = std::numeric_limits<double>::infinity();
    for (int count = 0; count < maxSteps; ++count) {
        setTemperature(T);
        pair_.evaluate(*isotherm_, pressure_, vaporRoot, liquidRoot);
        ++evaluations_;
        if (pair_.distance(n_) < 1e-6) return false;
        const double f = difference(pair_);
        const double error = std::max(pair_.error, std::abs(f) / tolerance());
        if (error <= aimed) return true;
        stalled = error < 0.5 * smallest ? 0 : stalled + 1;
        smallest = std::min(smallest, error);
        if (stalled >= 3 && error <= accepted) return true;

        pair_.scale(n_, feed_, scale);
        pair_.secondDerivatives(n_, scale, matrix);
        pair_.vapor.lnPhiByTemperature(vaporByT.data());
        pair_.liquid.lnPhiByTemperature(liquidByT.data());
        const double unit = quantity_ == Quantity::enthalpy ? R * T : R;
        for (std::size_t k = 0; k < n_; ++k) {
            const auto i = static_cast<Eigen::Index>(k);
            const double vaporization =
                -T * (vaporByT[k] - liquidByT[k]);  // partial molar enthalpies' difference / R T
            matrix(i, rows) = -scale[k] * vaporization;
            matrix(rows, i) =
                scale[k] *
                (quantity_ == Quantity::enthalpy ? vaporization : vaporization - pair_.imbalance[k]);
            step[i] = -scale[k] * pair_.imbalance[k];
        }
        double vaporCp, liquidCp, cv;
        pair_.vapor.heatCapacityDepartures(vaporCp, cv);
        pair_.liquid.heatCapacityDepartures(liquidCp, cv);
        matrix(rows, rows) =
            (idealHeatCapacity_ + pair_.vaporAmount * vaporCp + pair_.liquidAmount * liquidCp) / R;
        step[rows] = -f / unit;
        const Eigen::PartialPivLU<Eigen::Ref<SmallMatrix>> lu(matrix);
        const SmallVector solution = lu.solve(step);
        if (!solution.allFinite()) return false;

        const double change = solution[rows];  // of ln T
        if (count == 0) firstStep = T * change;
        step = solution;
        for (std::size_t k = 0; k < n_; ++k) step[static_cast<Eigen::Index>(k)] *= scale[k];
        const double length = std::min(1.0, 0.05 / std::abs(change));
        if (length < 1 && ++shortened > 8) return false;
        pair_.transfer(n_, step, length);
        T *= 1 + length * change;
        if (!(T > lowestTemperature && T < highestTemperature)) return false;
    }
    return false;
}

// Whether the two phases that solvePair found are the answer: better than one phase, and without a third.
bool CaloricFlash::acceptPair() {
    CubicPhase feed;
    feed.solve(*isotherm_, pressure_, feed_, Root::stable);
    double gibbs = 0;
    for (std::size_t i = 0; i < n_; ++i) gibbs += feed_[i] * (std::log(feed_[i]) + feed.lnPhi[i]);
    if (pair_.gibbs > gibbs + 1e-12) return false;
    search_.emplace(*isotherm_, pressure_, feed_);
    search_->examine(pair_);
    evaluations_ += search_->evaluations() + 1;
    if (search_->changed()) return false;
    pair_ = search_->pair();
    return two_ = true;
}

// Phases at a temperature into `bound`. Returns the next temperature by Newton's method on one phase, or the
// same temperature where there are two.
double CaloricFlash::searchAt(double temperature, const double* lnK, Bound& bound) {
    setTemperature(temperature);
    search_.emplace(*isotherm_, pressure_, feed_);
    search_->run(lnK);
    evaluations_ += search_->evaluations();
    bound.temperature = temperature;
    bound.known = true;
    bound.two = search_->twoPhases();
    if (!bound.two) {
        bound.lnPhi = search_->single().lnPhi;
        bound.difference = difference(search_->single());
        return temperature - bound.difference / slope(search_->single());
    }
    pair_ = search_->pair();
    bound.liquids = search_->liquidLiquid() || search_->thirdPhase();
    bound.vaporAmount = pair_.vaporAmount;
    for (std::size_t i = 0; i < n_; ++i) bound.lnK[i] = pair_.liquid.lnPhi[i] - pair_.vapor.lnPhi[i];
    bound.difference = difference(pair_);
    return temperature;
}

// Between two temperatures so close that the feed boils, or finishes to boil, in between.
bool CaloricFlash::bridge(const Bound& low, const Bound& high) {
    const double lowVapor = low.two ? low.vaporAmount : 0, highVapor = high.two ? high.vaporAmount : 1;
    const double share = -low.difference / (high.difference - low.difference);
    const double beta = lowVapor + share * (highVapor - lowVapor);
    if (!(beta > 0 && beta < 1)) return false;
    for (std::size_t i = 0; i < n_; ++i) {
        const double lnK = low.two ? low.lnK[i] : high.two ? high.lnK[i] : low.lnPhi[i] - high.lnPhi[i];
        const double K = std::exp(std::clamp(lnK, -600.0, 600.0));
        pair_.amounts.vapor[i] = feed_[i] * beta * K / (1 - beta + beta * K);
        pair_.amounts.liquid[i] = feed_[i] * (1 - beta) / (1 - beta + beta * K);
    }
    setTemperature(low.temperature + share * (high.temperature - low.temperature));
    // The feed itself may be the liquid below and the vapour above, without enough of any other compound to
    // tell their compositions apart.
    const bool alike = !low.two && !high.two;
    double firstStep = 0;
    return solvePair(alike ? Root::vaporLike : Root::stable, alike ? Root::liquidLike : Root::stable,
                     firstStep) &&
           acceptPair();
}

void CaloricFlash::run() {
    two_ = false;
    double T = onePhaseTemperature();
    if (n_ == 1) {
        pureCompound();
        return;
    }
    Bound low, high;
    low.temperature = lowestTemperature;
    high.temperature = highestTemperature;
    double bridgeBelow = 1e-2;  // width of the bracket, relative
    double lastWidth = std::numeric_limits<double>::infinity();
    int slow = 0;
    constexpr int maxSteps = 150;
    for (int step = 0; step < maxSteps; ++step) {
        Bound here;
        const double* lnK = low.two ? low.lnK.data() : high.two ? high.lnK.data() : nullptr;
        double next = searchAt(T, lnK, here);
        if (std::abs(here.difference) <= accepted * tolerance()) {
            two_ = here.two;
            return;
        }
        if (here.two) {
            double firstStep = 0;
            if (solvePair(Root::stable, Root::stable, firstStep) && acceptPair()) return;
            next = T + firstStep;
        }
        (here.difference < 0 ? low : high) = here;
        const double width = high.temperature - low.temperature;
        if (low.known && high.known && width < bridgeBelow * high.temperature) {
            if (bridge(low, high)) return;
            bridgeBelow = 1e-2 * width / high.temperature;
        }
        if (width <= 2 * epsilon * high.temperature) break;
        slow = width < 0.5 * lastWidth ? 0 : slow + 1;
        lastWidth = width;
        next = std::clamp(next, T / 1.3, T * 1.3);
        if (!(next > low.temperature && next < high.temperature) || slow > 3) {
            next = low.known && high.known ? 0.5 * (low.temperature + high.temperature)
                                           : std::sqrt(low.temperature * high.temperature);
            slow = 0;
        }
        T = next;
    }
    const auto name = describe(quantity_);
    if (!low.known || !high.known) {
        const auto& end = low.known ? low : high;
        throw PackageError(
            fmt::format("no equilibrium between {} K and {} K at P = {} Pa has the {} {}: at {:.12g} K "
                        "it still differs by {}",
                        lowestTemperature, highestTemperature, pressure_, name, target_, end.temperature,
                        end.difference));
    }
    throw PackageError(fmt::format(
        "no equilibrium at P = {} Pa has the {} {}: it differs by {} at T = {:.12g} K and by {} at T = "
        "{:.12g} K{}",
        pressure_, name, target_, low.difference, low.temperature, high.difference, high.temperature,
        low.liquids || high.liquids ? ", where a second liquid forms, which the package cannot express"
                                    : ""));
}

}  // namespace orvane::package
