// Derivatives of the properties of a phase against differences of the properties, and the laws that they obey.
#include "host/PropertyDerivatives.h"
#include "package/CompoundTable.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string_view>
#include <utility>

using namespace orvane::host;
using namespace orvane::package;
using doctest::Approx;
using Values = std::vector<double>;

namespace {

std::unique_ptr<const Model> modelOf(std::string_view name) {
    std::vector<Compound> compounds;
    for (const char* id : {"methane", "propane", "n-pentane", "carbon-dioxide"})
        compounds.push_back(CompoundTable::instance().at(id));
    return makeModel(name, std::move(compounds), {});
}

struct State {
    PhaseKind kind;
    double temperature, pressure;
    Values x;
};

const State states[] = {{PhaseKind::vapor, 350, 2e6, {.5, .2, .1, .2}},
                        {PhaseKind::liquid, 250, 4e6, {.1, .3, .5, .1}},
                        {PhaseKind::vapor, 420, 1.5e7, {.05, .15, .2, .6}}};

// The property itself, one value or one a compound.
Values valueOf(const Model& model, PhaseKind kind, double T, double P, const Values& x, Property property) {
    const auto of = model.properties(kind, T, P, x);
    switch (property) {
    case Property::enthalpy: return {of.enthalpy()};
    case Property::entropy: return {of.entropy()};
    case Property::gibbsEnergy: return {of.gibbsEnergy()};
    case Property::volume: return {of.volume()};
    case Property::density: return {of.density()};
    case Property::compressibilityFactor: return {of.compressibilityFactor()};
    case Property::fugacity: return of.fugacity();
    case Property::logFugacity: return of.logFugacity();
    case Property::fugacityCoefficient: return of.fugacityCoefficient();
    case Property::logFugacityCoefficient: return of.logFugacityCoefficient();
    default: FAIL("a derivative of a property that this test does not know"); return {};
    }
}

Values difference(Values high, const Values& low, double width) {
    for (std::size_t i = 0; i < high.size(); ++i) high[i] = (high[i] - low[i]) / width;
    return high;
}

// At amounts that need not add up to one mole: of the total for a molar property, else of the value.
Values atAmounts(const Model& model, const State& state, Values amounts, Property property) {
    double total = 0;
    for (const double amount : amounts) total += amount;
    for (double& amount : amounts) amount /= total;
    auto result = valueOf(model, state.kind, state.temperature, state.pressure, amounts, property);
    if (!isPerCompound(property)) result[0] *= total;
    return result;
}

void checkClose(const Values& found, const Values& expected) {
    REQUIRE(found.size() == expected.size());
    double scale = 1e-12;  // where all are nothing, rounding remains
    for (const double value : expected) scale = std::max(scale, std::abs(value));
    for (std::size_t i = 0; i < found.size(); ++i)
        CHECK(found[i] == Approx(expected[i]).epsilon(2e-6).scale(scale));
}

double sumOf(const Values& x, const Values& partial) {
    double sum = 0;
    for (std::size_t i = 0; i < x.size(); ++i) sum += x[i] * partial[i];
    return sum;
}

template <class Check> void atEveryState(Check check) {
    for (const auto name : modelNames()) {
        const auto model = modelOf(name);
        for (const State& state : states) {
            CAPTURE(name);
            CAPTURE(state.temperature);
            const auto of = model->properties(state.kind, state.temperature, state.pressure, state.x);
            check(*model, state, [&](Property property, By by) {
                return calculateDerivative(*model, state.kind, of, {property, by});
            });
        }
    }
}

}  // namespace

