// Viscosity, thermal conductivity and surface tension against measured figures, and where they end.
#include "package/Transport.h"
#include "package/DenseFluid.h"
#include "package/PackageError.h"
#include "package/PengRobinsonModel.h"
#include "package/SurfaceTension.h"
#include "tests/package/Mixtures.h"

#include <doctest/doctest.h>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

struct Row {
    const char* id;
    double temperature, pressure, microPascalSecond, milliWatt, within;
};

}  // namespace

// NIST Chemistry WebBook; conductivity in mW/m/K.
TEST_CASE("Transport properties agree with measured ones within what the correlations can do") {
    const Row rows[] = {
        // gases, thin and dense
        {"nitrogen", 300, 1e5, 17.9, 25.9, 0.04},
        {"methane", 300, 1e5, 11.1, 34.3, 0.04},
        {"carbon-dioxide", 300, 1e5, 15.0, 16.8, 0.04},
        {"argon", 300, 1e5, 22.7, 17.7, 0.04},
        {"propane", 300, 1e5, 8.2, 18.4, 0.06},
        {"ammonia", 300, 1e5, 10.2, 25.1, 0.18},
        {"nitrogen", 300, 1e7, 19.9, 32.1, 0.04},
        {"methane", 300, 1e7, 13.9, 45.9, 0.08},
        {"carbon-dioxide", 350, 1e7, 23.0, 35, 0.1},
        // liquids
        {"methane", 112, 2e5, 116, 184, 0.1},
        {"propane", 300, 2e6, 97.4, 94.2, 0.1},
        {"n-butane", 300, 1e6, 157, 105, 0.1},
        {"n-heptane", 298.15, 1e5, 387, 122, 0.2},
        {"benzene", 298.15, 1e5, 604, 141, 0.3},
        {"toluene", 298.15, 1e5, 555, 131, 0.15},
        {"carbon-dioxide", 250, 5e6, 128, 136, 0.2},
        {"nitrogen", 77.3, 2e5, 160, 145, 0.2},
        {"methanol", 298.15, 1e5, 544, 200, 0.3},
    };
    for (const auto& row : rows) {
        CAPTURE(std::string(row.id));
        CAPTURE(row.pressure);
        const PengRobinsonModel model(mixtureOf({row.id}));
        const auto found = model.temperaturePressure(row.temperature, row.pressure, Fractions{1});
        const PhaseKind kind = found.phases[0].kind;
        const auto phase = model.properties(kind, row.temperature, row.pressure, Fractions{1});
        CHECK(1e6 * viscosity(model.compounds(), kind, phase) ==
              doctest::Approx(row.microPascalSecond).epsilon(row.within));
        CHECK(1e3 * thermalConductivity(model.compounds(), kind, phase) ==
              doctest::Approx(row.milliWatt).epsilon(row.within));
    }
}

TEST_CASE(
    "A mixture of one compound twice or with an absent one has the transport properties of the compound") {
    const PengRobinsonModel pure(mixtureOf({"propane"})), two(mixtureOf({"methane", "propane"}));
    for (const PhaseKind kind : {PhaseKind::vapor, PhaseKind::liquid}) {
        const double P = kind == PhaseKind::vapor ? 1e5 : 2e6;
        const auto alone = pure.properties(kind, 300, P, Fractions{1});
        const auto beside = two.properties(kind, 300, P, Fractions{0, 1});
        CHECK(viscosity(two.compounds(), kind, beside) ==
              doctest::Approx(viscosity(pure.compounds(), kind, alone)).epsilon(1e-12));
        CHECK(thermalConductivity(two.compounds(), kind, beside) ==
              doctest::Approx(thermalConductivity(pure.compounds(), kind, alone)).epsilon(1e-12));
        // Between those of the compounds, and not far from the mean, for a mixture.
        const auto mixed = two.properties(kind, 300, P, Fractions{.1, .9});
        CHECK(viscosity(two.compounds(), kind, mixed) ==
              doctest::Approx(viscosity(pure.compounds(), kind, alone)).epsilon(0.3));
    }
}

// J. J. Jasper, J. Phys. Chem. Ref. Data 1 (1972) 841; N/m.
TEST_CASE("Surface tensions agree with measured ones and end at the critical point") {
    struct {
        const char* id;
        double temperature, milliNewton;
    } const rows[] = {
        {"n-heptane", 298.15, 19.7}, {"n-decane", 298.15, 23.4},    {"benzene", 298.15, 28.2},
        {"water", 298.15, 72.0},     {"methanol", 298.15, 22.1},    {"ethanol", 298.15, 21.9},
        {"acetone", 298.15, 23.0},   {"acetic-acid", 298.15, 27.1}, {"chloroform", 298.15, 26.7}};
    const auto& table = CompoundTable::instance();
    for (const auto& row : rows) {
        CAPTURE(std::string(row.id));
        CHECK(1e3 * surfaceTension(table.at(row.id), row.temperature) ==
              doctest::Approx(row.milliNewton).epsilon(0.05));
    }
    const auto& propane = table.at("propane");
    CHECK(surfaceTension(propane, 0.9999 * propane.criticalTemperature) < 1e-5);
    CHECK(surfaceTension(propane, propane.criticalTemperature) == 0);
    const auto compounds = mixtureOf({"methane", "n-decane"}).compounds();
    CHECK(surfaceTension(compounds, Fractions{.5, .5}, 300) ==
          doctest::Approx(0.5 * surfaceTension(compounds[1], 300)));  // the gas counts as none
}

TEST_CASE("Transport properties that the correlation cannot give are refused") {
    auto compounds = mixtureOf({"methane"}).compounds();
    const PengRobinsonModel model{PengRobinson(compounds)};
    // Denser than the spheres of the correlation can be packed.
    CHECK_THROWS_WITH_AS(DenseFluid(compounds, Fractions{1}, 300, 7e4, 25), doctest::Contains("70000 mol/m3"),
                         PackageError);
    const auto gas = model.properties(PhaseKind::vapor, 300, 1e5, Fractions{1});
    compounds[0].criticalVolume = 0;
    CHECK_THROWS_WITH_AS(viscosity(compounds, PhaseKind::vapor, gas),
                         doctest::Contains("critical volume of methane"), PackageError);
}
