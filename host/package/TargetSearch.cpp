#include "package/TargetSearch.h"

#include "package/PackageError.h"

#include <boost/math/tools/toms748_solve.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace orvane::package {
namespace {

constexpr double aimed = 1e-13;     // difference over the scale of the target
constexpr double accepted = 1e-10;  // when rounding stops the search before
constexpr double boiling = 1e-7;    // largest difference of ln fugacities of two phases that share a jump

}  // namespace

TargetSearch::TargetSearch(const Model& model, Variable given, double value, Target target,
                           std::span<const double> feed)
    : model_(model),
      given_(given),
      value_(value),
      target_(target),
      feed_(feed),
      lowestMet_(std::numeric_limits<double>::infinity()),
      highestMet_(-lowestMet_) {}

void TargetSearch::fail(const std::string& why) const {
    throw PackageError(fmt::format(
        "no equilibrium at {} = {} {} has the {} {}: {}", given_ == Variable::temperature ? "T" : "P", value_,
        given_ == Variable::temperature ? "K" : "Pa", describe(target_.quantity), target_.value, why));
}

double TargetSearch::value(const Equilibrium& equilibrium) const {
    switch (target_.quantity) {
    case Quantity::vaporFraction: return equilibrium.vaporFraction;
    case Quantity::enthalpy: return enthalpy(model_, equilibrium);
    case Quantity::entropy: return entropy(model_, equilibrium);
    case Quantity::volume: return volume(model_, equilibrium);
    }
    return 0;
}

TargetSearch::Point TargetSearch::point(double unknown) {
    Point result;
    result.at = unknown;
    const bool isTemperature = given_ == Variable::pressure;
    const double T = isTemperature ? unknown : value_;
    result.phases = model_.phasesAt(T, isTemperature ? value_ : unknown, feed_);
    const double here = value(result.phases);
    lowestMet_ = std::min(lowestMet_, here);
    highestMet_ = std::max(highestMet_, here);
    result.difference = (here - target_.value) / scale(target_, T);
    evaluations_ += 1 + result.phases.iterations;
    return result;
}

// Two neighbours on the way that enclose the target; false where `low` has it already.
bool TargetSearch::enclose(Point& low, Point& high) {
    if (given_ == Variable::temperature) return enclosePressure(low, high);
    // All three quantities rise with temperature.
    Point here = point(300);
    for (double factor = 1.15; std::abs(here.difference) > aimed; factor = std::min(factor * 1.1, 1.6)) {
        const bool rise = here.difference < 0;
        const double next =
            std::clamp(rise ? here.at * factor : here.at / factor, lowestTemperature, highestTemperature);
        if (next == here.at)
            fail(fmt::format("between {} K and {} K it goes from {} to {}", lowestTemperature,
                             highestTemperature, lowestMet_, highestMet_));
        Point there = point(next);
        if ((there.difference < 0) != rise) {
            low = rise ? std::move(here) : std::move(there);
            high = rise ? std::move(there) : std::move(here);
            return true;
        }
        here = std::move(there);
    }
    low = std::move(here);
    return false;
}

// By rising pressure, since the enthalpy first falls with it and in a dense fluid rises again. An enthalpy has
// its lowest value somewhere between, which the steps may jump over.
bool TargetSearch::enclosePressure(Point& low, Point& high) {
    constexpr double factor = 1.5;
    Point before = point(lowestPressure);
    if (before.difference == 0) fail("it is that of the gas at vanishing pressure");
    Point here = point(lowestPressure * factor);
    if (std::abs(before.difference) <= aimed && std::abs(here.difference) <= aimed)
        fail("it is that of the gas, which hardly depends on the pressure");
    for (;;) {
        if (std::abs(here.difference) <= aimed) {
            low = std::move(here);
            return false;
        }
        if ((before.difference < 0) != (here.difference < 0)) {
            low = std::move(before);
            high = std::move(here);
            return true;
        }
        if (here.at >= highestPressure)
            fail(fmt::format("between {} Pa and {} Pa it lies between {} and {}", lowestPressure,
                             highestPressure, lowestMet_, highestMet_));
        Point there = point(here.at * factor);
        const bool turns = here.difference > 0
                               ? there.difference > here.difference && here.difference < before.difference
                               : there.difference < here.difference && here.difference > before.difference;
        if (turns && encloseAtMinimum(before, here, there, low, high)) return true;
        before = std::move(here);
        here = std::move(there);
    }
}

