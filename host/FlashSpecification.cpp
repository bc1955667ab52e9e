#include "host/FlashSpecification.h"

#include "cobia/Error.h"
#include "host/PackageObject.h"

#include <stdexcept>

namespace orvane::host {

using COBIA::StringException;
using COBIA::TextsView;
using COBIA::toUtf8;
using package::PhaseKind;

ConditionKind conditionKind(TextsView specification) {
    if (specification.size() < 3) {
        throw StringException() << "a flash specification is property, basis and phase, not "
                                << specification.size() << " texts";
    }
    const Property given = property(specification[0]);
    if (given == Property::phaseFraction) {
        if (phaseKind(specification[2]) != PhaseKind::vapor ||
            basis(specification[1], given) != Basis::mole) {
            throw StringException()
                << "a flash takes the mole fraction of phase 'Vapor', of no other phase or basis";
        }
        return ConditionKind::vaporFraction;
    }
    if (!matches(specification[2], "overall")) {
        throw StringException() << "a flash takes '" << identifier(given) << "' of 'overall', not of '"
                                << toUtf8(specification[2]) << "'";
    }
    basis(specification[1], given);
    switch (given) {
    case Property::temperature: return ConditionKind::temperature;
    case Property::pressure: return ConditionKind::pressure;
    case Property::enthalpy: return ConditionKind::enthalpy;
    case Property::enthalpyF: return ConditionKind::enthalpyF;
    case Property::entropy: return ConditionKind::entropy;
    case Property::entropyF: return ConditionKind::entropyF;
    case Property::volume: return ConditionKind::volume;
    default: throw StringException() << "property '" << identifier(given) << "' cannot specify a flash";
    }
}

Property propertyOf(ConditionKind kind) {
    switch (kind) {
    case ConditionKind::temperature: return Property::temperature;
    case ConditionKind::pressure: return Property::pressure;
    case ConditionKind::vaporFraction: return Property::phaseFraction;
    case ConditionKind::enthalpy: return Property::enthalpy;
    case ConditionKind::enthalpyF: return Property::enthalpyF;
    case ConditionKind::entropy: return Property::entropy;
    case ConditionKind::entropyF: return Property::entropyF;
    case ConditionKind::volume: return Property::volume;
    }
    throw std::logic_error("a flash condition without its property");
}

std::optional<package::Solution> solutionType(COBIA::CapeTextView text) {
    if (matches(text, "unspecified") || matches(text, "normal")) return package::Solution::normal;
    if (matches(text, "retrograde")) return package::Solution::retrograde;
    return std::nullopt;
}

bool hasSolutionTypes(ConditionKind first, ConditionKind second) {
    return first == ConditionKind::vaporFraction || second == ConditionKind::vaporFraction;
}

}  // namespace orvane::host
