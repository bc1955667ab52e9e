// How long the flashes of the property package take, against the limits that were set for them.
// Not here: their answers (tests/package).
#include "package/CompoundTable.h"
#include "package/Equilibrium.h"
#include "package/PengRobinsonModel.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace orvane::package;

constexpr double twoPhaseLimit = 30e-6;  // s, a flash at temperature and pressure
constexpr double onePhaseLimit = 10e-6;
constexpr double enthalpyLimit = 120e-6;  // at pressure or temperature and something else

struct Case {
    PengRobinsonModel model;
    std::vector<double> feed;
};

Case makeCase(std::initializer_list<std::string_view> ids, std::vector<double> feed) {
    std::vector<Compound> compounds;
    for (const auto id : ids) compounds.push_back(CompoundTable::instance().at(id));
    return {PengRobinsonModel(PengRobinson(std::move(compounds))), std::move(feed)};
}

const Case& naturalGas() {
    static const Case made = makeCase({"nitrogen", "carbon-dioxide", "methane", "ethane", "propane",
                                       "isobutane", "n-butane", "n-pentane", "n-hexane", "n-heptane"},
                                      {.01, .02, .70, .10, .06, .02, .03, .02, .02, .02});
    return made;
}

const Case& lightEnds() {
    static const Case made = makeCase({"methane", "ethane", "propane"}, {.3, .3, .4});
    return made;
}

// Runs `flash` over and over; `of limit` is the processor time of one as a fraction of the limit.
template <class FlashOnce>
void measure(benchmark::State& state, double limit, std::size_t phases, FlashOnce flash) {
    if (flash().phases.size() != phases) {
        state.SkipWithError("the state has another number of phases than the benchmark is named for");
        return;
    }
    const std::clock_t start = std::clock();
    for (auto _ : state) benchmark::DoNotOptimize(flash());
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    state.counters["of limit"] = seconds / static_cast<double>(state.iterations()) / limit;
}

void temperaturePressure(benchmark::State& state, const Case& (*make)(), double T, double P,
                         std::size_t phases) {
    const Case& c = make();
    measure(state, phases == 2 ? twoPhaseLimit : onePhaseLimit, phases,
            [&] { return c.model.temperaturePressure(T, P, c.feed); });
}

double valueOf(const Model& model, const Equilibrium& equilibrium, Quantity quantity) {
    switch (quantity) {
    case Quantity::vaporFraction: return equilibrium.vaporFraction;
    case Quantity::enthalpy: return enthalpy(model, equilibrium);
    case Quantity::entropy: return entropy(model, equilibrium);
    case Quantity::volume: return volume(model, equilibrium);
    }
    return 0;
}

// By the pressure and what the state at T and P has of a quantity.
void atPressure(benchmark::State& state, const Case& (*make)(), Quantity quantity, double T, double P,
                std::size_t phases) {
    const Case& c = make();
    const Target target{quantity, valueOf(c.model, c.model.temperaturePressure(T, P, c.feed), quantity)};
    measure(state, enthalpyLimit, phases, [&] { return c.model.atPressure(P, target, c.feed); });
}

void atTemperature(benchmark::State& state, const Case& (*make)(), Quantity quantity, double T, double P,
                   std::size_t phases) {
    const Case& c = make();
    const Target target{quantity, valueOf(c.model, c.model.temperaturePressure(T, P, c.feed), quantity)};
    measure(state, enthalpyLimit, phases, [&] { return c.model.atTemperature(T, target, c.feed); });
}

void dewPoint(benchmark::State& state, const Case& (*make)(), double P) {
    const Case& c = make();
    measure(state, enthalpyLimit, 2, [&] {
        return c.model.atPressure(P, {Quantity::vaporFraction, 1}, c.feed);
    });
}

BENCHMARK_CAPTURE(temperaturePressure, ten compounds two phases, naturalGas, 250.0, 3e6, 2);
BENCHMARK_CAPTURE(temperaturePressure, ten compounds retrograde, naturalGas, 290.0, 9e6, 2);
BENCHMARK_CAPTURE(temperaturePressure, ten compounds gas, naturalGas, 400.0, 3e6, 1);
BENCHMARK_CAPTURE(temperaturePressure, ten compounds liquid, naturalGas, 120.0, 3e6, 1);
BENCHMARK_CAPTURE(temperaturePressure, three compounds two phases, lightEnds, 250.0, 2e6, 2);
BENCHMARK_CAPTURE(temperaturePressure, three compounds gas, lightEnds, 350.0, 2e6, 1);
BENCHMARK_CAPTURE(atPressure, enthalpy ten compounds two phases, naturalGas, Quantity::enthalpy, 250.0, 3e6,
                  2);
BENCHMARK_CAPTURE(atPressure, enthalpy ten compounds gas, naturalGas, Quantity::enthalpy, 400.0, 3e6, 1);
BENCHMARK_CAPTURE(atPressure, enthalpy three compounds two phases, lightEnds, Quantity::enthalpy, 250.0, 2e6,
                  2);
BENCHMARK_CAPTURE(atPressure, entropy ten compounds two phases, naturalGas, Quantity::entropy, 250.0, 3e6, 2);
BENCHMARK_CAPTURE(atPressure, vapour fraction ten compounds, naturalGas, Quantity::vaporFraction, 250.0, 3e6,
                  2);
BENCHMARK_CAPTURE(atTemperature, vapour fraction ten compounds, naturalGas, Quantity::vaporFraction, 250.0,
                  3e6, 2);
BENCHMARK_CAPTURE(atPressure, vapour fraction three compounds, lightEnds, Quantity::vaporFraction, 250.0, 2e6,
                  2);
BENCHMARK_CAPTURE(dewPoint, ten compounds, naturalGas, 3e6);

}  // namespace
