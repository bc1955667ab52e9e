// Flashes to a vapour fraction: bubble and dew points, both branches where there are two, pure compounds.
#include "package/PengRobinsonModel.h"
#include "tests/package/Mixtures.h"

#include "package/PackageError.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

Target vapor(double fraction, Solution solution = Solution::normal) {
    return {Quantity::vaporFraction, fraction, solution};
}

// Largest difference of ln fugacities of the two phases, by the roots that their names stand for.
double imbalance(const Model& model, const Equilibrium& result) {
    REQUIRE(result.phases.size() == 2);
    const auto &y = result.phases[0].composition, &x = result.phases[1].composition;
    const auto inVapor = model.lnPhi(PhaseKind::vapor, result.temperature, result.pressure, y);
    const auto inLiquid = model.lnPhi(PhaseKind::liquid, result.temperature, result.pressure, x);
    double largest = 0;
    for (std::size_t i = 0; i < x.size(); ++i)
        if (std::min(x[i], y[i]) > 1e-200)
            largest = std::max(largest, std::abs(std::log(y[i] / x[i]) + inVapor[i] - inLiquid[i]));
    return largest;
}

void checkBalance(const Equilibrium& result, const Fractions& feed) {
    for (std::size_t i = 0; i < feed.size(); ++i) {
        double sum = 0;
        for (const auto& phase : result.phases) sum += phase.fraction * phase.composition[i];
        CHECK(sum == doctest::Approx(feed[i]).scale(1).epsilon(1e-12));
    }
}

}  // namespace

TEST_CASE("The temperature and the pressure of a two-phase state come back from its vapour fraction") {
    const PengRobinsonModel model(naturalGas());
    int twoPhases = 0, retrogradeByPressure = 0, retrogradeByTemperature = 0;
    for (double T = 140; T < 400; T += 8.9)
        for (double P = 1e4; P < 2e7; P *= 1.9) {
            const auto start = model.temperaturePressure(T, P, naturalGasFeed);
            if (start.phases.size() < 2) continue;
            CAPTURE(T);
            CAPTURE(P);
            ++twoPhases;
            const auto target = vapor(start.vaporFraction);
            // A state is on one branch or the other; both may exist at the same temperature or pressure.
            const auto comesBack = [&](auto member, double given, double found, double Equilibrium::*of,
                                       int& retrograde) {
                for (const auto solution : {Solution::normal, Solution::retrograde}) {
                    Target wanted = target;
                    wanted.solution = solution;
                    try {
                        const auto result = (model.*member)(given, wanted, naturalGasFeed);
                        CHECK(imbalance(model, result) < 1e-8);
                        checkBalance(result, naturalGasFeed);
                        if (std::abs(result.*of / found - 1) < 1e-7) {
                            retrograde += solution == Solution::retrograde;
                            return true;
                        }
                    }
                    catch (const PackageError&) {
                    }
                }
                return false;
            };
            CHECK(comesBack(&PengRobinsonModel::atPressure, P, T, &Equilibrium::temperature,
                            retrogradeByTemperature));
            CHECK(comesBack(&PengRobinsonModel::atTemperature, T, P, &Equilibrium::pressure,
                            retrogradeByPressure));
        }
    CHECK(twoPhases > 100);
    CHECK(retrogradeByPressure > 3);
}

TEST_CASE("Bubble and dew points stand at the ends of the two-phase region") {
    const auto equation = mixtureOf({"methane", "ethane", "propane"});
    const PengRobinsonModel model(equation);
    const Fractions feed{.7, .2, .1};
    for (const double P : {1e4, 1e5, 2e6, 6e6, 7.5e6})
        for (const double fraction : {0.0, 1.0}) {
            CAPTURE(P);
            CAPTURE(fraction);
            const auto result = model.atPressure(P, vapor(fraction), feed);
            CHECK(result.vaporFraction == fraction);
            const auto& whole = result.phases[fraction == 0 ? 1 : 0];
            CHECK(whole.fraction == 1);
            for (std::size_t i = 0; i < feed.size(); ++i)
                CHECK(whole.composition[i] == doctest::Approx(feed[i]).epsilon(1e-14));
            CHECK(imbalance(model, result) < 1e-9);
            const double T = result.temperature, step = fraction == 0 ? 1e-7 : -1e-7;
            CHECK(model.temperaturePressure(T * (1 + step), P, feed).phases.size() == 2);
            CHECK(model.temperaturePressure(T * (1 - step), P, feed).phases.size() == 1);
            // The dew point at the highest pressure has another below it at the same temperature.
            const auto solution = P == 7.5e6 && fraction == 1 ? Solution::retrograde : Solution::normal;
            const auto back = model.atTemperature(T, vapor(fraction, solution), feed);
            CHECK(back.pressure == doctest::Approx(P).epsilon(1e-9));
        }
}

