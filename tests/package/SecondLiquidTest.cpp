// Feeds that form a vapour and two liquids, of which the answer has the vapour and the better liquid; and states close
// to where phases begin, at which solvers have most to do.
// Not here: what is said of liquids left out (FlashTest).
#include "package/PengRobinsonModel.h"
#include "tests/package/EquilibriumChecks.h"
#include "tests/package/Mixtures.h"

#include "package/PackageError.h"

#include <doctest/doctest.h>

#include <limits>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

// Lowest Gibbs energy of a gas and a liquid that plain successive substitution finds from liquids of mostly one
// compound: the slow way, by other code than the flash's. Infinite where it finds none.
double lowestWithGas(const PengRobinson& equation, double T, double P, const Fractions& z) {
    const std::size_t n = z.size();
    double lowest = std::numeric_limits<double>::infinity();
    for (std::size_t start = 0; start < n; ++start) {
        Fractions liquid(n, 0.01), gas = z;
        liquid[start] = 1 - 0.01 * static_cast<double>(n - 1);
        double beta = 0;
        for (int step = 0; step < 2000; ++step) {
            const auto inLiquid = equation.lnPhi(T, P, liquid, Root::liquidLike);
            const auto inGas = equation.lnPhi(T, P, gas, Root::vaporLike);
            double low = 0, high = 1, sumLiquid = 0, sumGas = 0;
            for (int halving = 0; halving < 60; ++halving) {
                beta = (low + high) / 2;
                double sum = 0;
                for (std::size_t i = 0; i < n; ++i) {
                    const double excess = std::expm1(inLiquid[i] - inGas[i]);
                    sum += z[i] * excess / (1 + beta * excess);
                }
                (sum > 0 ? low : high) = beta;
            }
            for (std::size_t i = 0; i < n; ++i) {
                const double K = std::exp(inLiquid[i] - inGas[i]);
                sumLiquid += liquid[i] = z[i] / (1 - beta + beta * K);
                sumGas += gas[i] = K * liquid[i];
            }
            for (std::size_t i = 0; i < n; ++i) {
                liquid[i] /= sumLiquid;
                gas[i] /= sumGas;
            }
        }
        const bool isGas = equation.compressibilityFactor(T, P, gas, Root::stable) > 0.5;
        const bool both = beta > 1e-6 && beta < 1 - 1e-6;
        if (isGas && both)
            lowest = std::min(lowest,
                              beta * gibbs(equation, T, P, gas) + (1 - beta) * gibbs(equation, T, P, liquid));
    }
    return lowest;
}

}  // namespace

TEST_CASE("Of two liquids the one that lowers the Gibbs energy most goes with the vapour") {
    struct {
        PengRobinson equation;
        Fractions feed;
    } const rows[] = {
        {mixtureOf({"methane", "benzene", "water"}), {.451, .191, .358}},
        {mixtureOf({"toluene", "propane", "water"}), {.062, .857, .081}},
        {mixtureOf({"n-hexane", "methane", "carbon-dioxide", "water"}), {.2, .3, .1, .4}},
    };
    int threePhases = 0;
    for (const auto& row : rows)
        for (double T = 290; T < 450; T += 17)
            for (const double P : {3e5, 9e5, 2e6, 5e6}) {
                CAPTURE(row.feed[0]);
                CAPTURE(T);
                CAPTURE(P);
                try {
                    const auto result = PengRobinsonModel(row.equation).temperaturePressure(T, P, row.feed);
                    checkEquilibrium(row.equation, result, row.feed);
                    if (result.warnings.empty()) continue;
                    ++threePhases;
                    double found = 0;
                    for (const auto& phase : result.phases)
                        found += phase.fraction * gibbs(row.equation, T, P, phase.composition);
                    CHECK(found <= lowestWithGas(row.equation, T, P, row.feed) + 1e-9);
                }
                catch (const LiquidLiquidSplit&) {
                }
            }
    CHECK(threePhases > 20);
}

TEST_CASE("Where a phase begins or two become alike, the flash still comes to its answer") {
    struct {
        std::vector<std::string_view> ids;
        Fractions feed;
        double temperature, pressure, vaporFraction;
    } const rows[] = {
        // The lesser phase is so small that sums over its fractions are mostly rounding.
        {{"n-hexane", "methane", "benzene", "carbon-dioxide"},
         {0.16731692084134506, 0.5374367166048708, 0.29523318090192224, 1.3181651861873761e-05},
         369.66418814169992,
         447570.65547824162,
         0.999987},
        // Two liquids close to where they are one, by way of a saddle of the Gibbs energy.
        {{"ethane", "carbon-dioxide"},
         {0.33550346430149475, 0.6644965356985052},
         187.65393053370707,
         3169355.210464674,
         0.348332},
        {{"toluene", "methane"},
         {0.62516248973488164, 0.37483751026511836},
         559.6439233271883,
         11426270.026808191,
         0.740216},
        // Far from stable: substitution from the first sign of a second phase leads back to one.
        {{"water", "propane", "benzene", "n-decane", "methane"},
         {0.245638578091703, 0.70896814485863802, 0.01166043850107777, 0.033732834532507444,
          4.0160736093835787e-09},
         306.69817681558936,
         723591.58413367241,
         0.758924},
        // A phase would form, but of less than rounding leaves of the feed.
        {{"oxygen", "phenol"},
         {0.99999999990112842, 9.8871658594998812e-11},
         170.59354641374571,
         11323.804407717509,
         1},
    };
    for (const auto& row : rows) {
        CAPTURE(row.temperature);
        std::vector<Compound> compounds;
        for (const auto id : row.ids) compounds.push_back(CompoundTable::instance().at(id));
        const PengRobinson equation(compounds);
        const auto result = PengRobinsonModel(equation).phasesAt(row.temperature, row.pressure, row.feed);
        checkEquilibrium(equation, result, row.feed);
        CHECK(result.vaporFraction == doctest::Approx(row.vaporFraction).epsilon(1e-5));
    }
}
