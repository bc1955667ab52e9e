#include "package/VaporFractionFlash.h"

#include "package/PackageError.h"
#include "package/SaturationPoint.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvane::package {
namespace {

constexpr double lowestTraced = 1e2, highestTraced = 2e9;  // Pa
constexpr double criticalLnK = 1e-3;  // closer to the critical point the line is not followed
constexpr int maxPoints = 600;

}  // namespace

VaporFractionFlash::VaporFractionFlash(const MixtureParameters& mixture, Variable given, double value,
                                       const double* feed, Target target)
    : mixture_(mixture), given_(given), value_(value), feed_(feed), target_(target) {}

void VaporFractionFlash::pureCompound() {
    if (target_.solution == Solution::retrograde)
        throw PackageError("a pure compound has no retrograde solution; ask for the normal one");
    const SaturationPoint point(mixture_, given_, value_);
    evaluations_ = point.evaluations;
    isotherm_.emplace(mixture_, point.temperature);
    pressure_ = point.pressure;
    pair_.vaporAmount = pair_.amounts.vapor[0] = target_.value;
    pair_.liquidAmount = pair_.amounts.liquid[0] = 1 - target_.value;
    pair_.vaporComposition[0] = pair_.liquidComposition[0] = 1;
}

// Whether the state that a line is at is the answer.
bool VaporFractionFlash::accept(QualityLine& line) {
    const double T = line.temperature(), P = line.pressure();
    const auto reject = [&](const char* why) {
        const auto text =
            fmt::format("{}T = {:.8g} K, P = {:.8g} Pa {}", found_.empty() ? "" : "; ", T, P, why);
        if (found_.find(text.substr(found_.empty() ? 0 : 2)) == std::string::npos) found_ += text;
        return false;
    };
    if (!line.vaporIsLighter()) return false;
    QualityLine::State change;
    const std::size_t kept = line.index(given_);
    const bool findTemperature = given_ == Variable::pressure;
    if (!line.byVaporFraction(kept, change)) return reject("is where the line turns");
    const double slope = change[findTemperature ? line.temperatureIndex() : line.pressureIndex()];
    const bool normal = findTemperature ? slope > 0 : slope < 0;
    if (normal != (target_.solution == Solution::normal))
        return reject(normal ? "is of the normal branch" : "is of the retrograde branch");

    isotherm_.emplace(mixture_, T);
    pressure_ = given_ == Variable::pressure ? value_ : P;
    pair_ = line.pair(*isotherm_);
    if (!(pair_.error < 1e-8)) return reject("has metastable phases");
    search_.emplace(*isotherm_, pressure_, feed_);
    search_->examine(pair_);
    evaluations_ += search_->evaluations();
    if (search_->changed()) return reject("is not stable: other phases form");
    return true;
}

bool VaporFractionFlash::solveFrom(QualityLine line, const QualityLine::State& guess) {
    line.state = guess;
    const std::size_t kept = line.index(given_);
    line.state[kept] = std::log(value_);
    const bool found = line.correct(kept, false, 40);
    evaluations_ += line.evaluations();
    return found && accept(line);
}

