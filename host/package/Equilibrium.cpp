#include "package/Equilibrium.h"

#include "package/PhaseProperties.h"

namespace orvane::package {
namespace {

template <class Property>
double sum(const PengRobinson& equation, const Equilibrium& equilibrium, Property property) {
    double total = 0;
    for (const auto& phase : equilibrium.phases) {
        const PhaseProperties properties(equation, equilibrium.temperature, equilibrium.pressure,
                                         phase.composition, root(phase.kind));
        total += phase.fraction * (properties.*property)();
    }
    return total;
}

}  // namespace

std::string_view label(PhaseKind kind) { return kind == PhaseKind::vapor ? "Vapor" : "Liquid"; }

Root root(PhaseKind kind) { return kind == PhaseKind::vapor ? Root::vaporLike : Root::liquidLike; }

double enthalpy(const PengRobinson& equation, const Equilibrium& equilibrium) {
    return sum(equation, equilibrium, &PhaseProperties::enthalpy);
}

double entropy(const PengRobinson& equation, const Equilibrium& equilibrium) {
    return sum(equation, equilibrium, &PhaseProperties::entropy);
}

double volume(const PengRobinson& equation, const Equilibrium& equilibrium) {
    return sum(equation, equilibrium, &PhaseProperties::volume);
}

}  // namespace orvane::package
