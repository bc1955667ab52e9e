// The equation of state against published vapour pressures, and against the laws that tie its derivatives
// together.
#include "tests/package/Mixtures.h"

#include "package/PackageError.h"

#include <doctest/doctest.h>

#include <limits>
#include <numeric>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

struct State {
    double temperature, pressure;
    Fractions x;
    Root root;
};

PengRobinson fluid() { return mixtureOf({"hydrogen", "carbon-dioxide", "water", "methane", "n-decane"}); }

// Gas, liquid, dense, near the mechanical critical point, nearly vacuum, beyond where alpha of hydrogen
// vanishes, and with compounds that are absent.
const State states[] = {
    {400, 2e6, {.1, .3, .1, .4, .1}, Root::vaporLike}, {280, 5e6, {.01, .1, .02, .07, .8}, Root::liquidLike},
    {500, 3e8, {.2, .2, .2, .2, .2}, Root::stable},    {350, 2e5, {.02, .18, .4, .1, .3}, Root::vaporLike},
    {300, 10, {.1, .3, .2, .3, .1}, Root::vaporLike},  {2600, 1e7, {.5, .1, .1, .25, .05}, Root::stable},
    {320, 1e7, {0, .5, 0, .5, 0}, Root::stable},       {90, 1e5, {.001, .2, .1, .3, .399}, Root::liquidLike},
};

}  // namespace

// Deviation of the calculated vapour pressure at the normal boiling point from 101325 Pa, in percent, as
// computed for the documentation of the table by another program.
TEST_CASE("Vapour pressures at the normal boiling point deviate as documented with the compound table") {
    struct {
        const char* id;
        double percent;
    } const rows[] = {
        {"hydrogen", +1.25},
        {"nitrogen", +1.19},
        {"oxygen", +1.31},
        {"argon", +1.76},
        {"helium", +5.38},
        {"carbon-monoxide", +1.61},
        {"carbon-dioxide", +76.68},
        {"hydrogen-sulfide", +2.19},
        {"sulfur-dioxide", +0.96},
        {"ammonia", -1.30},
        {"water", -5.02},
        {"methane", +0.72},
        {"ethane", +0.53},
        {"propane", +0.32},
        {"n-butane", -0.23},
        {"n-pentane", -0.22},
        {"n-hexane", -0.17},
        {"n-heptane", -0.15},
        {"n-octane", -0.10},
        {"n-nonane", +0.25},
        {"n-decane", +0.56},
        {"n-dodecane", +1.40},
        {"isobutane", +0.08},
        {"isopentane", -0.17},
        {"neopentane", +0.33},
        {"cyclopentane", -0.33},
        {"cyclohexane", +0.75},
        {"methylcyclohexane", +0.26},
        {"ethylene", +1.45},
        {"propylene", +0.63},
        {"1-butene", +0.04},
        {"1-3-butadiene", -0.80},
        {"acetylene", +5.66},
        {"benzene", +0.85},
        {"toluene", -0.31},
        {"ethylbenzene", -0.24},
        {"o-xylene", -0.40},
        {"m-xylene", -0.30},
        {"p-xylene", -0.54},
        {"styrene", +0.13},
        {"methanol", -0.55},
        {"ethanol", +3.34},
        {"1-propanol", +2.92},
        {"2-propanol", +3.36},
        {"1-butanol", +2.77},
        {"acetone", -0.95},
        {"methyl-ethyl-ketone", +0.61},
        {"acetic-acid", -3.17},
        {"ethyl-acetate", +0.01},
        {"diethyl-ether", -0.02},
        {"dimethyl-ether", +0.50},
        {"chloroform", +0.31},
        {"r134a", -0.03},
        {"chlorine", +5.81},
        {"hydrogen-chloride", -1.67},
        {"nitrous-oxide", +2.14},
        {"ethylene-oxide", -0.81},
        {"ethylene-glycol", +1.52},
        {"phenol", +0.11},
    };
    CHECK(std::size(rows) == CompoundTable::instance().compounds().size());
    for (const auto& row : rows) {
        CAPTURE(row.id);
        const auto pure = mixtureOf({row.id});
        const double pressure = vaporPressure(pure, pure.compounds()[0].normalBoilingPoint, 101325);
        CHECK(100 * (pressure / 101325 - 1) ==
              doctest::Approx(row.percent).scale(0).epsilon(0.00501 / std::abs(row.percent)));
    }
}

// Reference equations of state of the compounds as the NIST Chemistry WebBook tabulates them.
TEST_CASE("Vapour pressures agree with reference equations within what Peng-Robinson can do") {
    struct {
        const char* id;
        double temperature, megapascal;
    } const rows[] = {
        {"propane", 300, 0.99780}, {"propane", 250, 0.21798},  {"methane", 150, 1.0400},
        {"ethane", 250, 1.3008},   {"nitrogen", 100, 0.77827}, {"carbon-dioxide", 270, 3.2033},
        {"water", 500, 2.6392},
    };
    for (const auto& row : rows) {
        CAPTURE(row.id);
        CHECK(vaporPressure(mixtureOf({row.id}), row.temperature, row.megapascal * 1e6) ==
              doctest::Approx(row.megapascal * 1e6).epsilon(0.015));
    }
}

