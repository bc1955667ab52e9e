// The properties of a phase against the laws between them.
#include "package/PhaseProperties.h"
#include "tests/package/Mixtures.h"

#include "package/IdealGas.h"
#include "package/PackageError.h"

#include <doctest/doctest.h>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

struct State {
    double temperature, pressure;
    Root root;
};

const State states[] = {{420, 3e6, Root::vaporLike},
                        {200, 3e6, Root::liquidLike},
                        {300, 3e7, Root::stable},
                        {260, 1e3, Root::vaporLike},
                        {150, 1e5, Root::liquidLike}};

}  // namespace

TEST_CASE("Pure ideal gases have zero enthalpy and entropy at the reference state") {
    for (const auto& compound : CompoundTable::instance().compounds()) {
        const IdealGas gas(compound.heatCapacity, 298.15);
        CHECK(gas.enthalpy == 0);
        CHECK(gas.entropy == 0);
        // dH = Cp dT and dS = Cp/T dT, over both sides of the reference.
        for (const double T : {150.0, 700.0}) {
            const double h = 1e-3;
            const IdealGas warm(compound.heatCapacity, T + h), cold(compound.heatCapacity, T - h);
            const double cp = IdealGas(compound.heatCapacity, T).heatCapacity;
            CHECK((warm.enthalpy - cold.enthalpy) / (2 * h) == doctest::Approx(cp).epsilon(1e-8));
            CHECK((warm.entropy - cold.entropy) / (2 * h) == doctest::Approx(cp / T).epsilon(1e-8));
        }
    }
}

// NIST-JANAF Thermochemical Tables, 4th ed. (1998): H(600 K) - H(298.15 K), J/mol.
TEST_CASE("Ideal gas enthalpies agree with tables") {
    struct {
        const char* id;
        double enthalpy;
    } const rows[] = {{"nitrogen", 8894},
                      {"oxygen", 9244},
                      {"carbon-dioxide", 12907},
                      {"water", 10499},
                      {"methane", 13130}};
    for (const auto& row : rows) {
        CAPTURE(row.id);
        const IdealGas gas(CompoundTable::instance().at(row.id).heatCapacity, 600);
        CHECK(gas.enthalpy == doctest::Approx(row.enthalpy).epsilon(0.01));
    }
}

TEST_CASE("The energies and their derivatives are tied together") {
    const auto equation = naturalGas();
    const auto& x = naturalGasFeed;
    for (const State& state : states) {
        const double T = state.temperature, P = state.pressure;
        const Root root = state.root;
        CAPTURE(T);
        CAPTURE(P);
        const auto at = [&](double t, double p) { return PhaseProperties(equation, t, p, x, root); };
        const auto here = at(T, P);
        const double h = 1e-4, dT = T * h, dP = P * h;
        const auto warm = at(T + dT, P), cold = at(T - dT, P), high = at(T, P + dP), low = at(T, P - dP);

        CHECK(here.gibbsEnergy() == doctest::Approx(here.enthalpy() - T * here.entropy()));
        CHECK(here.internalEnergy() == doctest::Approx(here.enthalpy() - P * here.volume()));
        CHECK(here.helmholtzEnergy() == doctest::Approx(here.gibbsEnergy() - P * here.volume()));
        CHECK(here.density() * here.volume() == doctest::Approx(1));
        CHECK(here.compressibilityFactor() == doctest::Approx(P * here.volume() / (gasConstant * T)));

        CHECK((warm.enthalpy() - cold.enthalpy()) / (2 * dT) ==
              doctest::Approx(here.heatCapacityCp()).epsilon(1e-6));
        CHECK((warm.entropy() - cold.entropy()) / (2 * dT) ==
              doctest::Approx(here.heatCapacityCp() / T).epsilon(1e-6));
        CHECK((high.gibbsEnergy() - low.gibbsEnergy()) / (2 * dP) ==
              doctest::Approx(here.volume()).epsilon(1e-6));
        // dH = T dS + V dP along a path that changes both.
        const auto end = at(T + dT, P + dP), start = at(T - dT, P - dP);
        CHECK(end.enthalpy() - start.enthalpy() ==
              doctest::Approx(T * (end.entropy() - start.entropy()) + here.volume() * 2 * dP).epsilon(1e-6));

        const double vByT = (warm.volume() - cold.volume()) / (2 * dT),
                     vByP = (high.volume() - low.volume()) / (2 * dP);
        CHECK(here.heatCapacityCp() - here.heatCapacityCv() ==
              doctest::Approx(-T * vByT * vByT / vByP).epsilon(1e-6));
        // c^2 = (dP/drho) at constant entropy: from the volume's change along an isentrope.
        const double vByPIsentropic = vByP + T * vByT * vByT / here.heatCapacityCp();
        const double massPerMole = here.molecularWeight() / 1000;
        CHECK(here.speedOfSound() * here.speedOfSound() ==
              doctest::Approx(-here.volume() * here.volume() / vByPIsentropic / massPerMole).epsilon(1e-6));
    }
}