TEST_CASE("A retrograde gas has two dew points, and the one asked for is given") {
    const PengRobinsonModel model(naturalGas());
    for (const double T : {290.0, 310.0, 330.0}) {
        CAPTURE(T);
        const auto lower = model.atTemperature(T, vapor(1), naturalGasFeed);
        const auto upper = model.atTemperature(T, vapor(1, Solution::retrograde), naturalGasFeed);
        CHECK(upper.pressure > 1.2 * lower.pressure);
        for (const auto* dew : {&lower, &upper}) {
            const double sign = dew == &lower ? 1 : -1;
            CHECK(model.temperaturePressure(T, dew->pressure * (1 + 1e-6 * sign), naturalGasFeed)
                      .phases.size() == 2);
            CHECK(model.temperaturePressure(T, dew->pressure * (1 - 1e-6 * sign), naturalGasFeed)
                      .phases.size() == 1);
        }
        // Between them the vapour fraction falls and rises again.
        const double P = std::sqrt(lower.pressure * upper.pressure);
        const double middle = model.temperaturePressure(T, P, naturalGasFeed).vaporFraction;
        const double fraction = (1 + middle) / 2;
        const auto one = model.atTemperature(T, vapor(fraction), naturalGasFeed);
        const auto other = model.atTemperature(T, vapor(fraction, Solution::retrograde), naturalGasFeed);
        CHECK(lower.pressure < one.pressure);
        CHECK(one.pressure < other.pressure);
        CHECK(other.pressure < upper.pressure);
    }
    // By temperature at a pressure between the critical one and the highest of the envelope.
    const PengRobinsonModel light(mixtureOf({"methane", "n-butane"}));
    const Fractions lightFeed{.95, .05};
    const auto hot = light.atPressure(9e6, vapor(1), lightFeed);
    const auto cold = light.atPressure(9e6, vapor(1, Solution::retrograde), lightFeed);
    CHECK(hot.temperature > cold.temperature + 1);
    // Beyond the envelope there is none.
    CHECK_THROWS_WITH_AS(model.atTemperature(420, vapor(1), naturalGasFeed), doctest::Contains("420"),
                         PackageError);
    CHECK_THROWS_AS(model.atPressure(3e7, vapor(0.5), naturalGasFeed), PackageError);
    // At low pressure there is no retrograde branch.
    CHECK_THROWS_WITH_AS(model.atPressure(1e6, vapor(1, Solution::retrograde), naturalGasFeed),
                         doctest::Contains("normal branch"), PackageError);
}

TEST_CASE("Bubble and dew lines are followed up to the critical point") {
    const PengRobinsonModel model(mixtureOf({"methane", "propane"}));
    const Fractions feed{.6, .4};
    double last = 0;
    int found = 0;
    for (double P = 8e6; P < 9.2e6; P += 2e4) {
        CAPTURE(P);
        try {
            const auto bubble = model.atPressure(P, vapor(0), feed);
            CHECK(imbalance(model, bubble) < 1e-8);
            CHECK(bubble.temperature > last);
            last = bubble.temperature;
            ++found;
        }
        catch (const PackageError& error) {
            CHECK(std::string(error.what()).find("vapour fraction 0") != std::string::npos);
        }
    }
    CHECK(found > 30);
}