// Along the line from a temperature or pressure, which rises or falls at first.
bool VaporFractionFlash::trace(Variable start, double startValue, double direction) {
    QualityLine line(mixture_, feed_, target_.value);
    const std::size_t held = line.index(start);
    const bool started = line.start(start, startValue) && line.correct(held, true) &&
                         line.correct(held, false) && line.vaporIsLighter();
    if (!started) {
        evaluations_ += line.evaluations();
        return false;
    }
    const std::size_t unknowns = mixture_.size + 2, given = line.index(given_);
    const double wanted = std::log(value_);
    std::size_t kept = held;
    double length = 0.3;
    QualityLine::State tangent{}, before{}, slopeBefore{};
    tangent[kept] = direction;
    for (int count = 0; count < maxPoints; ++count) {
        QualityLine::State slope;
        if (!line.slopes(kept, slope)) break;
        // Keep the unknown that changes fastest, and go on in the direction come from.
        std::size_t fastest = kept;
        for (std::size_t i = 0; i < unknowns; ++i)
            if (std::abs(slope[i]) > std::abs(slope[fastest])) fastest = i;
        double along = 0;
        for (std::size_t i = 0; i < unknowns; ++i) along += slope[i] * tangent[i];
        const double unit = (along < 0 ? -1 : 1) / std::abs(slope[fastest]);
        for (std::size_t i = 0; i < unknowns; ++i) tangent[i] = slope[i] * unit;
        kept = fastest;

        if (count > 0) {
            const double from = before[given] - wanted, to = line.state[given] - wanted;
            if ((from <= 0) != (to <= 0)) {
                QualityLine::State guess;
                for (std::size_t i = 0; i < unknowns; ++i)
                    guess[i] = (from * line.state[i] - to * before[i]) / (from - to);
                if (solveFrom(line, guess)) return true;
            } else if (slopeBefore[given] * tangent[given] < 0 && from * slopeBefore[given] < 0) {
                // The line turns between the two points, maybe beyond the value wanted.
                if (solveFrom(line, before) || solveFrom(line, line.state)) return true;
            }
        }
        before = line.state;
        slopeBefore = tangent;

        // Steps so small that the line is nearly straight, and the smaller the closer to the critical point.
        const double closeness = line.largestLnK();
        if (closeness < 2 * criticalLnK) break;
        bool moved = false;
        for (int attempt = 0; attempt < 8 && !moved; ++attempt) {
            double step = length;
            for (std::size_t i = 0; i < unknowns; ++i) {
                const double longest = i == line.temperatureIndex() ? 0.03
                                       : i == line.pressureIndex()  ? 0.4
                                                                    : 0.4 * std::max(closeness, 1e-3);
                step = std::min(step, longest / std::max(std::abs(tangent[i]), 1e-300));
            }
            for (std::size_t i = 0; i < unknowns; ++i) line.state[i] = before[i] + step * tangent[i];
            moved = line.correct(kept, false, 12) && line.vaporIsLighter();
            length = moved ? step * (line.steps() <= 3 ? 1.6 : line.steps() >= 6 ? 0.6 : 1) : step * 0.35;
            if (!moved) line.state = before;
        }
        if (!moved || line.pressure() > highestTraced || line.pressure() < lowestTraced) break;
    }
    evaluations_ += line.evaluations();
    return false;
}

bool VaporFractionFlash::run() {
    if (mixture_.size == 1) {
        pureCompound();
        return true;
    }
    QualityLine line(mixture_, feed_, target_.value);
    const std::size_t kept = line.index(given_);
    bool found = line.start(given_, value_);
    if (found) {
        line.state[kept] = std::log(value_);
        found = line.correct(kept, true);
    }
    evaluations_ += line.evaluations();
    if (found && accept(line)) return true;

    double meanTc = 0;
    for (std::size_t i = 0; i < mixture_.size; ++i) meanTc += feed_[i] * mixture_.criticalTemperature[i];
    const std::pair<Variable, double> starts[] = {
        {Variable::pressure, 1e5},
        {Variable::pressure, 1e6},
        {Variable::temperature, 0.7 * meanTc},
        {Variable::temperature, 0.85 * meanTc},
        {Variable::temperature, 0.55 * meanTc},
        {Variable::pressure, 1e4},
    };
    for (const auto& [variable, start] : starts)
        for (const double direction : {1.0, -1.0})
            if (trace(variable, start, direction)) return true;
    return false;
}

std::string VaporFractionFlash::complaint() const {
    return fmt::format(
        "no state of the {} branch at {} = {} {} has the vapour fraction {}{}{}",
        target_.solution == Solution::normal ? "normal" : "retrograde",
        given_ == Variable::temperature ? "T" : "P", value_, given_ == Variable::temperature ? "K" : "Pa",
        target_.value,
        found_.empty() ? "; the line of this vapour fraction does not reach it" : "; found: ", found_);
}

}  // namespace orvane::package
