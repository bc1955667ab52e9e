// What holds of every equilibrium that a flash answers.
// Not here: whether a flash has found the right one (FlashTest, SecondLiquidTest).
#pragma once

#include "package/Checks.h"
#include "tests/package/Mixtures.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace orvane::package::test {

/// G less that of the ideal gases at the pressure, over R T, per mole.
inline double gibbs(const PengRobinson& equation, double T, double P, const Fractions& x) {
    const auto lnPhi = equation.lnPhi(T, P, x, Root::stable);
    double sum = 0;
    for (std::size_t i = 0; i < x.size(); ++i)
        if (x[i] > 0) sum += x[i] * (std::log(x[i]) + lnPhi[i]);
    return sum;
}

inline void checkEquilibrium(const PengRobinson& equation, const Equilibrium& result, const Fractions& feed) {
    const double T = result.temperature, P = result.pressure;
    REQUIRE(!result.phases.empty());
    REQUIRE(result.phases.size() <= 2);
    double mixed = 0;
    for (const auto& phase : result.phases) {
        CHECK(phase.fraction >= 0);
        CHECK_NOTHROW(checkComposition(equation.compounds(), phase.composition));
        mixed += phase.fraction * gibbs(equation, T, P, phase.composition);
    }
    CHECK(mixed <= gibbs(equation, T, P, feed) + 1e-12);
    if (result.phases.size() == 1) {
        CHECK(result.phases[0].composition == feed);
        CHECK(result.phases[0].fraction == 1);
        CHECK(result.vaporFraction == (result.phases[0].kind == PhaseKind::vapor ? 1 : 0));
        return;
    }
    const auto &vapor = result.phases[0], &liquid = result.phases[1];
    CHECK(vapor.kind == PhaseKind::vapor);
    CHECK(liquid.kind == PhaseKind::liquid);
    CHECK(result.vaporFraction == vapor.fraction);
    CHECK(vapor.fraction + liquid.fraction == doctest::Approx(1).epsilon(1e-14));
    // By the roots that the phases' names stand for.
    const auto inVapor = equation.lnPhi(T, P, vapor.composition, root(PhaseKind::vapor));
    const auto inLiquid = equation.lnPhi(T, P, liquid.composition, root(PhaseKind::liquid));
    for (std::size_t i = 0; i < feed.size(); ++i) {
        const double y = vapor.composition[i], x = liquid.composition[i];
        CHECK(vapor.fraction * y + liquid.fraction * x == doctest::Approx(feed[i]).scale(1).epsilon(1e-14));
        if (feed[i] == 0) {
            CHECK(x == 0);
            CHECK(y == 0);
        } else if (std::min(x, y) > 1e-200)
            CHECK(std::log(y) + inVapor[i] - std::log(x) - inLiquid[i] ==
                  doctest::Approx(0).scale(1).epsilon(2e-12));
    }
}

}  // namespace orvane::package::test
