// What the unit operation costs: a calculation, against the same calls of the host made from C++ and
// against the limits set for them; and the orvane command from its start to its result.
// Not here: the flashes of the property package (FlashBench).
#include "bench/FreeMaterial.h"
#include "bench/Measure.h"
#include "bench/Unit.h"
#include "host/MaterialObject.h"
#include "package/CompoundTable.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>

namespace {

using namespace orvane;
using namespace orvane::bench;
using Clock = std::chrono::steady_clock;

constexpr double calculateLimit = 15e-6;  // s above the host's own calls
constexpr double startLimit = 150e-3;     // s, the whole process

void emptyCalculate(benchmark::State& state) {
    const auto feed = makeObject<FreeMaterial>(), product = makeObject<FreeMaterial>();
    Unit unit((std::string(feedAndProduct) + "def Calculate(unit):\n    pass\n").c_str(),
              feed->as<ICapeThermoMaterial>(), product->as<ICapeThermoMaterial>());
    unit.calculate();
    const Ref<ICapeThermoMaterial> material = query<ICapeThermoMaterial>(feed->as<ICapeThermoMaterial>());
    RealArray x;
    // What the empty calculation asks of the host: the state of the feed.
    const auto hostCalls = [&] {
        double temperature = 0, pressure = 0;
        call<&ICapeThermoMaterial::Table::GetOverallTPFraction>(material, &temperature, &pressure, x.out());
    };
    measureAbove(
        state, calculateLimit, 100,
        [&] {
            for (int i = 0; i < 100; ++i) unit.calculate();
        },
        hostCalls);
}
BENCHMARK(emptyCalculate)
    ->Name("Calculate of an empty script")
    ->UseManualTime()
    ->Iterations(1000)
    ->Unit(benchmark::kMicrosecond);

void heater(benchmark::State& state) {
    std::vector<package::Compound> compounds;
    for (const char* id : {"methane", "ethane", "propane"})
        compounds.push_back(package::CompoundTable::instance().at(id));
    const auto package =
        std::make_shared<host::PropertyPackage>(std::move(compounds), std::vector<package::Interaction>());
    const auto feed = makeObject<host::MaterialObject>("Feed", package);
    const auto product = makeObject<host::MaterialObject>("Product", package);
    const double x[] = {0.8, 0.15, 0.05};
    feed->specify(x, 10, {host::ConditionKind::temperature, 300}, {host::ConditionKind::pressure, 1e6});
    Unit unit(nullptr, feed->as<ICapeThermoMaterial>(), product->as<ICapeThermoMaterial>());
    call<&ICapeRealParameter::Table::putValue>(unit.parameter<ICapeRealParameter>("Heat Duty"), 5e4);
    const double enthalpy = feed->energy()->enthalpy + 5e3;
    const auto hostFlash = [&] {
        benchmark::DoNotOptimize(package->equilibrium({host::ConditionKind::pressure, 1e6},
                                                      {host::ConditionKind::enthalpy, enthalpy}, x));
    };
    double own = 0, flash = 0;
    for (auto _ : state) {
        flash += secondsOf(100, hostFlash);
        const double seconds = secondsOf(100, [&] { unit.calculate(); });
        own += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["of it flash"] = flash / own;
}
BENCHMARK(heater)
    ->Name("Calculate of the heater")
    ->UseManualTime()
    ->Iterations(100)
    ->Unit(benchmark::kMicrosecond);

void commandStart(benchmark::State& state) {
    const std::string command = std::string("'") + ORVANE_BIN + "/orvane' run '" + ORVANE_SOURCE +
                                "/examples/heater/heater.toml' > /dev/null";
    double seconds = 0;
    for (auto _ : state) {
        const auto start = Clock::now();
        if (std::system(command.c_str()) != 0) state.SkipWithError("orvane run failed");
        const double once = std::chrono::duration<double>(Clock::now() - start).count();
        seconds += once;
        state.SetIterationTime(once);
    }
    state.counters["of limit"] = seconds / static_cast<double>(state.iterations()) / startLimit;
}
BENCHMARK(commandStart)
    ->Name("orvane run, process start to end")
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);

}  // namespace
