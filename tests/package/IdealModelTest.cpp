// The ideal model against Raoult's law, published vapour pressures and heats of vaporisation.
#include "package/IdealModel.h"
#include "package/PackageError.h"
#include "package/VaporPressure.h"
#include "tests/package/Mixtures.h"

#include <doctest/doctest.h>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

IdealModel idealOf(std::initializer_list<std::string_view> ids) {
    return IdealModel(mixtureOf(ids).compounds());
}

}  // namespace

// CRC Handbook of Chemistry and Physics: heats of vaporisation at the normal boiling point, kJ/mol.
TEST_CASE("Compounds boil at their boiling points with their heats of vaporisation") {
    struct {
        const char* id;
        double kilojoule, boilingWithin;
    } const rows[] = {{"methane", 8.19, 0.4},   {"propane", 19.04, 0.4}, {"n-pentane", 25.79, 0.4},
                      {"n-decane", 38.75, 0.6}, {"benzene", 30.72, 0.6}, {"toluene", 33.18, 0.6},
                      {"water", 40.65, 3},      {"acetone", 29.10, 1},   {"chloroform", 29.24, 0.6}};
    for (const auto& row : rows) {
        CAPTURE(std::string(row.id));
        const auto model = idealOf({row.id});
        const auto boiling = model.atPressure(101325, {Quantity::vaporFraction, 0}, Fractions{1});
        const double T = boiling.temperature;
        CHECK(std::abs(T - model.compounds()[0].normalBoilingPoint) < row.boilingWithin);
        const double heat = model.properties(PhaseKind::vapor, T, 101325, Fractions{1}).enthalpy() -
                            model.properties(PhaseKind::liquid, T, 101325, Fractions{1}).enthalpy();
        CHECK(heat ==
              doctest::Approx(1000 * row.kilojoule).epsilon(0.1));  // without the departure of the vapour
    }
}

TEST_CASE("Vapour pressures run on smoothly above the critical temperature") {
    const auto& methane = CompoundTable::instance().at("methane");
    const auto at = [&](double T) {
        return VaporPressure(methane.criticalTemperature, methane.criticalPressure, methane.acentricFactor,
                             T);
    };
    const double Tc = methane.criticalTemperature;
    CHECK(std::exp(at(Tc).ln) == doctest::Approx(methane.criticalPressure).epsilon(1e-4));
    CHECK(at(Tc * (1 + 1e-9)).byTemperature == doctest::Approx(at(Tc).byTemperature).epsilon(1e-8));
    for (const double T : {100.0, 150.0, 250.0, 800.0}) {
        CAPTURE(T);
        const double h = 1e-3;
        CHECK((at(T + h).ln - at(T - h).ln) / (2 * h) == doctest::Approx(at(T).byTemperature).epsilon(1e-7));
        CHECK((at(T + h).byTemperature - at(T - h).byTemperature) / (2 * h) ==
              doctest::Approx(at(T).byTemperatureTwice).epsilon(1e-6));
        CHECK(at(T).byTemperature > 0);
    }
}

TEST_CASE("Phases follow Raoult's law") {
    const auto model = idealOf({"benzene", "toluene"});
    const double T = 365;
    double pure[2];
    for (std::size_t i = 0; i < 2; ++i)
        pure[i] =
            model.atTemperature(T, {Quantity::vaporFraction, 0}, i == 0 ? Fractions{1, 0} : Fractions{0, 1})
                .pressure;
    for (const double x : {0.0, 0.2, 0.5, 0.9, 1.0}) {
        CAPTURE(x);
        const auto bubble = model.atTemperature(T, {Quantity::vaporFraction, 0}, Fractions{x, 1 - x});
        // Up to Poynting's factor, 1e-3 here.
        CHECK(bubble.pressure == doctest::Approx(x * pure[0] + (1 - x) * pure[1]).epsilon(1e-3));
        CHECK(bubble.phases[0].composition[0] * bubble.pressure ==
              doctest::Approx(x * pure[0]).epsilon(3e-3));
        const auto dew = model.atTemperature(T, {Quantity::vaporFraction, 1}, bubble.phases[0].composition);
        CHECK(dew.pressure == doctest::Approx(bubble.pressure).epsilon(1e-10));
        CHECK(dew.phases[1].composition[0] == doctest::Approx(x).scale(1).epsilon(1e-10));
    }
    const auto inside = model.temperaturePressure(T, 0.47 * (pure[0] + pure[1]), Fractions{.5, .5});
    CHECK(inside.phases.size() == 2);
    CHECK(model.temperaturePressure(T, 1.1 * pure[0], Fractions{.5, .5}).phases[0].kind == PhaseKind::liquid);
    CHECK(model.temperaturePressure(T, 0.9 * pure[1], Fractions{.5, .5}).phases[0].kind == PhaseKind::vapor);
}

TEST_CASE("A gas dissolves in an ideal liquid, and an absent compound changes nothing") {
    const auto model = idealOf({"hydrogen", "n-octane", "water"});
    const auto result = model.temperaturePressure(300, 2e6, Fractions{.5, .5, 0});
    REQUIRE(result.phases.size() == 2);
    CHECK(result.phases[0].composition[0] > 0.99);
    CHECK(result.phases[1].composition[0] > 1e-3);
    CHECK(result.phases[1].composition[0] < 0.1);
    CHECK(result.phases[1].composition[2] == 0);
    const auto two = idealOf({"hydrogen", "n-octane"}).temperaturePressure(300, 2e6, Fractions{.5, .5});
    CHECK(two.vaporFraction == doctest::Approx(result.vaporFraction).epsilon(1e-14));
}

TEST_CASE("What the ideal model cannot do is refused") {
    auto compounds = mixtureOf({"methane", "ethane"}).compounds();
    CHECK_THROWS_WITH_AS(makeModel("ideal", compounds, {{"methane", "ethane", 0.1}}),
                         doctest::Contains("no interaction parameters"), PackageError);
    CHECK_THROWS_WITH_AS(makeModel("NRTL", compounds, {}), doctest::Contains("'Peng-Robinson', 'ideal'"),
                         PackageError);
    CHECK(makeModel("IDEAL", compounds, {})->name() == "ideal");
    compounds[1].criticalVolume = 0;
    CHECK_THROWS_WITH_AS(IdealModel{compounds}, doctest::Contains("ethane"), PackageError);
    const auto liquid = idealOf({"water"}).properties(PhaseKind::liquid, 300, 1e5, Fractions{1});
    CHECK_THROWS_WITH_AS(liquid.speedOfSound(), doctest::Contains("incompressible"), PackageError);
    CHECK(liquid.heatCapacityCp() == liquid.heatCapacityCv());
}
