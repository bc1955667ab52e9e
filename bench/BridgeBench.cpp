// What it costs a script to ask the simulator's thermodynamics, against the same calls of the host made from C++, and
// against those that a user would make through ctypes. The host's objects cost nothing.
#include "bench/FreeMaterial.h"
#include "bench/Measure.h"
#include "bench/Unit.h"

#include <fmt/format.h>

#include <fstream>
#include <iterator>

namespace {

using namespace orvane::bench;

constexpr double propertyLimit = 1e-6;     // s above the host's own calls
constexpr double propertiesLimit = 3e-6;   // likewise, of eight properties in one call
constexpr double equilibriumLimit = 4e-6;  // likewise, of two phases
constexpr int calls = 1000;

const std::vector<std::string> eightProperties = {
    "enthalpy", "entropy", "volume", "density", "gibbsEnergy", "heatCapacityCp", "viscosity", "speedOfSound"};

using Thermo = ICapeThermoMaterial::Table;

/// The calls of the host that a script's request leads to, as a C++ program would make them.
class HostCalls {
public:
    HostCalls(FreeMaterial& material, const std::vector<std::string>& properties)
        : material_(query<ICapeThermoMaterial>(material.as<ICapeThermoMaterial>())),
          routine_(query<ICapeThermoPropertyRoutine>(material_)),
          equilibrium_(query<ICapeThermoEquilibriumRoutine>(material_)),
          x_(static_cast<std::size_t>(material.compoundCount()), 0.01),
          properties_(properties),
          propertyArray_(properties) {
        for (const std::string& property : properties) propertyTexts_.emplace_back(property);
    }

    void phaseProperties() {
        call<&Thermo::GetPresentPhases>(material_, present_.out(), status_.out());
        setSingle(temperature_, none_, {&t_, 1});
        setSingle(pressure_, none_, {&p_, 1});
        setSingle(fraction_, mole_, x_);
        call<&ICapeThermoPropertyRoutine::Table::CalcSinglePhaseProp>(routine_, propertyArray_.in(),
                                                                      vapor_.in());
        for (const StringObject& property : propertyTexts_)
            call<&Thermo::GetSinglePhaseProp>(material_, property.in(), vapor_.in(), mole_.in(),
                                              result_.out());
        benchmark::DoNotOptimize(result_.view()[0]);
    }

    void equilibrium() {
        call<&Thermo::SetOverallProp>(material_, fraction_.in(), mole_.in(), RealView(x_).in());
        call<&Thermo::SetPresentPhases>(material_, phases_.in(), status_.in());
        call<&Thermo::SetOverallProp>(material_, temperature_.in(), none_.in(), RealView({&t_, 1}).in());
        call<&Thermo::SetOverallProp>(material_, pressure_.in(), none_.in(), RealView({&p_, 1}).in());
        call<&ICapeThermoEquilibriumRoutine::Table::CalcEquilibrium>(equilibrium_, first_.in(), second_.in(),
                                                                     solutionType_.in());
        call<&Thermo::GetPresentPhases>(material_, present_.out(), status_.out());
        for (std::size_t i = 0; i < present_.size(); ++i) {
            for (const StringObject* property : {&phaseFraction_, &temperature_, &pressure_, &fraction_})
                call<&Thermo::GetSinglePhaseProp>(material_, property->in(), present_[i].in(), mole_.in(),
                                                  result_.out());
        }
        benchmark::DoNotOptimize(result_.view()[0]);
    }

private:
    void setSingle(const StringObject& property, const StringObject& basis, std::span<const double> values) {
        call<&Thermo::SetSinglePhaseProp>(material_, property.in(), vapor_.in(), basis.in(),
                                          RealView(values).in());
    }

    Ref<ICapeThermoMaterial> material_;
    Ref<ICapeThermoPropertyRoutine> routine_;
    Ref<ICapeThermoEquilibriumRoutine> equilibrium_;
    std::vector<double> x_;
    std::vector<std::string> properties_;
    StringArray propertyArray_;
    std::vector<StringObject> propertyTexts_;
    const double t_ = 300, p_ = 1e5;
    const StringObject temperature_{"temperature"}, pressure_{"pressure"}, fraction_{"fraction"},
        phaseFraction_{"phaseFraction"}, mole_{"mole"}, none_, vapor_{"Vapor"}, solutionType_{"unspecified"};
    StringArray phases_{{"Vapor", "Liquid"}}, first_{{"temperature", "", "overall"}},
        second_{{"pressure", "", "overall"}};
    StringArray present_;
    EnumerationArray status_;
    RealArray result_;
};

/// A unit whose Calculate repeats one statement on a feed and a phase of it.
class Repeater {
public:
    Repeater(FreeMaterial& feed, FreeMaterial& product, const std::string& statement)
        : unit_((std::string(feedAndProduct) +
                 "def Calculate(unit):\n"
                 "    feed = unit.ports['Feed']\n"
                 "    x = list(feed.x)\n"
                 "    phase = feed.create_vapor_phase(t=300, p=1e5, x=x)\n"
                 "    for i in range(unit.parameters['N'].value):\n        " +
                 statement + "\n")
                    .c_str(),
                feed.as<ICapeThermoMaterial>(), product.as<ICapeThermoMaterial>()) {
        call<&ICapeIntegerParameter::Table::putValue>(unit_.parameter<ICapeIntegerParameter>("N"),
                                                      CapeInteger{calls});
        unit_.calculate();
    }