TEST_CASE("The critical point of the equation is that of the compound") {
    for (const char* id : {"methane", "water", "n-dodecane"}) {
        const auto pure = mixtureOf({id});
        const auto& c = pure.compounds()[0];
        // The three roots meet: the compressibility factor has all three digits of the equation's 0.307.
        const double Z =
            pure.compressibilityFactor(c.criticalTemperature, c.criticalPressure, Fractions{1}, Root::stable);
        CHECK(Z == doctest::Approx(0.307401).epsilon(1e-4));
    }
}

TEST_CASE("The roots solve the pressure equation and stand in their order") {
    for (const auto& id : {"propane", "n-dodecane", "hydrogen"}) {
        const auto pure = mixtureOf({id});
        const auto& c = pure.compounds()[0];
        for (double Tr : {0.25, 0.5, 0.8, 0.99, 1.0, 1.5, 5.0})
            for (double Pr : {1e-9, 1e-4, 0.1, 0.95, 1.0, 3.0, 100.0, 1e4}) {
                CAPTURE(id);
                CAPTURE(Tr);
                CAPTURE(Pr);
                const double T = Tr * c.criticalTemperature, P = Pr * c.criticalPressure;
                const Fractions one{1};
                const double small = pure.volume(T, P, one, Root::liquidLike);
                const double large = pure.volume(T, P, one, Root::vaporLike);
                const double stable = pure.volume(T, P, one, Root::stable);
                CHECK(small <= large);
                CHECK((stable == small || stable == large));
                const double chosen = pure.lnPhi(T, P, one, Root::stable)[0];
                CHECK(chosen <= pure.lnPhi(T, P, one, Root::liquidLike)[0]);
                CHECK(chosen <= pure.lnPhi(T, P, one, Root::vaporLike)[0]);

                const double m =
                    0.37464 + 1.54226 * c.acentricFactor - 0.26992 * c.acentricFactor * c.acentricFactor;
                const double RTc = gasConstant * c.criticalTemperature;
                const double a = 0.457235528921382 * RTc * RTc / c.criticalPressure *
                                 std::pow(1 + m * (1 - std::sqrt(Tr)), 2);
                const double b = 0.0777960739038885 * RTc / c.criticalPressure;
                for (const double v : {small, large}) {
                    const double repulsion = gasConstant * T / (v - b);
                    const double attraction = a / (v * v + 2 * b * v - b * b);
                    CHECK(repulsion - attraction ==
                          doctest::Approx(P).scale(repulsion).epsilon(1e-11 * v / (v - b)));
                }
            }
    }
}

TEST_CASE("Analytic derivatives of lnPhi agree with differences") {
    const auto equation = fluid();
    const std::size_t n = equation.size();
    for (const State& state : states) {
        const double T = state.temperature, P = state.pressure;
        const Fractions& x = state.x;
        const Root root = state.root;
        CAPTURE(T);
        CAPTURE(P);
        const auto byT = equation.lnPhiByTemperature(T, P, x, root);
        const auto byP = equation.lnPhiByPressure(T, P, x, root);
        const auto byN = equation.lnPhiByAmount(T, P, x, root);
        const double h = 1e-5;
        const auto warm = equation.lnPhi(T * (1 + h), P, x, root),
                   cold = equation.lnPhi(T * (1 - h), P, x, root);
        const auto high = equation.lnPhi(T, P * (1 + h), x, root),
                   low = equation.lnPhi(T, P * (1 - h), x, root);
        for (std::size_t i = 0; i < n; ++i) {
            CHECK(T * byT[i] == doctest::Approx((warm[i] - cold[i]) / (2 * h)).scale(1).epsilon(1e-7));
            CHECK(P * byP[i] == doctest::Approx((high[i] - low[i]) / (2 * h)).scale(1).epsilon(1e-7));
        }
        for (std::size_t j = 0; j < n; ++j) {
            Fractions more = x;
            more[j] += h;
            for (double& value : more) value /= 1 + h;
            const auto there = equation.lnPhi(T, P, more, root);
            more = x;
            for (double& value : more) value /= 1 + 2 * h;
            more[j] += 2 * h / (1 + 2 * h);
            const auto farther = equation.lnPhi(T, P, more, root), here = equation.lnPhi(T, P, x, root);
            for (std::size_t i = 0; i < n; ++i) {
                const double difference = (4 * there[i] - 3 * here[i] - farther[i]) / (2 * h);
                CHECK(byN[i * n + j] == doctest::Approx(difference).scale(1).epsilon(1e-4));
                CHECK(byN[i * n + j] == doctest::Approx(byN[j * n + i]).scale(1).epsilon(1e-10));
            }
            double gibbsDuhem = 0;
            for (std::size_t i = 0; i < n; ++i) gibbsDuhem += x[i] * byN[i * n + j];
            CHECK(gibbsDuhem == doctest::Approx(0).scale(1).epsilon(1e-9));
        }
    }
}

