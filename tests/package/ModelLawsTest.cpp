// The laws of thermodynamics at many states of both models: what must hold whatever the figures are.
#include "package/IdealModel.h"
#include "package/PackageError.h"
#include "package/PengRobinsonModel.h"
#include "tests/package/Mixtures.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <memory>
#include <random>

using namespace orvane::package;
using namespace orvane::package::test;

namespace {

std::vector<std::unique_ptr<const Model>> bothModels(const std::vector<std::string>& ids) {
    std::vector<std::unique_ptr<const Model>> result;
    for (const auto name : modelNames()) {
        std::vector<Compound> compounds;
        for (const auto& id : ids) compounds.push_back(CompoundTable::instance().at(id));
        result.push_back(makeModel(name, std::move(compounds), {}));
    }
    return result;
}

const std::vector<std::string> solvents = {"methane", "propane", "n-pentane",
                                           "benzene", "toluene", "methanol"};
const Fractions solventFeed = {.1, .2, .15, .2, .15, .2};

// Largest difference of ln fugacities between the phases of an answer.
double imbalance(const Model& model, const Equilibrium& result) {
    double largest = 0;
    if (result.phases.size() < 2) return 0;
    const auto &y = result.phases[0].composition, &x = result.phases[1].composition;
    const auto inVapor = model.lnPhi(PhaseKind::vapor, result.temperature, result.pressure, y);
    const auto inLiquid = model.lnPhi(PhaseKind::liquid, result.temperature, result.pressure, x);
    for (std::size_t i = 0; i < x.size(); ++i)
        largest = std::max(largest, std::abs(std::log(y[i] / x[i]) + inVapor[i] - inLiquid[i]));
    return largest;
}

void checkAnswer(const Model& model, const Equilibrium& result, const Fractions& feed) {
    CHECK(imbalance(model, result) < 1e-9);
    for (std::size_t i = 0; i < feed.size(); ++i) {
        double sum = 0;
        for (const auto& phase : result.phases) sum += phase.fraction * phase.composition[i];
        CHECK(sum == doctest::Approx(feed[i]).scale(1).epsilon(1e-11));
    }
}

}  // namespace

