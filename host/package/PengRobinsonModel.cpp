#include "package/PengRobinsonModel.h"

#include "package/CaloricFlash.h"
#include "package/Checks.h"
#include "package/PackageError.h"
#include "package/PhaseSearch.h"
#include "package/TargetSearch.h"
#include "package/VaporFractionFlash.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <utility>

namespace orvane::package {
namespace {

// The compounds that are present in a feed, which is all that the solvers see of it.
class Present {
public:
    Present(const PengRobinson& equation, std::span<const double> feed) : equation_(equation), feed_(feed) {
        checkComposition(equation.compounds(), feed);
        double sum = 0;
        for (std::size_t i = 0; i < feed.size(); ++i) {
            if (feed[i] == 0) continue;
            indices_[size_] = i;
            fractions_[size_++] = feed[i];
            sum += feed[i];
        }
        for (std::size_t k = 0; k < size_; ++k) fractions_[k] /= sum;
        if (size_ < feed.size()) part_ = equation.parameters().subset({indices_.data(), size_});
    }

    const MixtureParameters& mixture() const { return part_ ? *part_ : equation_.parameters(); }
    const double* feed() const { return fractions_.data(); }

    std::vector<double> all(const CompoundArray& composition) const {
        std::vector<double> result(feed_.size());
        for (std::size_t k = 0; k < size_; ++k) result[indices_[k]] = composition[k];
        return result;
    }

    /// "0.98 water, 0.02 methane": what makes up 99 % of it.
    std::string describe(const CompoundArray& composition) const {
        std::vector<std::size_t> order(size_);
        for (std::size_t k = 0; k < size_; ++k) order[k] = k;
        std::ranges::sort(order, std::greater{}, [&](std::size_t k) { return composition[k]; });
        std::string text;
        double left = 1;
        for (std::size_t k : order) {
            if (left < 0.01) break;
            text += fmt::format("{}{:.3g} {}", text.empty() ? "" : ", ", composition[k],
                                equation_.compounds()[indices_[k]].id);
            left -= composition[k];
        }
        return text;
    }

    Equilibrium onePhase(double temperature, double pressure, PhaseKind kind) const {
        return {.temperature = temperature,
                .pressure = pressure,
                .phases = {{.kind = kind, .fraction = 1, .composition = {feed_.begin(), feed_.end()}}},
                .vaporFraction = kind == PhaseKind::vapor ? 1.0 : 0.0,
                .warnings = {},
                .refusal = {}};
    }

    Equilibrium twoPhases(double temperature, double pressure, const PhasePair& pair) const {
        return {.temperature = temperature,
                .pressure = pressure,
                .phases = {{PhaseKind::vapor, pair.vaporAmount, all(pair.vaporComposition)},
                           {PhaseKind::liquid, pair.liquidAmount, all(pair.liquidComposition)}},
                .vaporFraction = pair.vaporAmount,
                .warnings = {},
                .refusal = {}};
    }

