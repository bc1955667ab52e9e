#include "package/Model.h"

#include "package/IdealModel.h"
#include "package/PackageError.h"
#include "package/PengRobinsonModel.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <utility>

namespace orvane::package {
namespace {

double sum(const Model& model, const Equilibrium& equilibrium, double (PhaseProperties::*property)() const) {
    double total = 0;
    for (const auto& phase : equilibrium.phases) {
        if (phase.fraction == 0) continue;
        // Of two liquids one has the place of the vapour, but is none.
        const PhaseKind kind = equilibrium.refusal.empty() ? phase.kind : PhaseKind::liquid;
        const auto properties =
            model.properties(kind, equilibrium.temperature, equilibrium.pressure, phase.composition);
        total += phase.fraction * (properties.*property)();
    }
    return total;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, [&](char first, char second) { return lower(first) == lower(second); });
}

}  // namespace

std::unique_ptr<const Model> makeModel(std::string_view name, std::vector<Compound> compounds,
                                       const std::vector<Interaction>& overrides) {
    constexpr auto names = modelNames();
    if (equalIgnoringCase(name, names[0]))
        return std::make_unique<PengRobinsonModel>(PengRobinson(std::move(compounds), overrides));
    if (!equalIgnoringCase(name, names[1]))
        throw PackageError(fmt::format("unknown model '{}'; known: '{}'", name, fmt::join(names, "', '")));
    if (!overrides.empty())
        throw PackageError(fmt::format(
            "the ideal model takes no interaction parameters, but one is given for {} and {}; remove it, or use "
            "the model 'Peng-Robinson'",
            overrides.front().first, overrides.front().second));
    return std::make_unique<IdealModel>(std::move(compounds));
}

Equilibrium Model::temperaturePressure(double temperature, double pressure,
                                       std::span<const double> feed) const {
    auto result = phasesAt(temperature, pressure, feed);
    if (!result.refusal.empty()) throw LiquidLiquidSplit(result.refusal);
    return result;
}

double enthalpy(const Model& model, const Equilibrium& equilibrium) {
    return sum(model, equilibrium, &PhaseProperties::enthalpy);
}

double entropy(const Model& model, const Equilibrium& equilibrium) {
    return sum(model, equilibrium, &PhaseProperties::entropy);
}

double volume(const Model& model, const Equilibrium& equilibrium) {
    return sum(model, equilibrium, &PhaseProperties::volume);
}

}  // namespace orvane::package