// By golden section between three pressures of which the middle one is nearest to the target, until it is
// reached or the turning point is known.
bool TargetSearch::encloseAtMinimum(const Point& left, const Point& middle, const Point& right, Point& low,
                                    Point& high) {
    const bool above = middle.difference > 0;
    double a = left.at, b = right.at;
    Point best = middle;
    while (b - a > 1e-7 * b) {
        const bool leftWider = best.at - a > b - best.at;
        Point trial = point(leftWider ? best.at - 0.382 * (best.at - a) : best.at + 0.382 * (b - best.at));
        if ((trial.difference > 0) != above) {
            low = left;
            high = std::move(trial);
            return true;
        }
        if (std::abs(trial.difference) < std::abs(best.difference)) {
            (leftWider ? b : a) = best.at;
            best = std::move(trial);
        } else
            (leftWider ? a : b) = trial.at;
    }
    return false;
}

Equilibrium TargetSearch::finished(Point point) const {
    point.phases.iterations = evaluations_;
    if (!point.phases.refusal.empty()) throw LiquidLiquidSplit(point.phases.refusal);
    return std::move(point.phases);
}

Equilibrium TargetSearch::run() {
    Point low, high;
    if (!enclose(low, high)) return finished(std::move(low));
    // Near to each other first, so that a value that goes over decades is like a line in between.
    for (int halving = 0; halving < 4; ++halving) {
        Point middle = point(std::sqrt(low.at * high.at));
        (((middle.difference < 0) == (low.difference < 0)) ? low : high) = std::move(middle);
    }
    constexpr int maxJumps = 20;
    for (int jump = 0;; ++jump) {
        Point before = low, behind = high;
        if (before.at > behind.at) std::swap(before, behind);
        narrow(low, high);
        Point& best = std::abs(low.difference) < std::abs(high.difference) ? low : high;
        if (std::abs(best.difference) <= accepted) return finished(std::move(best));
        const bool otherWay = (low.difference < 0) != (before.difference < 0);
        if (!otherWay || jump == maxJumps) {
            const double at = low.at;
            try {
                return across(low, high);
            }
            catch (const PackageError&) {
                if (auto elsewhere = complete(before, behind, at)) return *elsewhere;
                throw;
            }
        }
        // A jump the other way, where a second liquid comes or goes, has states with the target on both sides.
        if (given_ == Variable::pressure) {
            low = std::move(high);
            high = std::move(behind);
        } else {
            high = std::move(low);
            low = std::move(before);
        }
    }
}

// Where a second liquid is left out the value is not that of all phases, and may pass the target once more than it should. A
// state with the target from which nothing is left out is then the answer; in steps from that end of the bracket which
// is farther from second liquids.
std::optional<Equilibrium> TargetSearch::complete(const Point& before, const Point& behind, double jump) {
    constexpr int steps = 64;
    const bool down = given_ == Variable::pressure;
    Point last = down ? behind : before;
    const double factor = std::pow(jump / last.at, 1.0 / steps);
    for (int step = 1; step < steps; ++step) {
        Point here = point(last.at * factor);
        if ((here.difference < 0) != (last.difference < 0)) {
            Point low = here, high = last;
            narrow(low, high);
            Point& best = std::abs(low.difference) < std::abs(high.difference) ? low : high;
            if (std::abs(best.difference) <= accepted && best.phases.warnings.empty())
                return finished(std::move(best));
        }
        last = std::move(here);
    }
    return std::nullopt;
}

// Shrinks the bracket to neighbouring numbers, in rising order.
void TargetSearch::narrow(Point& low, Point& high) {
    if (low.difference == 0 || high.difference == 0) return;
    const auto difference = [this](double unknown) { return point(unknown).difference; };
    std::uintmax_t steps = 300;
    double a = low.at, b = high.at, fa = low.difference, fb = high.difference;
    if (a > b) {
        std::swap(a, b);
        std::swap(fa, fb);
    }
    const auto found = boost::math::tools::toms748_solve(
        difference, a, b, fa, fb, boost::math::tools::eps_tolerance<double>(52), steps);
    low = point(found.first);
    high = point(found.second);
}