    void run() { unit_.calculate(); }

private:
    Unit unit_;
};

template <class Peer>
void measureStatement(benchmark::State& state, std::size_t compounds, const std::string& statement,
                      double limit, const std::vector<std::string>& properties, Peer&& peer) {
    const auto feed = makeObject<FreeMaterial>(compounds, true),
               product = makeObject<FreeMaterial>(compounds, true);
    Repeater script(*feed, *product, statement);
    HostCalls host(*feed, properties);
    host.equilibrium();
    measureAbove(
        state, limit, calls, [&] { script.run(); }, [&] { peer(host); });
}

void phaseProperty(benchmark::State& state) {
    measureStatement(state, 3, "phase.get_property('enthalpy')", propertyLimit, {"enthalpy"},
                     [](HostCalls& host) { host.phaseProperties(); });
}
BENCHMARK(phaseProperty)
    ->Name("get_property of a phase")
    ->UseManualTime()
    ->Iterations(500)
    ->Unit(benchmark::kMicrosecond);

void phaseProperties(benchmark::State& state) {
    measureStatement(state, 3, fmt::format("phase.get_property(['{}'])", fmt::join(eightProperties, "','")),
                     propertiesLimit, eightProperties, [](HostCalls& host) { host.phaseProperties(); });
}
BENCHMARK(phaseProperties)
    ->Name("get_property of a phase, eight at once")
    ->UseManualTime()
    ->Iterations(300)
    ->Unit(benchmark::kMicrosecond);

void equilibrium(benchmark::State& state) {
    measureStatement(state, 3, "feed.create_phase_equilibrium(x, 'temperature', 300, 'pressure', 1e5).phases",
                     equilibriumLimit, {}, [](HostCalls& host) { host.equilibrium(); });
}
BENCHMARK(equilibrium)
    ->Name("PhaseEquilibrium of two phases")
    ->UseManualTime()
    ->Iterations(300)
    ->Unit(benchmark::kMicrosecond);

/// The composition's way: what a hundred compounds cost more than three, against Python's own conversion of a list of as
/// many numbers to an array and back.
void longComposition(benchmark::State& state) {
    const auto secondsFor = [&](FreeMaterial& material, const std::string& statement) {
        auto script = std::make_shared<Repeater>(material, material, statement);
        return [script] { return secondsOf(1, [&] { script->run(); }) / calls; };
    };
    const auto few = makeObject<FreeMaterial>(std::size_t{3}),
               many = makeObject<FreeMaterial>(std::size_t{100});
    const std::string request = "phase.x = x; phase.get_property('enthalpy')";
    const std::string conversion = "array.array('d', x).tolist()";
    const auto withFew = secondsFor(*few, request), withMany = secondsFor(*many, request);
    const auto convertFew = secondsFor(*few, "import array; " + conversion),
               convertMany = secondsFor(*many, "import array; " + conversion);
    double own = 0, others = 0;
    for (auto _ : state) {
        const double seconds = withMany() - withFew();
        own += seconds;
        others += convertMany() - convertFew();
        state.SetIterationTime(std::max(seconds, 0.0));
    }
    state.counters["of conversion"] = own / others;
}
BENCHMARK(longComposition)
    ->Name("97 more compounds in a composition")
    ->UseManualTime()
    ->Iterations(300)
    ->Unit(benchmark::kMicrosecond);

void throughCtypes(benchmark::State& state) {
    const auto feed = makeObject<FreeMaterial>(), product = makeObject<FreeMaterial>();
    Repeater own(*feed, *product, "phase.get_property('enthalpy')");
    const auto material = query<ICapeThermoMaterial>(feed->as<ICapeThermoMaterial>());
    const auto routine = query<ICapeThermoPropertyRoutine>(material);
    std::ifstream file(std::filesystem::path(ORVANE_SOURCE) / "bench" / "ctypes_peer.py");
    const std::string script{std::istreambuf_iterator<char>(file), {}};
    Unit peer(fmt::format("MATERIAL, ROUTINE = {}, {}\n", fmt::ptr(material.get()), fmt::ptr(routine.get()))
                  .append(script)
                  .c_str());
    call<&ICapeIntegerParameter::Table::putValue>(peer.parameter<ICapeIntegerParameter>("N"),
                                                  CapeInteger{calls});
    peer.calculate();
    double ours = 0, others = 0;
    for (auto _ : state) {
        ours += secondsOf(1, [&] { own.run(); });
        const double seconds = secondsOf(1, [&] { peer.calculate(); }) / calls;
        others += seconds * calls;
        state.SetIterationTime(seconds);
    }
    state.counters["times ours"] = others / ours;
}
BENCHMARK(throughCtypes)
    ->Name("get_property of a phase, through ctypes")
    ->UseManualTime()
    ->Iterations(50)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
