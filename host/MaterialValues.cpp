// The part of MaterialObject that reads and writes single values: bases, checks, flows.
#include "host/MaterialObject.h"
#include "host/PropertyCalculator.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

namespace orvane::host {

using COBIA::CapePhaseStatus;
using COBIA::RealsOut;
using COBIA::StringException;

namespace {

/// How far the sum of fractions may be off 1 before it is an error rather than rounding.
constexpr double sumTolerance = 1e-6;
/// Down to this a negative fraction is rounding of an absent compound.
constexpr double leastFraction = -1e-12;

}  // namespace

void MaterialObject::require(const StateValues& of, Property property) const {
    if (of.has(property)) return;
    throw StringException() << "property '" << identifier(property) << "' of " << owner(of)
                            << " was neither set nor calculated on " << errorSource();
}

double MaterialObject::molarMassOf(const StateValues& of, Property wanted) const {
    if (!of.has(Property::fraction)) {
        throw StringException() << "property '" << identifier(wanted) << "' of " << owner(of)
                                << " on a mass basis takes the composition, which was not set";
    }
    return molarMass(of.values(Property::fraction), package().molarMasses());
}

void MaterialObject::getState(const StateValues& of, double& temperature, double& pressure,
                              RealsOut fractions) const {
    for (const Property needed : {Property::temperature, Property::pressure, Property::fraction}) {
        require(of, needed);
    }
    fractions.assign(of.values(Property::fraction));
    temperature = of.value(Property::temperature);
    pressure = of.value(Property::pressure);
}

void MaterialObject::get(const StateValues& of, Property property, Basis basis, RealsOut values) const {
    if (property == Property::flow || property == Property::totalFlow) {
        getFlow(of, property, basis, values);
        return;
    }
    require(of, property);
    if (!isPerCompound(property)) {
        values.resize(1)[0] = getScalar(of, property, basis);
        return;
    }
    const auto stored = of.values(property);
    if (property != Property::fraction || basis == Basis::mole) {
        values.assign(stored);
        return;
    }
    const double mean = molarMassOf(of, property);
    const auto out = values.resize(stored.size());
    for (std::size_t i = 0; i < out.size(); ++i) out[i] = stored[i] * package().molarMasses()[i] / mean;
}

void MaterialObject::get(const StateValues& of, Derivative derivative, Basis basis, RealsOut values) const {
    const auto* stored = of.find(derivative);
    if (!stored) {
        throw StringException() << "property '" << identifier(derivative) << "' of " << owner(of)
                                << " was not calculated on " << errorSource();
    }
    values.assign(*stored);
    if (basis != Basis::mass) return;
    const double perMole = molarMassOf(of, derivative.of);
    const double factor = basisRule(derivative.of) == BasisRule::density ? perMole : 1 / perMole;
    values.resize(1)[0] = stored->front() * factor;
}

double MaterialObject::getScalar(const StateValues& of, Property property, Basis basis) const {
    const double stored = of.value(property);
    if (basis != Basis::mass) return stored;
    switch (basisRule(property)) {
    case BasisRule::perAmount: return stored / molarMassOf(of, property);
    case BasisRule::density: return stored * molarMassOf(of, property);
    case BasisRule::phaseFraction:
        return stored * molarMassOf(of, property) / molarMassOf(overall_, property);
    default: throw std::logic_error("a mass basis of a property that has none");
    }
}

void MaterialObject::getFlow(const StateValues& of, Property property, Basis basis, RealsOut values) const {
    require(overall_, Property::totalFlow);
    double total = overall_.value(Property::totalFlow);
    if (&of != &overall_) {
        require(of, Property::phaseFraction);
        total *= of.value(Property::phaseFraction);
    }
    if (property == Property::totalFlow) {
        values.resize(1)[0] = basis == Basis::mass ? total * molarMassOf(of, property) : total;
        return;
    }
    require(of, Property::fraction);
    const auto x = of.values(Property::fraction);
    const auto out = values.resize(x.size());
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = total * x[i] * (basis == Basis::mass ? package().molarMasses()[i] : 1);
    }
}

void MaterialObject::check(const StateValues& to, Property property, Reals values) const {
    const std::size_t expected = isPerCompound(property) ? package().size() : 1;
    if (values.size() != expected) {
        throw StringException() << "property '" << identifier(property) << "' of " << owner(to) << " takes "
                                << expected << (expected == 1 ? " value" : " values") << ", not "
                                << values.size();
    }
    const bool positive = property == Property::temperature || property == Property::pressure;
    const bool notNegative = property == Property::totalFlow || property == Property::flow ||
                             property == Property::fraction || property == Property::phaseFraction;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double value = values[i];
        const char* fault = !std::isfinite(value)                  ? "is not a number"
                            : positive && value <= 0               ? "is not positive"
                            : notNegative && value < leastFraction ? "is negative"
                                                                   : nullptr;
        if (!fault) continue;
        const std::string compound =
            isPerCompound(property) ? ", compound '" + package().ids()[i] + "'" : std::string();
        throw StringException() << "property '" << identifier(property) << "' of " << owner(to) << compound
                                << ": " << value << " " << fault;
    }
}