TEST_CASE("Energies, derivatives and fugacities of a phase are bound by the laws in both models") {
    for (const auto& model : bothModels(solvents))
        for (const PhaseKind kind : {PhaseKind::vapor, PhaseKind::liquid})
            for (const double T : {180.0, 250.0, 310.0, 372.0, 450.0, 650.0})
                for (const double P : {1e4, 3e5, 2e6, 3e7}) {
                    CAPTURE(std::string(model->name()));
                    CAPTURE(std::string(label(kind)));
                    CAPTURE(T);
                    CAPTURE(P);
                    const auto& x = solventFeed;
                    const double R = gasConstant, h = 1e-4, dT = T * h, dP = P * h;
                    const auto at = [&](double t, double p) { return model->properties(kind, t, p, x); };
                    const auto here = at(T, P), warm = at(T + dT, P), cold = at(T - dT, P),
                               high = at(T, P + dP), low = at(T, P - dP);
                    // A root of the cubic that vanishes within the differences has no derivatives by differences.
                    if (std::max({warm.volume(), cold.volume(), high.volume(), low.volume()}) >
                        1.05 * here.volume())
                        continue;
                    if (std::min({warm.volume(), cold.volume(), high.volume(), low.volume()}) <
                        0.95 * here.volume())
                        continue;
                    const auto near = [](double value, double scale) {
                        return doctest::Approx(value).scale(scale).epsilon(2e-6);
                    };
                    const double H = here.enthalpy(), S = here.entropy(), V = here.volume();
                    CHECK(here.gibbsEnergy() == near(H - T * S, R * T));
                    CHECK(here.helmholtzEnergy() == near(here.internalEnergy() - T * S, R * T));
                    CHECK(H == near(here.internalEnergy() + P * V, R * T));
                    CHECK((warm.enthalpy() - cold.enthalpy()) / (2 * dT) == near(here.heatCapacityCp(), R));
                    CHECK((warm.entropy() - cold.entropy()) / (2 * dT) ==
                          near(here.heatCapacityCp() / T, R / T));
                    CHECK(-(warm.gibbsEnergy() - cold.gibbsEnergy()) / (2 * dT) == near(S, R));
                    CHECK((high.gibbsEnergy() - low.gibbsEnergy()) / (2 * dP) == near(V, R * T / P));
                    CHECK((high.entropy() - low.entropy()) / (2 * dP) ==
                          near(-here.volumeByTemperature(), R / P));
                    CHECK((high.volume() - low.volume()) / (2 * dP) == near(here.volumeByPressure(), V / P));
                    if (here.volumeByPressure() != 0)
                        CHECK(here.heatCapacityCp() - here.heatCapacityCv() ==
                              near(-T * here.volumeByTemperature() * here.volumeByTemperature() /
                                       here.volumeByPressure(),
                                   R));
                    CHECK((high.enthalpy() - low.enthalpy()) / (2 * dP) ==
                          near(-here.heatCapacityCp() * here.jouleThomsonCoefficient(), R * T / P));

                    // G of the mixture is that of the ideal gas and of the fugacities; their derivatives follow.
                    const auto lnPhi = model->lnPhi(kind, T, P, x);
                    const auto byT = model->lnPhiByTemperature(kind, T, P, x);
                    const auto byP = model->lnPhiByPressure(kind, T, P, x);
                    const auto byN = model->lnPhiByAmount(kind, T, P, x);
                    const auto ideal = IdealModel(model->compounds()).properties(PhaseKind::vapor, T, P, x);
                    double residual = 0, enthalpyPart = 0, volumePart = 0;
                    for (std::size_t i = 0; i < x.size(); ++i) {
                        residual += x[i] * lnPhi[i];
                        enthalpyPart -= x[i] * byT[i] * R * T * T;
                        volumePart += x[i] * byP[i] * R * T;
                        double gibbsDuhem = 0;
                        for (std::size_t j = 0; j < x.size(); ++j) gibbsDuhem += x[j] * byN[j * x.size() + i];
                        CHECK(gibbsDuhem == doctest::Approx(0).scale(1).epsilon(1e-9));
                        CHECK(lnPhi[i] == here.logFugacityCoefficient()[i]);
                    }
                    CHECK((here.gibbsEnergy() - ideal.gibbsEnergy()) / (R * T) ==
                          doctest::Approx(residual).scale(1).epsilon(1e-10));
                    CHECK((H - ideal.enthalpy()) / (R * T) ==
                          doctest::Approx(enthalpyPart / (R * T)).scale(1).epsilon(1e-9));
                    CHECK((V - ideal.volume()) * P / (R * T) ==
                          doctest::Approx(volumePart * P / (R * T)).scale(1).epsilon(1e-9));
                }
}

TEST_CASE("Every pair of conditions leads back to the state at temperature and pressure, in both models") {
    int twoPhases = 0;
    for (const auto& model : bothModels(solvents))
        for (double T = 210; T < 480; T += 13.7)
            for (double P = 3e3; P < 2e7; P *= 3.1) {
                const auto start = model->phasesAt(T, P, solventFeed);
                if (!start.refusal.empty() || !start.warnings.empty()) continue;
                CAPTURE(std::string(model->name()));
                CAPTURE(T);
                CAPTURE(P);
                checkAnswer(*model, start, solventFeed);
                const double H = enthalpy(*model, start), S = entropy(*model, start),
                             V = volume(*model, start);
                const auto same = [&](const Equilibrium& result, double within) {
                    CHECK(result.temperature == doctest::Approx(T).epsilon(within));
                    CHECK(result.pressure == doctest::Approx(P).epsilon(within));
                    CHECK(result.vaporFraction ==
                          doctest::Approx(start.vaporFraction).scale(1).epsilon(10 * within));
                    checkAnswer(*model, result, solventFeed);
                };
                same(model->atPressure(P, {Quantity::enthalpy, H}, solventFeed), 1e-8);
                same(model->atPressure(P, {Quantity::entropy, S}, solventFeed), 1e-8);
                if (start.phases.size() < 2) {
                    // The volume of a cold liquid says little of its pressure, and of an ideal one nothing.
                    if (start.phases[0].kind == PhaseKind::liquid) continue;
                    same(model->atPressure(P, {Quantity::volume, V}, solventFeed), 1e-8);
                    same(model->atTemperature(T, {Quantity::volume, V}, solventFeed), 1e-8);
                    same(model->atTemperature(T, {Quantity::entropy, S}, solventFeed), 1e-8);
                    continue;
                }
                ++twoPhases;
                same(model->atPressure(P, {Quantity::volume, V}, solventFeed), 1e-7);
                same(model->atTemperature(T, {Quantity::volume, V}, solventFeed), 1e-7);
                same(model->atTemperature(T, {Quantity::entropy, S}, solventFeed), 1e-7);
                same(model->atTemperature(T, {Quantity::enthalpy, H}, solventFeed), 1e-7);
                same(model->atPressure(P, {Quantity::vaporFraction, start.vaporFraction}, solventFeed), 1e-7);
                same(model->atTemperature(T, {Quantity::vaporFraction, start.vaporFraction}, solventFeed),
                     1e-7);
            }
    CHECK(twoPhases > 60);
}

