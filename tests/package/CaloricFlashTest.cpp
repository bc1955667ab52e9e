// Flashes to an enthalpy or entropy.
#include "package/PengRobinsonModel.h"
#include "package/PhaseProperties.h"
#include "tests/package/Mixtures.h"

#include "package/PackageError.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

constexpr double tolerance = 1e-9;

// Flashes back from the enthalpy and the entropy of an equilibrium; both must return them, and its
// temperature where that is not lost in a nearly isothermal boiling.
void checkRoundTrip(const PengRobinsonModel& flash, const Equilibrium& start, const Fractions& feed) {
    const double T = start.temperature, P = start.pressure;
    const double H = enthalpy(flash, start), S = entropy(flash, start);
    const auto byH = flash.atPressure(P, {Quantity::enthalpy, H}, feed),
               byS = flash.atPressure(P, {Quantity::entropy, S}, feed);
    CHECK(std::abs(enthalpy(flash, byH) - H) <= tolerance * std::max(std::abs(H), gasConstant * T));
    CHECK(std::abs(entropy(flash, byS) - S) <= tolerance * std::max(std::abs(S), gasConstant));
    for (const auto* result : {&byH, &byS}) {
        CHECK(result->temperature == doctest::Approx(T).epsilon(1e-8));
        CHECK(result->vaporFraction == doctest::Approx(start.vaporFraction).scale(1).epsilon(1e-6));
        CHECK(result->pressure == P);
    }
}

}  // namespace

TEST_CASE("A natural gas comes back from its enthalpy and entropy everywhere") {
    const PengRobinsonModel flash(naturalGas());
    for (double T = 130; T < 420; T += 17.3)
        for (double P = 1e4; P < 3e7; P *= 2.3) {
            CAPTURE(T);
            CAPTURE(P);
            checkRoundTrip(flash, flash.temperaturePressure(T, P, naturalGasFeed), naturalGasFeed);
        }
}

TEST_CASE("Flashes hold at the phase boundaries, in the retrograde region and close to critical") {
    const auto equation = mixtureOf({"methane", "propane"});
    const PengRobinsonModel flash(equation);
    const Fractions feed{.6, .4};
    for (const double P :
         {1e5, 3e6, 8e6, 8.9e6, 9.3e6}) {  // from far below to just above the critical pressure
        double inside = 0;
        for (double T = 320; T > 110 && inside == 0; T -= 1)
            if (flash.temperaturePressure(T, P, feed).phases.size() == 2) inside = T;
        if (inside == 0) inside = 296;
        for (double end : {90.0, 400.0}) {
            double in = inside, out = end;
            while (std::abs(in - out) > 1e-11 * in)
                (flash.temperaturePressure((in + out) / 2, P, feed).phases.size() == 2 ? in : out) =
                    (in + out) / 2;
            for (const double T : {in, out, in + 1e-6 * (inside - end), out + 1e-6 * (end - inside)}) {
                CAPTURE(P);
                CAPTURE(T);
                checkRoundTrip(flash, flash.temperaturePressure(T, P, feed), feed);
            }
        }
    }
}

TEST_CASE("Mixtures that boil within a thousandth of a degree or less find their vapour fraction") {
    struct {
        PengRobinson equation;
        Fractions feed;
        double pressure;
    } const rows[] = {
        {mixtureOf({"m-xylene", "p-xylene"}), {.5, .5}, 1e5},
        {mixtureOf({"propane", "ethane"}), {1 - 1e-7, 1e-7}, 1e6},
        {mixtureOf({"propane", "ethane"}), {1 - 1e-14, 1e-14}, 1e6},
        {mixtureOf({"water", "nitrogen", "methane"}), {1 - 2e-12, 1e-12, 1e-12}, 1e5},
    };
    for (const auto& row : rows) {
        const PengRobinsonModel flash(row.equation);
        // From well below to well above boiling: enthalpy must rise steadily through the whole dome.
        const double low =
            enthalpy(flash, flash.atPressure(row.pressure, {Quantity::entropy, -150}, row.feed));
        double lastT = 0, lastV = 0;
        int twoPhases = 0;
        for (double H = low; H < low + 90000; H += 700) {
            CAPTURE(row.pressure);
            CAPTURE(H);
            const auto result = flash.atPressure(row.pressure, {Quantity::enthalpy, H}, row.feed);
            CHECK(std::abs(enthalpy(flash, result) - H) <= tolerance * std::max(std::abs(H), 2000.0));
            CHECK(result.temperature >= lastT * (1 - 1e-9));
            CHECK(result.vaporFraction >= lastV);
            lastT = result.temperature;
            lastV = result.vaporFraction;
            twoPhases += result.phases.size() == 2;
        }
        CHECK(twoPhases > 20);
        CHECK(lastV == 1);
    }
}