TEST_CASE("Every derivative that is offered is the limit of differences") {
    atEveryState([](const Model& model, const State& state, const auto& derivative) {
        const auto& [kind, T, P, x] = state;
        const std::size_t n = x.size();
        for (const Derivative& wanted : singlePhaseDerivatives()) {
            CAPTURE(identifier(wanted));
            const auto found = derivative(wanted.of, wanted.by);
            const double h = wanted.by == By::temperature ? 1e-4 * T
                             : wanted.by == By::pressure  ? 1e-4 * P
                                                          : 1e-5;
            if (!isByCompound(wanted.by)) {
                const bool byT = wanted.by == By::temperature;
                checkClose(found,
                           difference(valueOf(model, kind, byT ? T + h : T, byT ? P : P + h, x, wanted.of),
                                      valueOf(model, kind, byT ? T - h : T, byT ? P : P - h, x, wanted.of),
                                      2 * h));
                continue;
            }
            // Fractions cannot change one at a time: the first takes what the other gives.
            const bool byFraction = wanted.by == By::molFraction;
            const std::size_t values = found.size() / n;
            for (std::size_t j = byFraction ? 1 : 0; j < n; ++j) {
                CAPTURE(j);
                Values high = x, low = x, expected(values);
                high[j] += h;
                low[j] -= h;
                if (byFraction) {
                    high[0] -= h;
                    low[0] += h;
                }
                for (std::size_t i = 0; i < values; ++i)
                    expected[i] = found[j * values + i] - (byFraction ? found[i] : 0);
                checkClose(expected, difference(atAmounts(model, state, high, wanted.of),
                                                atAmounts(model, state, low, wanted.of), 2 * h));
            }
        }
    });
}

TEST_CASE("Partial molar properties add up to the molar ones and obey G = H - T S") {
    atEveryState([](const Model& model, const State& state, const auto& derivative) {
        const auto& [kind, T, P, x] = state;
        for (const Property property :
             {Property::enthalpy, Property::entropy, Property::gibbsEnergy, Property::volume}) {
            CAPTURE(orvane::host::identifier(property));
            const double molar = valueOf(model, kind, T, P, x, property)[0];
            CHECK(sumOf(x, derivative(property, By::moles)) == Approx(molar).epsilon(1e-10));
            CHECK(derivative(property, By::molFraction) == derivative(property, By::moles));
        }
        const auto H = derivative(Property::enthalpy, By::moles),
                   S = derivative(Property::entropy, By::moles),
                   G = derivative(Property::gibbsEnergy, By::moles);
        for (std::size_t i = 0; i < x.size(); ++i)
            CHECK(G[i] == Approx(H[i] - T * S[i]).scale(1e4).epsilon(1e-12));
    });
}

TEST_CASE("Fugacity coefficients by amounts are symmetric, and obey Gibbs and Duhem and Euler") {
    atEveryState([](const Model&, const State& state, const auto& derivative) {
        const auto& x = state.x;
        const std::size_t n = x.size();
        const auto byMoles = derivative(Property::logFugacityCoefficient, By::moles);
        const auto ofFugacity = derivative(Property::logFugacity, By::moles);
        for (std::size_t j = 0; j < n; ++j) {
            double gibbsDuhem = 0, euler = 0, ofTotal = 0;
            for (std::size_t i = 0; i < n; ++i) {
                CHECK(byMoles[j * n + i] == Approx(byMoles[i * n + j]).scale(1).epsilon(1e-12));
                gibbsDuhem += x[i] * byMoles[j * n + i];
                euler += x[i] * byMoles[i * n + j];
                ofTotal += x[i] * ofFugacity[i * n + j];
            }
            CHECK(gibbsDuhem == Approx(0).scale(1).epsilon(1e-11));
            CHECK(euler == Approx(0).scale(1).epsilon(1e-11));
            CHECK(ofTotal == Approx(0).scale(1).epsilon(1e-11));
        }
    });
}

TEST_CASE("By a compound that is absent the logarithm of a fugacity is infinite, its coefficient is not") {
    const auto model = modelOf("Peng-Robinson");
    const Values x{.5, 0, .5, 0};
    const auto of = model->properties(PhaseKind::vapor, 400, 1e5, x);
    const auto derivative = [&](Property property) {
        return calculateDerivative(*model, PhaseKind::vapor, of, {property, By::moles});
    };
    CHECK(std::isinf(derivative(Property::logFugacity)[1 * 4 + 1]));
    CHECK(derivative(Property::gibbsEnergy)[1] == -std::numeric_limits<double>::infinity());
    CHECK(derivative(Property::entropy)[1] == std::numeric_limits<double>::infinity());
    for (const Property property : {Property::fugacity, Property::fugacityCoefficient, Property::enthalpy})
        for (const double value : derivative(property)) CHECK(std::isfinite(value));
    // Into nothing of it, its fugacity is what its coefficient makes of the pressure.
    CHECK(derivative(Property::fugacity)[1 * 4 + 1] == Approx(of.fugacityCoefficient()[1] * 1e5));
    for (const double value : derivative(Property::logFugacity)) CHECK(!std::isnan(value));
}
