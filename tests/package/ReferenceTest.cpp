// The package against figures that another program computed to 40 digits from the same constants.
#include "package/PengRobinsonModel.h"
#include "package/PhaseProperties.h"
#include "tests/package/Mixtures.h"
#include "tests/package/ReferenceFigures.h"

#include <doctest/doctest.h>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

PengRobinson equationOf(const std::vector<std::string_view>& ids) {
    std::vector<Compound> compounds;
    for (const auto id : ids) compounds.push_back(CompoundTable::instance().at(id));
    return PengRobinson(std::move(compounds));
}

doctest::Approx within(double value, double relative) {
    return doctest::Approx(value).scale(0).epsilon(relative);
}

}  // namespace

TEST_CASE("Fugacity coefficients, enthalpy, entropy and volume of a phase agree with the reference") {
    for (const auto& row : referencePhases) {
        CAPTURE(row.temperature);
        CAPTURE(row.pressure);
        const Root root = row.root == 'v'   ? Root::vaporLike
                          : row.root == 'l' ? Root::liquidLike
                                            : Root::stable;
        const PhaseProperties phase(equationOf(row.ids), row.temperature, row.pressure, row.x, root);
        CHECK(phase.enthalpy() == within(row.enthalpy, 1e-10));
        CHECK(phase.entropy() == within(row.entropy, 1e-10));
        CHECK(phase.volume() == within(row.volume, 1e-11));
        for (std::size_t i = 0; i < row.x.size(); ++i)
            CHECK(std::abs(phase.logFugacityCoefficient()[i] - row.lnPhi[i]) < 1e-11);
    }
}

TEST_CASE("Two phases agree with the reference, by whatever conditions they are asked for") {
    for (const auto& row : referenceSplits) {
        CAPTURE(row.temperature);
        CAPTURE(row.pressure);
        const PengRobinsonModel model(equationOf(row.ids));
        const double T = row.temperature, P = row.pressure;
        const auto agrees = [&](const Equilibrium& result, double relative) {
            REQUIRE(result.phases.size() == 2);
            CHECK(result.temperature == within(T, relative));
            CHECK(result.pressure == within(P, relative));
            CHECK(result.vaporFraction == within(row.vaporFraction, relative));
            for (std::size_t i = 0; i < row.feed.size(); ++i) {
                CHECK(result.phases[0].composition[i] == within(row.y[i], relative));
                CHECK(result.phases[1].composition[i] == within(row.x[i], relative));
            }
        };
        const auto found = model.temperaturePressure(T, P, row.feed);
        agrees(found, 1e-10);
        CHECK(enthalpy(model, found) == within(row.enthalpy, 1e-10));
        CHECK(entropy(model, found) == within(row.entropy, 1e-10));
        CHECK(volume(model, found) == within(row.volume, 1e-10));
        const Target targets[] = {{Quantity::enthalpy, row.enthalpy},
                                  {Quantity::entropy, row.entropy},
                                  {Quantity::volume, row.volume},
                                  {Quantity::vaporFraction, row.vaporFraction}};
        for (const auto& target : targets) {
            CAPTURE(std::string(describe(target.quantity)));
            agrees(model.atPressure(P, target, row.feed), 1e-8);
            agrees(model.atTemperature(T, target, row.feed), 1e-8);
        }
    }
}

TEST_CASE("Bubble and dew points agree with the reference") {
    for (const auto& row : referenceSaturations) {
        CAPTURE(row.temperature);
        CAPTURE(row.pressure);
        const PengRobinsonModel model(equationOf(row.ids));
        const Target target{Quantity::vaporFraction, row.vaporFraction};
        CHECK(model.atPressure(row.pressure, target, row.feed).temperature == within(row.temperature, 1e-11));
        CHECK(model.atTemperature(row.temperature, target, row.feed).pressure == within(row.pressure, 1e-9));
    }
}
