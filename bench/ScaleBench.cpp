// What large scripts and many units cost, against the limits set for them and against plain Python in the same run.
#include "bench/Measure.h"
#include "bench/Unit.h"

#include <fmt/format.h>

#include <fstream>
#include <memory>
#include <unistd.h>
#include <vector>

namespace {

using namespace orvane::bench;

constexpr double declarationLimit = 20e-3;  // s
constexpr double loadingLimit = 1.5;        // times plain compile and exec
constexpr double creationLimit = 1e-3;      // s a unit
constexpr double memoryLimit = 100e3;       // bytes a unit
constexpr int manyUnits = 1000;

/// Memory that the process holds. What was freed before counts as held, so this comes before the large scripts.
double residentBytes() {
    std::ifstream file("/proc/self/statm");
    double pages = 0;
    file >> pages >> pages;
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE));
}

void thousandUnits(benchmark::State& state) {
    Unit unit("def Configure(unit): pass\ndef Calculate(unit): print('done')\n");
    const auto calculations = [&] { return secondsOf(20000, [&] { unit.calculate(); }); };
    calculations();
    double creation = 0, memory = 0, alone = 0, among = 0;
    for (auto _ : state) {
        alone += calculations();
        std::vector<std::unique_ptr<Unit>> units;
        units.reserve(manyUnits);
        const double before = residentBytes();
        const double seconds = secondsOf(manyUnits, [&] { units.push_back(std::make_unique<Unit>()); });
        for (const auto& each : units) each->configure();
        memory = std::max(memory, (residentBytes() - before) / manyUnits);
        creation += seconds;
        state.SetIterationTime(seconds);
        among += calculations();
    }
    const double rounds = static_cast<double>(state.iterations());
    state.counters["of limit"] = creation / rounds / creationLimit;
    state.counters["kB each"] = memory / 1e3;
    state.counters["memory of limit"] = memory / memoryLimit;
    state.counters["Calculate, many to one"] = among / alone;
}
BENCHMARK(thousandUnits)
    ->Name("creating each of 1,000 units")
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMicrosecond);

void declarations(benchmark::State& state) {
    constexpr const char* script =
        "def Configure(unit):\n"
        "    for i in range(100):\n"
        "        unit.add_port(f'Port {i}', unit.PortType.MATERIAL, unit.PortDirection.FEED)\n"
        "    for i in range(1000):\n"
        "        unit.add_parameter(f'Parameter {i}', unit.ParameterType.REAL, unit.ParameterMode.INPUT)\n";
    double total = 0;
    for (auto _ : state) {
        Unit unit(script);
        const double seconds = secondsOf(1, [&] { unit.configure(); });
        total += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["of limit"] = total / static_cast<double>(state.iterations()) / declarationLimit;
}
BENCHMARK(declarations)
    ->Name("Configure with 100 ports and 1,000 parameters")
    ->UseManualTime()
    ->Iterations(50)
    ->Unit(benchmark::kMillisecond);

/// 5,000 lines of functions, as a library of correlations has them.
std::string longScript() {
    std::string text;
    for (int i = 0; i < 1250; ++i)
        text += fmt::format("def correlation{0}(t, p=1e5):\n    a, b = {0}.5, [t, p, {0}]\n"
                            "    return a * t ** 2 + sum(b) / (1 + p) if t > {0} else None\n\n",
                            i);
    return text + "def Configure(unit): pass\n";
}

/// Times plain compile and exec of a text from within a script, by the clock that secondsOf reads.
class PlainPython {
public:
    explicit PlainPython(const std::string& text)
        : unit_(("import time\n"
                 "def Configure(unit):\n"
                 "    unit.add_parameter('seconds', unit.ParameterType.REAL, unit.ParameterMode.OUTPUT)\n"
                 "def Calculate(unit):\n"
                 "    start = time.process_time()\n"
                 "    exec(compile(text, '<string>', 'exec'), {})\n"
                 "    unit.parameters['seconds'].value = time.process_time() - start\n"
                 "text = '''\n" +
                 text + "'''\n")
                    .c_str()) {}

    double seconds() {
        unit_.calculate();
        double result = 0;
        call<&ICapeRealParameter::Table::getValue>(unit_.parameter<ICapeRealParameter>("seconds"), &result);
        return result;
    }

private:
    Unit unit_;
};

void longLoading(benchmark::State& state) {
    const std::string script = longScript();
    PlainPython plain(script);
    double own = 0, others = 0;
    for (auto _ : state) {
        others += plain.seconds();
        Unit unit(script.c_str());
        const double seconds = secondsOf(1, [&] { unit.configure(); });
        own += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["times plain"] = own / others;
    state.counters["of limit"] = own / others / loadingLimit;
}
BENCHMARK(longLoading)
    ->Name("loading a script of 5,000 lines")
    ->UseManualTime()
    ->Iterations(30)
    ->Unit(benchmark::kMillisecond);

}  // namespace