TEST_CASE("A pure compound boils at its saturation temperature") {
    for (const char* id : {"water", "propane", "hydrogen"}) {
        const auto equation = mixtureOf({id});
        const PengRobinsonModel flash(equation);
        const double Pc = equation.compounds()[0].criticalPressure,
                     Tc = equation.compounds()[0].criticalTemperature;
        for (const double fraction : {1e-3, 0.1, 0.9, 0.9999, 1.0001}) {
            const double P = fraction * Pc;
            CAPTURE(equation.compounds()[0].id);
            CAPTURE(P);
            const double low = enthalpy(flash, flash.temperaturePressure(0.3 * Tc, P, Fractions{1}));
            const double high = enthalpy(flash, flash.temperaturePressure(1.3 * Tc, P, Fractions{1}));
            int twoPhases = 0;
            for (double H = low; H < high; H += (high - low) / 100) {
                const auto result = flash.atPressure(P, {Quantity::enthalpy, H}, Fractions{1});
                CHECK(std::abs(enthalpy(flash, result) - H) <=
                      tolerance * std::max(std::abs(H), gasConstant * result.temperature));
                if (result.phases.size() < 2) continue;
                ++twoPhases;
                CHECK(vaporPressure(equation, result.temperature, P) == doctest::Approx(P).epsilon(1e-9));
            }
            if (fraction < 0.5) CHECK(twoPhases > 30);
            if (fraction > 1) CHECK(twoPhases == 0);
        }
    }
}

TEST_CASE("Throttling and isentropic expansion obey the second law") {
    const auto equation = naturalGas();
    const PengRobinsonModel flash(equation);
    const auto start = flash.temperaturePressure(300, 8e6, naturalGasFeed);
    const double H = enthalpy(flash, start), S = entropy(flash, start);
    double lastT = 300, lastS = S, lastH = H;
    for (double P = 7e6; P > 1e5; P *= 0.8) {
        const auto throttled = flash.atPressure(P, {Quantity::enthalpy, H}, naturalGasFeed);
        const auto expanded = flash.atPressure(P, {Quantity::entropy, S}, naturalGasFeed);
        CHECK(throttled.temperature < lastT);  // below its inversion temperature
        CHECK(expanded.temperature < throttled.temperature);
        CHECK(entropy(flash, throttled) > lastS);
        CHECK(enthalpy(flash, expanded) < lastH);
        lastT = throttled.temperature;
        lastS = entropy(flash, throttled);
        lastH = enthalpy(flash, expanded);
    }
}

TEST_CASE("Random mixtures come back from their enthalpy and entropy") {
    std::mt19937_64 random(7);
    const auto uniform = [&](double low, double high) {
        return std::uniform_real_distribution<>(low, high)(random);
    };
    auto compounds = CompoundTable::instance().compounds();
    int done = 0;
    for (int count = 0; count < 1500; ++count) {
        std::shuffle(compounds.begin(), compounds.end(), random);
        const auto n = 1 + static_cast<std::size_t>(uniform(0, 1) < 0.7 ? uniform(0, 7) : uniform(0, 30));
        const PengRobinsonModel flash(
            PengRobinson({compounds.begin(), compounds.begin() + static_cast<std::ptrdiff_t>(n)}));
        Fractions feed(n);
        double sum = 0, meanTc = 0;
        for (double& z : feed)
            sum += z = uniform(0, 1) < 0.1 ? std::pow(10, uniform(-12, -2)) : uniform(0, 1);
        for (std::size_t i = 0; i < n; ++i) meanTc += (feed[i] /= sum) * compounds[i].criticalTemperature;
        const double T = std::max(60.0, meanTc * uniform(0.5, 1.2)), P = std::pow(10, uniform(3, 7.5));
        CAPTURE(count);
        CAPTURE(T);
        CAPTURE(P);
        try {
            const auto start = flash.temperaturePressure(T, P, feed);
            if (!start.warnings.empty())
                continue;  // with a liquid left out, other temperatures have this enthalpy too
            checkRoundTrip(flash, start, feed);
            ++done;
        }
        catch (const LiquidLiquidSplit&) {
        }
    }
    CHECK(done > 1000);
}

TEST_CASE("An enthalpy that no temperature gives is refused with what was sought") {
    const PengRobinsonModel pure(mixtureOf({"methane"})), mixture(mixtureOf({"methane", "ethane"}));
    CHECK_THROWS_WITH_AS(pure.atPressure(1e5, {Quantity::enthalpy, -1e9}, Fractions{1}),
                         doctest::Contains("-1000000000"), PackageError);
    CHECK_THROWS_WITH_AS(mixture.atPressure(1e5, {Quantity::enthalpy, -1e9}, Fractions{.5, .5}),
                         doctest::Contains("-1000000000"), PackageError);
    CHECK_THROWS_AS(mixture.atPressure(1e5, {Quantity::entropy, -1e6}, Fractions{.5, .5}), PackageError);
    // Inside of the jump where the water of a condensate stops being a liquid of its own.
    const PengRobinsonModel wet(mixtureOf({"water", "methane", "propane", "n-hexane"}));
    CHECK_THROWS_WITH_AS(wet.atPressure(3e6, {Quantity::enthalpy, -20000}, Fractions{.2, .5, .15, .15}),
                         doctest::Contains("second liquid"), PackageError);
}