TEST_CASE(
    "Random mixtures of one to thirty compounds come back from every pair of conditions, in both models") {
    std::mt19937_64 random(5);
    const auto uniform = [&](double low, double high) {
        return std::uniform_real_distribution<>(low, high)(random);
    };
    auto compounds = CompoundTable::instance().compounds();
    int done = 0;
    for (int count = 0; count < 400; ++count) {
        std::shuffle(compounds.begin(), compounds.end(), random);
        const auto n = 1 + static_cast<std::size_t>(uniform(0, 1) < 0.7 ? uniform(0, 6) : uniform(0, 29));
        const bool ideal = count % 2 == 1;
        const auto model =
            makeModel(modelNames()[ideal ? 1 : 0],
                      {compounds.begin(), compounds.begin() + static_cast<std::ptrdiff_t>(n)}, {});
        Fractions feed(n);
        double sum = 0, meanTc = 0;
        for (double& z : feed)
            sum += z = uniform(0, 1) < 0.1 ? std::pow(10, uniform(-12, -2)) : uniform(0, 1);
        for (std::size_t i = 0; i < n; ++i) meanTc += (feed[i] /= sum) * compounds[i].criticalTemperature;
        const double T = std::max(60.0, meanTc * uniform(0.5, 1.2)), P = std::pow(10, uniform(3, 7.3));
        const auto start = model->phasesAt(T, P, feed);
        if (!start.refusal.empty() || !start.warnings.empty()) continue;
        ++done;
        const bool onePhase = start.phases.size() == 1;
        const bool liquid = onePhase && start.phases[0].kind == PhaseKind::liquid;
        using Value = double (*)(const Model&, const Equilibrium&);
        for (const auto& row : {std::pair<Quantity, Value>{Quantity::enthalpy, enthalpy},
                                {Quantity::entropy, entropy},
                                {Quantity::volume, volume}}) {
            const auto& quantity = row.first;
            const auto& value = row.second;
            const Target target{quantity, value(*model, start)};
            CAPTURE(count);
            CAPTURE(T);
            CAPTURE(P);
            CAPTURE(std::string(describe(quantity)));
            // An ideal liquid has one volume, and an ideal gas one enthalpy at all pressures.
            if (!(ideal && liquid && quantity == Quantity::volume)) {
                const auto found = model->atPressure(P, target, feed);
                CHECK(value(*model, found) ==
                      doctest::Approx(target.value).scale(scale(target, T)).epsilon(1e-8));
                CHECK(found.temperature == doctest::Approx(T).epsilon(1e-6));
            }
            if (ideal && (liquid || (onePhase && quantity == Quantity::enthalpy))) continue;
            const auto found = model->atTemperature(T, target, feed);
            CHECK(value(*model, found) ==
                  doctest::Approx(target.value).scale(scale(target, T)).epsilon(1e-8));
        }
    }
    CHECK(done > 350);
}

