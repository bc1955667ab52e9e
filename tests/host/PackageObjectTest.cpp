// Compounds and phases as a material object tells them.
#include "tests/host/TestMaterial.h"

#include <algorithm>
#include <cmath>
#include <doctest/doctest.h>

using namespace orvane::host;
using namespace COBIA;
using doctest::Approx;

namespace {

using Compounds = ICapeThermoCompounds;
using Phases = ICapeThermoPhases;
using Texts = std::vector<std::string>;

struct Constants {
    std::vector<ValueObject::Content> values;
    bool missing;
};

Constants constants(const TestMaterial& material, const Texts& properties, const Texts& compounds) {
    ValueArray values;
    CapeBoolean missing = 2;
    call<&Compounds::Table::GetCompoundConstant>(query<Compounds>(material.material),
                                                 StringArray(properties).in(), StringArray(compounds).in(),
                                                 &missing, values.out());
    Constants result{{}, missing == 1};
    for (std::size_t i = 0; i < values.size(); ++i) result.values.push_back(values[i].content());
    return result;
}

}  // namespace

TEST_CASE("The compound list gives six columns of one length, in the order of the package") {
    const TestMaterial material;
    const auto compounds = query<Compounds>(material.material);
    StringArray ids, formulae, names, cas;
    RealArray boiling, weights;
    call<&Compounds::Table::GetCompoundList>(compounds, ids.out(), formulae.out(), names.out(), boiling.out(),
                                             weights.out(), cas.out());
    CHECK(ids.utf8() == testCompounds);
    CHECK(formulae.utf8() == Texts{"CH4", "C3H8", "C5H12"});
    CHECK(cas.utf8() == Texts{"74-82-8", "74-98-6", "109-66-0"});
    CHECK(names.size() == 3);
    REQUIRE(weights.view().size() == 3);
    CHECK(weights.view()[0] == Approx(16.043).epsilon(1e-4));  // g/mol
    CHECK(boiling.view()[1] == Approx(231).epsilon(0.01));
    CapeInteger count = 0;
    call<&Compounds::Table::getNumCompounds>(compounds, &count);
    CHECK(count == 3);
}

TEST_CASE("Constants come by property first, for the compounds that were asked for or for all") {
    const TestMaterial material;
    const auto two =
        constants(material, {"chemicalFormula", "CriticalTemperature"}, {"N-Pentane", "methane"});
    REQUIRE(two.values.size() == 4);
    CHECK(std::get<std::string>(two.values[0]) == "C5H12");
    CHECK(std::get<std::string>(two.values[1]) == "CH4");
    CHECK(std::get<double>(two.values[2]) == Approx(469.7).epsilon(1e-3));
    CHECK(std::get<double>(two.values[3]) == Approx(190.6).epsilon(1e-3));
    CHECK(!two.missing);

    StringArray known;
    call<&Compounds::Table::getConstPropList>(query<Compounds>(material.material), known.out());
    CHECK(constants(material, known.utf8(), {}).values.size() == 3 * known.size());

    CHECK(errorOf([&] { constants(material, {"colour"}, {}); }).find("unknown compound constant 'colour'") !=
          std::string::npos);
    CHECK(errorOf([&] { constants(material, {"chemicalFormula"}, {"water"}); }).find("no compound 'water'") !=
          std::string::npos);
}

TEST_CASE("The ideal gas heat capacity is the slope of the ideal gas enthalpy") {
    const TestMaterial material;
    const auto property = [&](const char* name, double temperature) {
        RealArray values;
        CapeBoolean missing = 2;
        call<&Compounds::Table::GetTDependentProperty>(query<Compounds>(material.material),
                                                       StringArray({name}).in(), temperature,
                                                       StringArray().in(), &missing, values.out());
        CHECK((missing != 0) ==
              std::ranges::any_of(values.view(), [](double value) { return std::isnan(value); }));
        return std::vector<double>(values.view().begin(), values.view().end());
    };
    const auto above = property("idealGasEnthalpy", 400.1);
    const auto below = property("idealGasEnthalpy", 399.9);
    const auto capacity = property("idealGasHeatCapacity", 400);
    REQUIRE(capacity.size() == 3);
    for (std::size_t i = 0; i < 3; ++i)
        CHECK(capacity[i] == Approx((above[i] - below[i]) / 0.2).epsilon(1e-6));
    CHECK(errorOf([&] { property("smell", 400); }).find("'smell'") != std::string::npos);
    CHECK(errorOf([&] { property("idealGasEntropy", -1); }).find("not a positive number") !=
          std::string::npos);
}

TEST_CASE(
    "Saturated compounds have a boiling point, vapour pressure, heat and volume up to the critical point") {
    const TestMaterial material;
    const auto at = [&](const char* name, double temperature) {
        RealArray values;
        CapeBoolean missing = 2;
        call<&Compounds::Table::GetTDependentProperty>(
            query<Compounds>(material.material), StringArray({name}).in(), temperature,
            StringArray({"propane", "methane"}).in(), &missing, values.out());
        CHECK(missing == 1);  // methane is above its critical temperature
        CHECK(std::isnan(values.view()[1]));
        return values.view()[0];
    };
    // NIST Chemistry WebBook: propane at 300 K.
    CHECK(at("vaporPressure", 300) == Approx(997800).epsilon(0.01));
    CHECK(at("heatOfVaporization", 300) == Approx(14720).epsilon(0.03));
    CHECK(at("volumeOfLiquid", 300) == Approx(9.006e-5).epsilon(0.06));
    RealArray values;
    CapeBoolean missing = 2;
    call<&Compounds::Table::GetPDependentProperty>(
        query<Compounds>(material.material), StringArray({"boilingPointTemperature"}).in(),
        at("vaporPressure", 300), StringArray({"propane"}).in(), &missing, values.out());
    CHECK(missing == 0);
    CHECK(values.view()[0] == Approx(300).epsilon(1e-9));
}

TEST_CASE("The phases are a vapour and a liquid, without a key compound") {
    const TestMaterial material;
    const auto phases = query<Phases>(material.material);
    StringArray labels, states, keys;
    call<&Phases::Table::GetPhaseList>(phases, labels.out(), states.out(), keys.out());
    CHECK(labels.utf8() == Texts{"Vapor", "Liquid"});
    CHECK(states.utf8() == Texts{"Vapor", "Liquid"});
    CHECK(keys.utf8() == Texts{"", ""});
    const auto info = [&](const char* phase, const char* attribute) {
        ValueObject value;
        call<&Phases::Table::GetPhaseInfo>(phases, StringObject(phase).in(), StringObject(attribute).in(),
                                           value.out());
        return value.content();
    };
    CHECK(std::get<std::string>(info("Liquid", "StateOfAggregation")) == "Liquid");
    CHECK(info("Vapor", "ExcludedCompoundId").index() == 0);
    CHECK(errorOf([&] { info("Vapor", "Smell"); }).find("'Smell'") != std::string::npos);
    CHECK(errorOf([&] { info("Gas", "KeyCompoundId"); }).find("unknown phase 'Gas'") != std::string::npos);
}
