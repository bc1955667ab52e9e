#include "host/RunResult.h"

#include "package/IdealGas.h"
#include "package/PackageError.h"

namespace orvane::host {
namespace {

double valueOf(const StateValues& of, Property property) {
    return of.has(property) ? of.value(property) : notKnown;
}

std::vector<double> compositionOf(const StateValues& of) {
    if (!of.has(Property::fraction)) return {};
    const auto x = of.values(Property::fraction);
    return {x.begin(), x.end()};
}

}  // namespace

StreamResult streamResult(std::string port, bool isFeed, const MaterialObject& material) {
    const StateValues& overall = material.overall();
    StreamResult result;
    result.port = std::move(port);
    result.isFeed = isFeed;
    result.flowRate = valueOf(overall, Property::totalFlow);
    result.composition = compositionOf(overall);
    result.temperature = valueOf(overall, Property::temperature);
    result.pressure = valueOf(overall, Property::pressure);
    if (!material.isAtEquilibrium()) return result;

    result.vaporFraction = 0;
    for (const auto& [kind, values] : material.phases()) {
        const double fraction = values->value(Property::phaseFraction);
        if (kind == package::PhaseKind::vapor) result.vaporFraction = fraction;
        result.phases.push_back({std::string(label(kind)), fraction, compositionOf(*values)});
    }
    try {
        if (const auto energy = material.energy()) {
            result.enthalpy = energy->enthalpy;
            result.entropy = energy->entropy;
        }
    }
    catch (const package::PackageError&) {
        // The state is a result even where its energies cannot be had; they show as unknown.
    }
    return result;
}

std::vector<std::string> streamWarnings(const std::string& port, const MaterialObject& material) {
    std::vector<std::string> found = material.warnings();
    const StateValues& overall = material.overall();
    if (overall.has(Property::temperature) && overall.has(Property::fraction)) {
        const auto x = overall.values(Property::fraction);
        std::vector<package::Compound> present;
        for (std::size_t i = 0; i < x.size(); ++i) {
            if (x[i] > 0) present.push_back(material.package().compounds()[i]);
        }
        for (auto& warning : package::heatCapacityWarnings(present, overall.value(Property::temperature))) {
            found.push_back(std::move(warning));
        }
    }
    for (std::string& warning : found) warning = "stream '" + port + "': " + warning;
    return found;
}

}  // namespace orvane::host
