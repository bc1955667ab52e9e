// How long the flashes of the property package take, against the limits that were set for them.
// Not here: their answers (tests/package).
#include "package/CompoundTable.h"
#include "package/Equilibrium.h"
#include "package/Flash.h"
#include "package/PengRobinson.h"

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
constexpr double enthalpyLimit = 120e-6;

struct Case {
    Flash flash;
    std::vector<double> feed;
};

Case makeCase(std::initializer_list<std::string_view> ids, std::vector<double> feed) {
    std::vector<Compound> compounds;
    for (const auto id : ids) compounds.push_back(CompoundTable::instance().at(id));
    return {Flash(PengRobinson(std::move(compounds))), std::move(feed)};
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
            [&] { return c.flash.temperaturePressure(T, P, c.feed); });
}

void pressureEnthalpy(benchmark::State& state, const Case& (*make)(), double T, double P,
                      std::size_t phases) {
    const Case& c = make();
    const double H = enthalpy(c.flash.equation(), c.flash.temperaturePressure(T, P, c.feed));
    measure(state, enthalpyLimit, phases, [&] { return c.flash.pressureEnthalpy(P, H, c.feed); });
}

BENCHMARK_CAPTURE(temperaturePressure, ten compounds two phases, naturalGas, 250.0, 3e6, 2);
BENCHMARK_CAPTURE(temperaturePressure, ten compounds retrograde, naturalGas, 290.0, 9e6, 2);
BENCHMARK_CAPTURE(temperaturePressure, ten compounds gas, naturalGas, 400.0, 3e6, 1);
BENCHMARK_CAPTURE(temperaturePressure, ten compounds liquid, naturalGas, 120.0, 3e6, 1);
BENCHMARK_CAPTURE(temperaturePressure, three compounds two phases, lightEnds, 250.0, 2e6, 2);
BENCHMARK_CAPTURE(temperaturePressure, three compounds gas, lightEnds, 350.0, 2e6, 1);
BENCHMARK_CAPTURE(pressureEnthalpy, ten compounds two phases, naturalGas, 250.0, 3e6, 2);
BENCHMARK_CAPTURE(pressureEnthalpy, ten compounds gas, naturalGas, 400.0, 3e6, 1);
BENCHMARK_CAPTURE(pressureEnthalpy, three compounds two phases, lightEnds, 250.0, 2e6, 2);

}  // namespace
