// Phases at a temperature and pressure: published equilibria, the laws of equilibrium, and a slow independent
// search for phases that the flash may have missed.
#include "package/PengRobinsonModel.h"
#include "tests/package/EquilibriumChecks.h"
#include "tests/package/Mixtures.h"

#include "package/PackageError.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <limits>
#include <random>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

// Lowest tangent plane distance that plain successive substitution finds from a start at each compound, from
// vapour and liquid like starts and from the ideal gas: the slow way, by other code than the flash's.
double lowestTangentPlaneDistance(const PengRobinson& equation, double T, double P, const Fractions& z) {
    const std::size_t n = z.size();
    const auto lnPhi = equation.lnPhi(T, P, z, Root::stable);
    double lowest = std::numeric_limits<double>::infinity();
    for (std::size_t start = 0; start < n + 3; ++start) {
        Fractions W(n);
        for (std::size_t i = 0; i < n; ++i) {
            const auto& c = equation.compounds()[i];
            const double wilson = std::log(c.criticalPressure / P) +
                                  5.373 * (1 + c.acentricFactor) * (1 - c.criticalTemperature / T);
            W[i] = start < n        ? (i == start ? 1 : 1e-6)
                   : start == n     ? z[i] * std::exp(std::min(wilson, 50.0))
                   : start == n + 1 ? z[i] * std::exp(std::min(-wilson, 50.0))
                                    : z[i] * std::exp(lnPhi[i]);
        }
        for (int step = 0; step < 400; ++step) {
            double total = 0, tm = 1, change = 0;
            for (const double value : W) total += value;
            Fractions w = W;
            for (double& value : w) value /= total;
            const auto trial = equation.lnPhi(T, P, w, Root::stable);
            for (std::size_t i = 0; i < n; ++i) {
                if (W[i] == 0) continue;
                const double next = std::log(z[i]) + lnPhi[i] - trial[i];
                tm += W[i] * (std::log(W[i]) - next - 1);
                change = std::max(change, std::abs(next - std::log(W[i])));
                W[i] = std::exp(next);
            }
            lowest = std::min(lowest, tm);
            if (change < 1e-10 || tm < -1e-5) break;
        }
    }
    return lowest;
}

}  // namespace

// C. J. Geankoplis, Transport Processes and Unit Operations, 3rd ed. (1993), table 11.1-1, at 101.32 kPa.
TEST_CASE("Benzene and toluene boil as published") {
    const PengRobinsonModel flash(mixtureOf({"benzene", "toluene"}));
    struct {
        double temperature, x, y;
    } const rows[] = {{363.2, .581, .777}, {368.2, .411, .632}, {373.2, .258, .456}};
    for (const auto& row : rows) {
        const double z = (row.x + row.y) / 2;
        const auto result = flash.temperaturePressure(row.temperature, 101320, Fractions{z, 1 - z});
        REQUIRE(result.phases.size() == 2);
        CHECK(result.phases[0].composition[0] == doctest::Approx(row.y).epsilon(0.02));
        CHECK(result.phases[1].composition[0] == doctest::Approx(row.x).epsilon(0.02));
    }
}

TEST_CASE("A natural gas is in equilibrium all over its phase envelope") {
    const auto equation = naturalGas();
    const PengRobinsonModel flash(equation);
    int twoPhases = 0;
    for (double T = 130; T < 420; T += 7.3)
        for (double P = 1e4; P < 3e7; P *= 1.7) {
            CAPTURE(T);
            CAPTURE(P);
            const auto result = flash.temperaturePressure(T, P, naturalGasFeed);
            checkEquilibrium(equation, result, naturalGasFeed);
            twoPhases += result.phases.size() == 2;
            const auto& last = result.phases.back().composition;
            CHECK(lowestTangentPlaneDistance(equation, T, P, last) > -1e-9);
        }
    CHECK(twoPhases > 150);
}

TEST_CASE("Phase fractions go to nothing smoothly at both ends of the two-phase region") {
    const auto equation = mixtureOf({"methane", "ethane", "propane"});
    const Fractions feed{.7, .2, .1};
    const PengRobinsonModel flash(equation);
    // Bisection on the number of phases; the last two-phase state is within rounding of the boundary.
    for (const double P : {1e5, 2e6, 6e6, 7.5e6})
        for (const bool bubble : {true, false}) {
            double inside = 0;
            for (double T = 400; T > 100 && inside == 0; T -= 3)
                if (flash.temperaturePressure(T, P, feed).phases.size() == 2) inside = T;
            REQUIRE(inside > 0);
            double outside = bubble ? 95 : 450;
            double last = 1;
            while (std::abs(inside - outside) > 1e-9 * inside) {
                const double T = (inside + outside) / 2;
                const auto result = flash.temperaturePressure(T, P, feed);
                checkEquilibrium(equation, result, feed);
                if (result.phases.size() == 2) {
                    inside = T;
                    last = std::min(result.vaporFraction, 1 - result.vaporFraction);
                } else
                    outside = T;
            }
            CAPTURE(P);
            CAPTURE(inside);
            CHECK(last < 1e-6);
        }
}