TEST_CASE("The Gibbs energy is the sum of the fugacities' chemical potentials") {
    const auto equation = naturalGas();
    for (const State& state : states) {
        const double T = state.temperature, P = state.pressure;
        const Root root = state.root;
        const PhaseProperties phase(equation, T, P, naturalGasFeed, root);
        const auto fugacity = phase.fugacity();
        double gibbs = 0;
        for (std::size_t i = 0; i < equation.size(); ++i) {
            const IdealGas gas(equation.compounds()[i].heatCapacity, T);
            gibbs += naturalGasFeed[i] *
                     (gas.enthalpy - T * gas.entropy + gasConstant * T * std::log(fugacity[i] / 101325));
            CHECK(std::log(phase.fugacityCoefficient()[i]) ==
                  doctest::Approx(phase.logFugacityCoefficient()[i]).scale(1).epsilon(1e-14));
        }
        CHECK(phase.gibbsEnergy() == doctest::Approx(gibbs).epsilon(1e-12));
    }
}

// NIST Chemistry WebBook; sound in liquids is not Peng-Robinson's strength.
TEST_CASE("The speed of sound in gases is the measured one") {
    struct {
        const char* id;
        double temperature, pressure, metresPerSecond;
    } const rows[] = {
        {"nitrogen", 300, 101325, 353.2}, {"argon", 300, 101325, 322.6}, {"methane", 300, 101325, 450.0}};
    for (const auto& row : rows) {
        CAPTURE(row.id);
        const auto pure = mixtureOf({row.id});
        CHECK(
            PhaseProperties(pure, row.temperature, row.pressure, Fractions{1}, Root::stable).speedOfSound() ==
            doctest::Approx(row.metresPerSecond).epsilon(0.005));
    }
}

TEST_CASE("An absent compound has no fugacity but a fugacity coefficient") {
    const auto equation = mixtureOf({"methane", "water"});
    const PhaseProperties phase(equation, 300, 5e6, Fractions{1, 0}, Root::stable);
    CHECK(phase.fugacity()[1] == 0);
    CHECK(phase.fugacityCoefficient()[1] > 0);
    CHECK(std::isfinite(phase.entropy()));
}

TEST_CASE("Heat capacities outside of their range are told, and impossible ones refused") {
    const auto equation = mixtureOf({"nitrogen", "n-butane"});
    CHECK(heatCapacityWarnings(equation.compounds(), 300).empty());
    const auto cold = heatCapacityWarnings(equation.compounds(), 150);
    REQUIRE(cold.size() == 1);
    CHECK(cold[0] == "heat capacity of n-butane used outside its range 200 to 1000 K at T = 150 K");
    CHECK(heatCapacityWarnings(equation.compounds(), 1200).size() == 2);
    const PhaseProperties hot(equation, 6000, 1e5, Fractions{1, 0}, Root::stable);
    CHECK_THROWS_WITH_AS(hot.speedOfSound(), doctest::Contains("speed of sound"), PackageError);
}