TEST_CASE("A pure compound on its saturation line takes every pair of conditions, in both models") {
    for (const auto& model : bothModels({"propane"})) {
        const Fractions one{1};
        CAPTURE(std::string(model->name()));
        const auto start = model->atTemperature(280, {Quantity::vaporFraction, 0.3}, one);
        CHECK(imbalance(*model, start) < 1e-10);
        const double P = start.pressure;
        const Target targets[] = {{Quantity::enthalpy, enthalpy(*model, start)},
                                  {Quantity::entropy, entropy(*model, start)},
                                  {Quantity::volume, volume(*model, start)},
                                  {Quantity::vaporFraction, 0.3}};
        for (const Target& target : targets) {
            CAPTURE(std::string(describe(target.quantity)));
            for (const auto& result :
                 {model->atPressure(P, target, one), model->atTemperature(280, target, one)}) {
                CHECK(result.temperature == doctest::Approx(280).epsilon(1e-9));
                CHECK(result.pressure == doctest::Approx(P).epsilon(1e-9));
                CHECK(result.vaporFraction == doctest::Approx(0.3).epsilon(1e-7));
            }
        }
        // Clausius and Clapeyron.
        const auto above = model->atTemperature(280.01, {Quantity::vaporFraction, 1}, one),
                   below = model->atTemperature(279.99, {Quantity::vaporFraction, 1}, one);
        const auto vapor = model->properties(PhaseKind::vapor, 280, P, one),
                   liquid = model->properties(PhaseKind::liquid, 280, P, one);
        CHECK(
            (above.pressure - below.pressure) / 0.02 ==
            doctest::Approx((vapor.enthalpy() - liquid.enthalpy()) / 280 / (vapor.volume() - liquid.volume()))
                .epsilon(1e-6));
        CHECK(vapor.gibbsEnergy() == doctest::Approx(liquid.gibbsEnergy()).epsilon(1e-9));
    }
}

TEST_CASE("Where two pressures have an enthalpy the lower one is given, and turning points are found") {
    const PengRobinsonModel model(mixtureOf({"methane", "ethane"}));
    const Fractions feed{.5, .5};
    // The enthalpy of this gas falls with pressure, and rises again when it is dense.
    double lowest = 1e300, at = 0;
    for (double P = 1e5; P < 3e8; P *= 1.003) {
        const double H = enthalpy(model, model.temperaturePressure(320, P, feed));
        if (H < lowest) {
            lowest = H;
            at = P;
        }
    }
    CHECK(at > 1e7);
    for (const double above : {0.01, 1.0, 100.0}) {
        const auto result = model.atTemperature(320, {Quantity::enthalpy, lowest + above}, feed);
        CHECK(result.pressure < at);
        CHECK(enthalpy(model, result) == doctest::Approx(lowest + above).epsilon(1e-9));
    }
    CHECK_THROWS_WITH_AS(model.atTemperature(320, {Quantity::enthalpy, lowest - 100}, feed),
                         doctest::Contains("lies between"), PackageError);
}

TEST_CASE("Conditions that have no answer are refused with what was sought and met") {
    const auto models = bothModels({"propane", "n-butane"});
    const Fractions feed{.5, .5};
    for (const auto& model : models) {
        CHECK_THROWS_WITH_AS(model->atPressure(1e5, {Quantity::volume, 1e-9}, feed),
                             doctest::Contains("1e-09"), PackageError);
        CHECK_THROWS_WITH_AS(model->atTemperature(300, {Quantity::volume, -1}, feed),
                             doctest::Contains("positive"), PackageError);
        CHECK_THROWS_AS(model->atTemperature(300, {Quantity::entropy, std::nan("")}, feed), PackageError);
        CHECK_THROWS_AS(model->atTemperature(-3, {Quantity::entropy, 1}, feed), PackageError);
        CHECK_THROWS_WITH_AS(model->atPressure(1e5, {Quantity::enthalpy, -1e9}, feed),
                             doctest::Contains("-1000000000"), PackageError);
    }
    // An ideal gas has this enthalpy at every pressure.
    const auto& ideal = *models[1];
    const double H = enthalpy(ideal, ideal.temperaturePressure(400, 1e5, feed));
    CHECK_THROWS_WITH_AS(ideal.atTemperature(400, {Quantity::enthalpy, H}, feed),
                         doctest::Contains("that of the gas"), PackageError);
    CHECK_THROWS_WITH_AS(ideal.atTemperature(300, {Quantity::vaporFraction, 0.5, Solution::retrograde}, feed),
                         doctest::Contains("retrograde"), PackageError);
}