TEST_CASE("A pure compound has its saturation at every vapour fraction") {
    for (const char* id : {"water", "propane", "hydrogen", "n-dodecane", "helium"}) {
        const PengRobinsonModel model(mixtureOf({id}));
        const auto& c = model.compounds()[0];
        for (const double reduced : {0.4, 0.6, 0.8, 0.99, 0.99999}) {
            const double T = reduced * c.criticalTemperature;
            CAPTURE(id);
            CAPTURE(T);
            const auto half = model.atTemperature(T, vapor(0.25), Fractions{1});
            CHECK(half.vaporFraction == 0.25);
            CHECK(imbalance(model, half) < 1e-9);
            CHECK(model.atPressure(half.pressure, vapor(1), Fractions{1}).temperature ==
                  doctest::Approx(T).epsilon(1e-9));
            // The enthalpy between that of both phases belongs to the same temperature.
            const auto byH =
                model.atPressure(half.pressure, {Quantity::enthalpy, enthalpy(model, half)}, Fractions{1});
            CHECK(byH.temperature == doctest::Approx(T).epsilon(1e-9));
            if (reduced < 0.999) CHECK(byH.vaporFraction == doctest::Approx(0.25).epsilon(1e-5));
        }
        CHECK_THROWS_WITH_AS(model.atTemperature(1.01 * c.criticalTemperature, vapor(0.5), Fractions{1}),
                             doctest::Contains("critical point"), PackageError);
        CHECK_THROWS_WITH_AS(
            model.atPressure(0.5 * c.criticalPressure, vapor(0.5, Solution::retrograde), Fractions{1}),
            doctest::Contains("no retrograde"), PackageError);
    }
}

TEST_CASE("Random mixtures come back from their vapour fraction") {
    std::mt19937_64 random(11);
    const auto uniform = [&](double low, double high) {
        return std::uniform_real_distribution<>(low, high)(random);
    };
    auto compounds = CompoundTable::instance().compounds();
    int done = 0, same = 0;
    for (int count = 0; count < 1500; ++count) {
        std::shuffle(compounds.begin(), compounds.end(), random);
        const auto n = 2 + static_cast<std::size_t>(uniform(0, 1) < 0.7 ? uniform(0, 6) : uniform(0, 29));
        const PengRobinsonModel model(
            PengRobinson({compounds.begin(), compounds.begin() + static_cast<std::ptrdiff_t>(n)}));
        Fractions feed(n);
        double sum = 0, meanTc = 0;
        for (double& z : feed)
            sum += z = uniform(0, 1) < 0.1 ? std::pow(10, uniform(-12, -2)) : uniform(0, 1);
        for (std::size_t i = 0; i < n; ++i) meanTc += (feed[i] /= sum) * compounds[i].criticalTemperature;
        const double T = std::max(60.0, meanTc * uniform(0.5, 1)), P = std::pow(10, uniform(3, 7));
        CAPTURE(count);
        CAPTURE(T);
        CAPTURE(P);
        const auto start = model.phasesAt(T, P, feed);
        if (start.phases.size() < 2 || !start.refusal.empty() || !start.warnings.empty()) continue;
        ++done;
        for (const bool byPressure : {true, false}) {
            bool found = false;
            for (const auto solution : {Solution::normal, Solution::retrograde}) {
                if (found) break;
                try {
                    const auto result =
                        byPressure ? model.atPressure(P, vapor(start.vaporFraction, solution), feed)
                                   : model.atTemperature(T, vapor(start.vaporFraction, solution), feed);
                    CHECK(imbalance(model, result) < 1e-8);
                    checkBalance(result, feed);
                    // Another state may have the same vapour fraction, but it must have it.
                    CHECK(model.phasesAt(result.temperature, result.pressure, feed).vaporFraction ==
                          doctest::Approx(start.vaporFraction).scale(1).epsilon(1e-6));
                    same +=
                        std::abs(byPressure ? result.temperature / T - 1 : result.pressure / P - 1) < 1e-6;
                    found = true;
                }
                catch (const PackageError& error) {
                    CAPTURE(std::string(error.what()));
                    CHECK(solution == Solution::normal);  // one of the two is there
                }
            }
        }
    }
    CHECK(same > 1.9 * done);
    CHECK(done > 300);
}

TEST_CASE("Vapour fractions that are none are refused") {
    const PengRobinsonModel model(mixtureOf({"methane", "ethane"}));
    for (const double wrong : {-0.1, 1.1, std::nan("")})
        CHECK_THROWS_WITH_AS(model.atPressure(1e5, vapor(wrong), Fractions{.5, .5}),
                             doctest::Contains("vapour fraction"), PackageError);
}
