// Enthalpies, entropies and volumes where they jump: nearly pure compounds that boil, and the neighbourhood of second liquids.
#include "package/PengRobinsonModel.h"
#include "tests/package/EquilibriumChecks.h"
#include "tests/package/Mixtures.h"

#include <doctest/doctest.h>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

std::array<Target, 3> targetsOf(const Model& model, const Equilibrium& state) {
    return {{{Quantity::enthalpy, enthalpy(model, state)},
             {Quantity::entropy, entropy(model, state)},
             {Quantity::volume, volume(model, state)}}};
}

}  // namespace

TEST_CASE("A compound with traces of others boils within rounding, whatever is asked for beside T or P") {
    struct {
        PengRobinson equation;
        Fractions feed;
        double temperature, vaporFraction;
    } const rows[] = {
        {mixtureOf({"propylene", "propane"}), {1 - 7.8e-11, 7.8e-11}, 194, .9},
        {mixtureOf({"argon", "nitrogen", "oxygen"}), {1 - 2.7e-8, 0, 2.7e-8}, 99.8, .02},
        {mixtureOf({"methane", "nitrogen"}), {5e-14, 1 - 5e-14}, 113.8, .5},
        {mixtureOf({"hydrogen", "methane"}), {1 - 9.4e-10, 9.4e-10}, 22.3, .4},
        {mixtureOf({"hydrogen", "methane", "nitrogen", "ammonia"}),
         {2.5e-12, 4.4e-9, 3.3e-11, 1 - 4.4e-9},
         316,
         .3},
        {mixtureOf({"methane", "n-butane"}), {1 - 7.5e-9, 7.5e-9}, 95.5, .8},
        {mixtureOf({"ethanol", "water"}), {.648688108943, .351311891057}, 486.06, .3},  // an azeotrope
    };
    for (const auto& row : rows) {
        const PengRobinsonModel model(row.equation);
        Fractions feed = row.feed;
        double sum = 0;
        for (const double z : feed) sum += z;
        for (double& z : feed) z /= sum;
        const auto state =
            model.atTemperature(row.temperature, {Quantity::vaporFraction, row.vaporFraction}, feed);
        for (const Target& target : targetsOf(model, state))
            for (const bool atPressure : {true, false}) {
                CAPTURE(row.temperature);
                CAPTURE(std::string(describe(target.quantity)));
                CAPTURE(atPressure);
                const auto result = atPressure ? model.atPressure(state.pressure, target, feed)
                                               : model.atTemperature(state.temperature, target, feed);
                REQUIRE(result.phases.size() == 2);
                CHECK(result.vaporFraction == doctest::Approx(row.vaporFraction).epsilon(1e-6));
                CHECK(result.temperature == doctest::Approx(state.temperature).epsilon(1e-7));
                CHECK(result.pressure == doctest::Approx(state.pressure).epsilon(1e-7));
                // Traces too are where their fugacities are equal.
                for (std::size_t p = 0; p < 2; ++p)
                    for (std::size_t i = 0; i < feed.size(); ++i)
                        CHECK(result.phases[p].composition[i] ==
                              doctest::Approx(state.phases[p].composition[i]).epsilon(1e-6));
            }
    }
}

TEST_CASE("A state above a region of two liquids is found by its enthalpy, entropy and volume") {
    struct {
        PengRobinson equation;
        Fractions feed;
        double temperature, pressure, amongTwoLiquids;
    } const rows[] = {
        {mixtureOf({"carbon-dioxide", "ethane"}), {.414, .586}, 188.286, 895460, 175},
        {mixtureOf({"methanol", "benzene"}), {.6, .4}, 259.67, 35072, 190},
        {mixtureOf({"n-decane", "n-hexane", "water"}), {.769, .213, .018}, 353.77, 74825, 300},
    };
    for (const auto& row : rows) {
        const PengRobinsonModel model(row.equation);
        const auto state = model.temperaturePressure(row.temperature, row.pressure, row.feed);
        REQUIRE(state.warnings.empty());
        for (const Target& target : targetsOf(model, state)) {
            CAPTURE(row.temperature);
            CAPTURE(std::string(describe(target.quantity)));
            const auto result = model.atPressure(row.pressure, target, row.feed);
            CHECK(result.temperature == doctest::Approx(row.temperature).epsilon(1e-8));
            CHECK(result.vaporFraction == doctest::Approx(state.vaporFraction).epsilon(1e-7));
        }
        // Two liquids have the volume of liquids, also that which stands in the vapour's place.
        const auto liquids = model.phasesAt(row.amongTwoLiquids, row.pressure, row.feed);
        REQUIRE(!liquids.refusal.empty());
        CHECK(volume(model, liquids) < 3e-4);
    }
}