// Compounds of which there is too little to set the two sides apart still prefer one of the phases; the proportion that
// then gives the target; and, a little beside the jump, the unknown at which the phases are in equilibrium.
void TargetSearch::distribute(Equilibrium& result) const {
    constexpr double R = gasConstant;
    constexpr int rounds = 30;
    constexpr double farthest = 1e-5;  // from the jump, relative
    PhaseResult &vapor = result.phases[0], &liquid = result.phases[1];
    double& unknown = given_ == Variable::pressure ? result.temperature : result.pressure;
    const double jump = unknown;
    const auto alone = [&](const PhaseResult& phase) {
        Equilibrium one = result;
        one.phases = {phase};
        one.phases[0].fraction = 1;
        one.vaporFraction = phase.kind == PhaseKind::vapor ? 1 : 0;
        return one;
    };
    for (int round = 0; round < rounds; ++round) {
        const auto inVapor =
            model_.lnPhi(PhaseKind::vapor, result.temperature, result.pressure, vapor.composition);
        const auto inLiquid =
            model_.lnPhi(PhaseKind::liquid, result.temperature, result.pressure, liquid.composition);
        double sumVapor = 0, sumLiquid = 0;
        for (std::size_t i = 0; i < feed_.size(); ++i) {
            const double K = std::exp(inLiquid[i] - inVapor[i]);
            sumLiquid += liquid.composition[i] = feed_[i] / (liquid.fraction + vapor.fraction * K);
            sumVapor += vapor.composition[i] = K * liquid.composition[i];
        }
        for (double& y : vapor.composition) y /= sumVapor;
        for (double& x : liquid.composition) x /= sumLiquid;

        // By Clausius and Clapeyron.
        const double T = result.temperature, excess = std::log(sumVapor / sumLiquid);
        const Equilibrium gas = alone(vapor), dense = alone(liquid);
        const double change = given_ == Variable::temperature
                                  ? R * T * excess / (volume(model_, gas) - volume(model_, dense))
                                  : -R * T * T * excess / (enthalpy(model_, gas) - enthalpy(model_, dense));
        if (!(std::abs(unknown + change - jump) <= farthest * jump)) return;
        unknown += change;

        const double off = value(result) - target_.value;
        if (std::abs(off) <= aimed * scale(target_, T) && std::abs(excess) <= 1e-13) return;
        const double next = vapor.fraction - off / (value(gas) - value(dense));
        if (!(next > 0 && next < 1)) return;
        result.vaporFraction = vapor.fraction = next;
        liquid.fraction = 1 - next;
    }
}

// Between two neighbouring values of the unknown between which the target jumps.
Equilibrium TargetSearch::across(const Point& low, const Point& high) {
    const double share = -low.difference / (high.difference - low.difference);
    Equilibrium result;
    result.iterations = evaluations_;
    result.temperature = low.phases.temperature;
    result.pressure = low.phases.pressure;
    result.warnings = low.phases.warnings.empty() ? high.phases.warnings : low.phases.warnings;
    for (const PhaseKind kind : {PhaseKind::vapor, PhaseKind::liquid}) {
        PhaseResult phase{kind, 0, std::vector<double>(feed_.size())};
        for (const auto* side : {&low, &high})
            for (const auto& part : side->phases.phases) {
                if (part.kind != kind) continue;
                const double amount = part.fraction * (side == &low ? 1 - share : share);
                phase.fraction += amount;
                for (std::size_t i = 0; i < feed_.size(); ++i)
                    phase.composition[i] += amount * part.composition[i];
            }
        if (phase.fraction == 0) continue;
        for (double& x : phase.composition) x /= phase.fraction;
        result.phases.push_back(std::move(phase));
    }
    const auto jump = fmt::format("between {:.17g} and {:.17g} {} it jumps", low.at, high.at,
                                  given_ == Variable::temperature ? "Pa" : "K");
    const auto lnFugacity = [&](const PhaseResult& phase) {
        auto values = model_.lnPhi(phase.kind, result.temperature, result.pressure, phase.composition);
        for (std::size_t i = 0; i < values.size(); ++i) values[i] += std::log(phase.composition[i]);
        return values;
    };
    // All phases on both sides must be the same two.
    bool same = result.phases.size() == 2 && low.phases.refusal.empty() && high.phases.refusal.empty();
    if (same) {
        result.vaporFraction = result.phases[0].fraction;
        if (low.phases.warnings.empty() && high.phases.warnings.empty()) distribute(result);
        const auto inVapor = lnFugacity(result.phases[0]), inLiquid = lnFugacity(result.phases[1]);
        for (std::size_t i = 0; i < feed_.size(); ++i)
            same = same && (feed_[i] == 0 || std::abs(inVapor[i] - inLiquid[i]) <= boiling);
        const auto volumeOf = [&](const PhaseResult& phase) {
            return model_.properties(phase.kind, result.temperature, result.pressure, phase.composition)
                .volume();
        };
        if (same && !(volumeOf(result.phases[0]) > (1 + 1e-6) * volumeOf(result.phases[1])))
            fail(
                jump +
                ", but only in name: one phase there is called a liquid on one side and a vapour on the other");
    }
    if (!same) fail(jump + ", where a second liquid forms, which the package cannot express");
    if (!(std::abs(value(result) - target_.value) <= accepted * scale(target_, result.temperature)))
        fail(jump + ", and the phases that it jumps to do not have it together");
    return result;
}

}  // namespace orvane::package