TEST_CASE("Close to a critical point the two phases are found until they are one") {
    const auto equation = mixtureOf({"methane", "propane"});
    const PengRobinsonModel flash(equation);
    const Fractions feed{.6, .4};
    // Along an isotherm near the mixture's critical temperature, through its bubble or dew point.
    for (const double T : {290.0, 295.0, 296.0, 296.5, 297.0, 298.0}) {
        std::size_t changes = 0, before = 0;
        for (double P = 4e6; P < 1.1e7; P *= 1.002) {
            CAPTURE(T);
            CAPTURE(P);
            const auto result = flash.temperaturePressure(T, P, feed);
            checkEquilibrium(equation, result, feed);
            CHECK(lowestTangentPlaneDistance(equation, T, P, result.phases.back().composition) > -1e-9);
            changes += result.phases.size() != before;
            before = result.phases.size();
        }
        CHECK(changes <= 3);  // two-phase once, not on and off
    }
}

TEST_CASE("Random mixtures of one to thirty compounds are in equilibrium and stable") {
    std::mt19937_64 random(20240229);
    const auto uniform = [&](double low, double high) {
        return std::uniform_real_distribution<>(low, high)(random);
    };
    auto compounds = CompoundTable::instance().compounds();
    int twoPhases = 0, liquids = 0;
    for (int count = 0; count < 1500; ++count) {
        std::shuffle(compounds.begin(), compounds.end(), random);
        const auto n = 1 + static_cast<std::size_t>(uniform(0, 1) < 0.7 ? uniform(0, 7) : uniform(0, 30));
        const PengRobinson equation({compounds.begin(), compounds.begin() + static_cast<std::ptrdiff_t>(n)});
        Fractions feed(n);
        double sum = 0, meanTc = 0;
        for (double& z : feed) {
            const double kind = uniform(0, 1);
            z = kind < 0.1             ? std::pow(10, uniform(-12, -2))
                : kind < 0.15 && n > 1 ? 0
                                       : -std::log(uniform(1e-9, 1));
            sum += z;
        }
        if (sum == 0) continue;
        for (std::size_t i = 0; i < n; ++i) meanTc += (feed[i] /= sum) * compounds[i].criticalTemperature;
        const double T = std::max(60.0, meanTc * uniform(0.5, 1.2)), P = std::pow(10, uniform(3, 7.5));
        CAPTURE(count);
        CAPTURE(T);
        CAPTURE(P);
        try {
            const auto result = PengRobinsonModel(equation).temperaturePressure(T, P, feed);
            checkEquilibrium(equation, result, feed);
            twoPhases += result.phases.size() == 2;
            if (n > 1 && result.warnings.empty() && *std::ranges::min_element(feed) > 0)
                CHECK(lowestTangentPlaneDistance(equation, T, P, result.phases.back().composition) > -1e-9);
        }
        catch (const LiquidLiquidSplit&) {
            ++liquids;
        }
    }
    CHECK(twoPhases > 300);
    CHECK(liquids < 150);
}

TEST_CASE("Compounds that are absent change nothing") {
    const PengRobinsonModel two(mixtureOf({"methane", "n-butane"})),
        four(mixtureOf({"water", "methane", "helium", "n-butane"}));
    const auto small = two.temperaturePressure(270, 2e6, Fractions{.5, .5});
    const auto large = four.temperaturePressure(270, 2e6, Fractions{0, .5, 0, .5});
    REQUIRE(small.phases.size() == 2);
    CHECK(large.vaporFraction == small.vaporFraction);
    CHECK(large.phases[1].composition[3] == small.phases[1].composition[1]);
    CHECK(large.phases[1].composition[0] == 0);
    // All but one absent: a pure compound, of one phase.
    CHECK(four.temperaturePressure(270, 2e6, Fractions{0, 1, 0, 0}).phases.size() == 1);
}