    /// Tells of two liquids; warns of a liquid left out beside a vapour.
    void noteLiquids(const PhaseSearch& search, Equilibrium& equilibrium) const {
        const auto& third = search.thirdPhase();
        const auto& pair = search.pair();
        if (search.liquidLiquid())
            equilibrium.refusal = fmt::format(
                "two liquids and {} at T = {} K, P = {} Pa, which a package of one liquid cannot express: "
                "{:.4g} of the feed as {}; {:.4g} as {}",
                third ? "a trace of vapour" : "no vapour", equilibrium.temperature, equilibrium.pressure,
                pair.vaporAmount, describe(pair.vaporComposition), pair.liquidAmount,
                describe(pair.liquidComposition));
        else if (third)
            equilibrium.warnings.push_back(
                fmt::format("at T = {} K, P = {} Pa a second liquid would form ({}), which is left out",
                            equilibrium.temperature, equilibrium.pressure, describe(*third)));
    }

private:
    const PengRobinson& equation_;
    std::span<const double> feed_;
    std::size_t size_ = 0;
    std::array<std::size_t, maxCompounds> indices_;
    CompoundArray fractions_;
    std::optional<MixtureParameters> part_;
};

}  // namespace

PengRobinsonModel::PengRobinsonModel(PengRobinson equation) : equation_(std::move(equation)) {}

PhaseProperties PengRobinsonModel::properties(PhaseKind kind, double T, double P,
                                              std::span<const double> x) const {
    return PhaseProperties(equation_, T, P, x, root(kind));
}

std::vector<double> PengRobinsonModel::lnPhi(PhaseKind kind, double T, double P,
                                             std::span<const double> x) const {
    return equation_.lnPhi(T, P, x, root(kind));
}

std::vector<double> PengRobinsonModel::lnPhiByTemperature(PhaseKind kind, double T, double P,
                                                          std::span<const double> x) const {
    return equation_.lnPhiByTemperature(T, P, x, root(kind));
}

std::vector<double> PengRobinsonModel::lnPhiByPressure(PhaseKind kind, double T, double P,
                                                       std::span<const double> x) const {
    return equation_.lnPhiByPressure(T, P, x, root(kind));
}

std::vector<double> PengRobinsonModel::lnPhiByAmount(PhaseKind kind, double T, double P,
                                                     std::span<const double> x) const {
    return equation_.lnPhiByAmount(T, P, x, root(kind));
}

Equilibrium PengRobinsonModel::phasesAt(double temperature, double pressure,
                                        std::span<const double> feed) const {
    checkTemperature(temperature);
    checkPressure(pressure);
    const Present present(equation_, feed);
    const Isotherm isotherm(present.mixture(), temperature);
    PhaseSearch search(isotherm, pressure, present.feed());
    search.run();
    auto result = search.twoPhases() ? present.twoPhases(temperature, pressure, search.pair())
                                     : present.onePhase(temperature, pressure, search.singleKind());
    result.iterations = search.evaluations();
    if (search.twoPhases()) present.noteLiquids(search, result);
    return result;
}

Equilibrium PengRobinsonModel::atPressure(double pressure, Target target,
                                          std::span<const double> feed) const {
    checkPressure(pressure);
    checkTarget(target);
    switch (target.quantity) {
    case Quantity::vaporFraction: return atVaporFraction(Variable::pressure, pressure, target, feed);
    case Quantity::volume:
        checkComposition(compounds(), feed);
        return TargetSearch(*this, Variable::pressure, pressure, target, feed).run();
    default: return caloric(pressure, target, feed);
    }
}

Equilibrium PengRobinsonModel::atTemperature(double temperature, Target target,
                                             std::span<const double> feed) const {
    checkTemperature(temperature);
    checkTarget(target);
    if (target.quantity == Quantity::vaporFraction)
        return atVaporFraction(Variable::temperature, temperature, target, feed);
    checkComposition(compounds(), feed);
    return TargetSearch(*this, Variable::temperature, temperature, target, feed).run();
}

Equilibrium PengRobinsonModel::caloric(double pressure, Target target, std::span<const double> feed) const {
    const Present present(equation_, feed);
    CaloricFlash flash(present.mixture(), pressure, present.feed(), target);
    try {
        flash.run();
    }
    catch (const PackageError&) {
        // A compound with traces of others boils within rounding; phases at one state after the other find even that.
        try {
            return TargetSearch(*this, Variable::pressure, pressure, target, feed).run();
        }
        catch (const LiquidLiquidSplit&) {
            throw;
        }
        catch (const PackageError&) {
            // What the faster solver says is closer to the matter.
        }
        throw;
    }
    auto result = flash.twoPhases()
                      ? present.twoPhases(flash.temperature(), pressure, flash.pair())
                      : present.onePhase(flash.temperature(), pressure, flash.phases().singleKind());
    result.iterations = flash.evaluations();
    if (flash.twoPhases()) present.noteLiquids(flash.phases(), result);
    if (!result.refusal.empty()) throw LiquidLiquidSplit(result.refusal);
    return result;
}

Equilibrium PengRobinsonModel::atVaporFraction(Variable given, double value, Target target,
                                               std::span<const double> feed) const {
    const Present present(equation_, feed);
    VaporFractionFlash flash(present.mixture(), given, value, present.feed(), target);
    if (!flash.run()) {
        // Where helium or hydrogen makes most of the vapour, it hardly changes with temperature, and where second
        // liquids come and go the line is not one: then phases at one state after the other, which are always sure.
        const bool inside = target.value > 0 && target.value < 1 && target.solution == Solution::normal;
        if (!inside) throw PackageError(flash.complaint());
        try {
            return TargetSearch(*this, given, value, target, feed).run();
        }
        catch (const LiquidLiquidSplit&) {
            throw;
        }
        catch (const PackageError& error) {
            throw PackageError(fmt::format("{}; {}", flash.complaint(), error.what()));
        }
    }
    auto result = present.twoPhases(flash.temperature(), flash.pressure(), flash.pair());
    result.iterations = flash.evaluations();
    if (flash.phases()) present.noteLiquids(*flash.phases(), result);
    if (!result.refusal.empty()) throw LiquidLiquidSplit(result.refusal);
    return result;
}

}  // namespace orvane::package