void MaterialObject::put(StateValues& to, Property property, Basis basis, Reals values) {
    const bool ofMixture = &to == &overall_;
    if (ofMixture && property == Property::phaseFraction) {
        throw StringException() << "property 'phaseFraction' is of a phase, not of the overall mixture";
    }
    if (!ofMixture && (property == Property::flow || property == Property::totalFlow)) {
        throw StringException() << "property '" << identifier(property) << "' of " << owner(to)
                                << " follows from the flow of the mixture and the phase fraction";
    }
    check(to, property, values);
    if (property == Property::flow)
        putFlow(basis, values);
    else if (property == Property::fraction)
        putFractions(to, basis, values);
    else if (isPerCompound(property))
        to.set(property, values);
    else {
        const double value = moleBasis(to, property, basis, values[0]);
        const bool sameState = !ofMixture || (to.has(property) && to.value(property) == value);
        to.set(property, value);
        if (property == specified_ && ofMixture) specified_.reset();
        const bool state = property == Property::temperature || property == Property::pressure;
        if (state && !sameState) mixtureChanged();
    }
}

double MaterialObject::moleBasis(const StateValues& to, Property property, Basis basis, double value) const {
    if (basis != Basis::mass) return value;
    switch (basisRule(property)) {
    case BasisRule::perAmount: return value * molarMassOf(to, property);
    case BasisRule::totalFlow:
    case BasisRule::density: return value / molarMassOf(to, property);
    case BasisRule::phaseFraction: return value * molarMassOf(overall_, property) / molarMassOf(to, property);
    default: throw std::logic_error("a mass basis of a property that has none");
    }
}

void MaterialObject::putFractions(StateValues& to, Basis basis, Reals values) {
    const double sum = std::accumulate(values.begin(), values.end(), 0.0);
    if (!(std::abs(sum - 1) <= sumTolerance)) {
        throw StringException() << "property 'fraction' of " << owner(to) << " adds up to " << sum
                                << ", not to 1";
    }
    const auto amount = [&](std::size_t i) {
        return std::max(values[i], 0.0) / (basis == Basis::mass ? package().molarMasses()[i] : 1);
    };
    double total = 0;
    for (std::size_t i = 0; i < values.size(); ++i) total += amount(i);
    bool changed = !to.has(Property::fraction);
    const auto x = to.fill(Property::fraction);
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double fraction = amount(i) / total;
        changed = changed || fraction != x[i];
        x[i] = fraction;
    }
    if (changed && &to == &overall_) mixtureChanged();
}

void MaterialObject::putFlow(Basis basis, Reals values) {
    const auto amount = [&](std::size_t i) {
        return std::max(values[i], 0.0) / (basis == Basis::mass ? package().molarMasses()[i] : 1);
    };
    double total = 0;
    for (std::size_t i = 0; i < values.size(); ++i) total += amount(i);
    if (total == 0) {
        throw StringException()
            << "property 'flow' of the overall mixture is 0 for every compound, which gives no "
               "composition; set 'fraction' and 'totalFlow'";
    }
    const auto x = overall_.fill(Property::fraction);
    for (std::size_t i = 0; i < x.size(); ++i) x[i] = amount(i) / total;
    overall_.set(Property::totalFlow, total);
    mixtureChanged();
}

void MaterialObject::mixtureChanged() {
    if (specified_) overall_.forget(*specified_);
    specified_.reset();
    for (PhaseSlot& phase : phases_) phase.status = CapePhaseStatus::unknown;
}

// The host's own road

void MaterialObject::specify(Reals fractions, double totalFlow, Condition first, Condition second) {
    clearAllProps();
    put(overall_, Property::fraction, Basis::mole, fractions);
    put(overall_, Property::totalFlow, Basis::mole, {&totalFlow, 1});
    flash(first, second, package::Solution::normal);
}

std::vector<MaterialObject::Phase> MaterialObject::phases() const {
    std::vector<Phase> result;
    for (const package::PhaseKind kind : phaseKinds) {
        if (slot(kind).present) result.push_back({kind, &slot(kind).values});
    }
    return result;
}

bool MaterialObject::isAtEquilibrium() const {
    bool any = false;
    for (const PhaseSlot& phase : phases_) {
        if (!phase.present) continue;
        if (phase.status != CapePhaseStatus::atEquilibrium) return false;
        any = true;
    }
    return any;
}

std::optional<MaterialObject::Energy> MaterialObject::energy() const {
    if (!isAtEquilibrium()) return std::nullopt;
    Energy result{0, 0};
    for (const Phase& phase : phases()) {
        constexpr Property wanted[] = {Property::enthalpy, Property::entropy};
        StateValues values = *phase.values;
        calculate(package(), phase.kind, wanted, {}, values);
        const double amount = values.value(Property::phaseFraction);
        result.enthalpy += amount * values.value(Property::enthalpy);
        result.entropy += amount * values.value(Property::entropy);
    }
    return result;
}

}  // namespace orvane::host