TEST_CASE("A single phase is named as an engineer would") {
    struct {
        std::vector<std::string> ids;
        Fractions feed;
        double temperature, pressure;
        PhaseKind kind;
    } const rows[] = {
        {{"water"}, {1}, 300, 1e5, PhaseKind::liquid},
        {{"water"}, {1}, 400, 1e5, PhaseKind::vapor},
        {{"methane"}, {1}, 300, 2e7, PhaseKind::vapor},  // a pipeline's gas, far above the critical pressure
        {{"methane"}, {1}, 120, 2e7, PhaseKind::liquid},
        {{"methane"}, {1}, 300, 1e3, PhaseKind::vapor},
        {{"n-decane"}, {1}, 300, 1e8, PhaseKind::liquid},
        {{"propane"},
         {1},
         365,
         4.4e6,
         PhaseKind::liquid},  // below the critical temperature, above its pressure
        // One root above the one-fluid critical temperature: just above the bubble pressure, and far above.
        {{"methane", "n-decane"}, {.4, .6}, 450, 2e7, PhaseKind::liquid},
        {{"methane", "n-decane"}, {.4, .6}, 450, 1e8, PhaseKind::liquid},
        {{"methane", "n-decane"}, {.98, .02}, 450, 2e7, PhaseKind::vapor},
    };
    for (const auto& row : rows) {
        CAPTURE(row.temperature);
        CAPTURE(row.pressure);
        std::vector<Compound> compounds;
        for (const auto& id : row.ids) compounds.push_back(CompoundTable::instance().at(id));
        const auto result = PengRobinsonModel(PengRobinson(compounds))
                                .temperaturePressure(row.temperature, row.pressure, row.feed);
        REQUIRE(result.phases.size() == 1);
        CHECK(label(result.phases[0].kind) == label(row.kind));
    }
    CHECK(label(PhaseKind::vapor) == "Vapor");
    CHECK(label(PhaseKind::liquid) == "Liquid");
}

TEST_CASE("A second liquid is left out with a warning, two liquids alone are refused") {
    const auto wetGas = mixtureOf({"water", "methane", "n-hexane"});
    const auto result = PengRobinsonModel(wetGas).temperaturePressure(300, 3e6, Fractions{.2, .7, .1});
    checkEquilibrium(wetGas, result, Fractions{.2, .7, .1});
    REQUIRE(result.phases.size() == 2);
    CHECK(result.phases[0].composition[1] > 0.8);
    REQUIRE(result.warnings.size() == 1);
    CHECK(result.warnings[0].find("second liquid") != std::string::npos);
    CHECK(result.warnings[0].find("n-hexane") != std::string::npos);

    // The liquid left out is a liquid also where the vapour was the last phase to be found.
    const auto cold = PengRobinsonModel(mixtureOf({"water", "methane", "propane", "n-hexane"}))
                          .temperaturePressure(270, 3e6, Fractions{.2, .5, .15, .15});
    REQUIRE(cold.warnings.size() == 1);
    CHECK(cold.warnings[0].find("(1 water)") != std::string::npos);

    const PengRobinsonModel waterHexane(mixtureOf({"water", "n-hexane"}));
    CHECK_THROWS_WITH_AS(waterHexane.temperaturePressure(300, 1e6, Fractions{.5, .5}),
                         doctest::Contains("n-hexane"), LiquidLiquidSplit);
    CHECK(waterHexane.temperaturePressure(400, 1e5, Fractions{.5, .5}).vaporFraction == 1);
    // A wet gas without the heavy compound has a vapour and one liquid, and nothing to warn of.
    CHECK(PengRobinsonModel(mixtureOf({"water", "methane"}))
              .temperaturePressure(300, 3e6, Fractions{.2, .8})
              .warnings.empty());
}

TEST_CASE("Flash conditions that make no sense are refused") {
    const PengRobinsonModel flash(mixtureOf({"methane", "ethane"}));
    const double nan = std::nan("");
    const Fractions feed{.5, .5};
    for (const double wrong : {0.0, -5.0, nan}) {
        CHECK_THROWS_AS(flash.temperaturePressure(wrong, 1e5, feed), PackageError);
        CHECK_THROWS_AS(flash.temperaturePressure(300, wrong, feed), PackageError);
        CHECK_THROWS_AS(flash.atPressure(wrong, {Quantity::enthalpy, 0}, feed), PackageError);
    }
    for (const auto& wrong :
         {Fractions{1}, Fractions{.5, .6}, Fractions{-.5, 1.5}, Fractions{nan, 1}, Fractions{0, 0}})
        CHECK_THROWS_AS(flash.temperaturePressure(200, 1e6, wrong), PackageError);
    CHECK_THROWS_AS(flash.atPressure(1e5, {Quantity::enthalpy, nan}, feed), PackageError);
    CHECK_THROWS_AS(flash.atPressure(1e5, {Quantity::entropy, nan}, feed), PackageError);
}