TEST_CASE("Volume and departures follow from lnPhi") {
    const auto equation = fluid();
    for (const State& state : states) {
        const double T = state.temperature, P = state.pressure;
        const Fractions& x = state.x;
        const Root root = state.root;
        CAPTURE(T);
        CAPTURE(P);
        const auto departure = equation.departure(T, P, x, root);
        const auto byT = equation.lnPhiByTemperature(T, P, x, root),
                   byP = equation.lnPhiByPressure(T, P, x, root);
        const auto lnPhi = equation.lnPhi(T, P, x, root);
        const double RT = gasConstant * T;
        CHECK(RT * (std::inner_product(x.begin(), x.end(), byP.begin(), 0.0) + 1 / P) ==
              doctest::Approx(equation.volume(T, P, x, root)).epsilon(1e-10));
        CHECK(-RT * T * std::inner_product(x.begin(), x.end(), byT.begin(), 0.0) ==
              doctest::Approx(departure.enthalpy).scale(RT).epsilon(1e-11));
        CHECK(departure.enthalpy - T * departure.entropy ==
              doctest::Approx(RT * std::inner_product(x.begin(), x.end(), lnPhi.begin(), 0.0))
                  .scale(RT)
                  .epsilon(1e-11));
    }
}

TEST_CASE("A mixture approaches the ideal gas and keeps the pure compound as its limit") {
    const auto equation = fluid();
    for (const double lnPhi : equation.lnPhi(300, 1e-3, Fractions{.2, .2, .2, .2, .2}, Root::stable))
        CHECK(lnPhi == doctest::Approx(0).scale(1).epsilon(1e-9));
    const auto pure = mixtureOf({"methane"});
    const auto limit = equation.lnPhi(150, 3e6, Fractions{0, 0, 0, 1, 0}, Root::liquidLike);
    CHECK(limit[3] ==
          doctest::Approx(pure.lnPhi(150, 3e6, Fractions{1}, Root::liquidLike)[0]).epsilon(1e-14));
    for (const double infiniteDilution : limit) CHECK(std::isfinite(infiniteDilution));
}

TEST_CASE("Interaction parameters come from the table and can be replaced") {
    const auto methaneWater = mixtureOf({"methane", "water"});
    CHECK(methaneWater.interaction(0, 1) == doctest::Approx(0.485).epsilon(1e-14));
    const auto& compounds = methaneWater.compounds();
    const PengRobinson other(compounds, {{"water", "methane", 0.1}});
    CHECK(other.interaction(0, 1) == doctest::Approx(0.1).epsilon(1e-14));
    CHECK(other.interaction(1, 0) == other.interaction(0, 1));
    CHECK_THROWS_WITH_AS(PengRobinson(compounds, {{"water", "ethane", 0.1}}), doctest::Contains("'ethane'"),
                         PackageError);
    CHECK_THROWS_AS(PengRobinson(compounds, {{"water", "water", 0.1}}), PackageError);
    CHECK_THROWS_AS(PengRobinson(compounds, {{"water", "methane", std::nan("")}}), PackageError);
}

TEST_CASE("Mixtures and states that make no sense are refused with what is wrong") {
    CHECK_THROWS_AS(PengRobinson({}), PackageError);
    const auto& methane = CompoundTable::instance().at("methane");
    CHECK_THROWS_WITH_AS(PengRobinson({methane, methane}), doctest::Contains("twice"), PackageError);
    auto lacking = methane;
    lacking.criticalPressure = 0;
    CHECK_THROWS_WITH_AS(PengRobinson({lacking}), doctest::Contains("critical pressure of methane"),
                         PackageError);

    const auto equation = mixtureOf({"methane", "ethane"});
    const double nan = std::nan(""), infinity = std::numeric_limits<double>::infinity();
    const Fractions half{.5, .5};
    for (const double wrong : {0.0, -1.0, nan, infinity}) {
        CHECK_THROWS_WITH_AS(equation.lnPhi(wrong, 1e5, half, Root::stable), doctest::Contains("temperature"),
                             PackageError);
        CHECK_THROWS_WITH_AS(equation.volume(300, wrong, half, Root::stable), doctest::Contains("pressure"),
                             PackageError);
    }
    for (const auto& wrong :
         {Fractions{1}, Fractions{.5, .4}, Fractions{1.5, -.5}, Fractions{nan, .5}, Fractions{}})
        CHECK_THROWS_AS(equation.departure(300, 1e5, wrong, Root::stable), PackageError);
    CHECK_THROWS_WITH_AS(equation.departure(300, 1e5, Fractions{.6, .5}, Root::stable),
                         doctest::Contains("1.1"), PackageError);
}
