// The rules by which a product may be specified, each with its message.
#include "thermo/ProductSpecification.h"

#include "cobia/Error.h"

#include <doctest/doctest.h>

using namespace orvane;
using enum ConditionCode;

namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();

template <class Body> std::string failureOf(Body&& body) {
    try {
        body();
        return {};
    }
    catch (const COBIA::StringException& failure) {
        return failure.what();
    }
}

std::string setting(ProductSpecification& product, ConditionCode code, double value) {
    return failureOf([&] { product.setCondition("Out", {code, value}); });
}

std::vector<std::string> problems(const ProductSpecification& product) {
    std::vector<std::string> result;
    product.checkComplete("Out", [&](const std::string& problem) { result.push_back(problem); });
    return result;
}

}  // namespace

TEST_CASE("A condition is refused for a value that cannot be, and the other conditions for none") {
    struct Row {
        ConditionCode code;
        double value;
        const char* refusal;
    };
    const char* const positive = "value must be positive";
    const char* const range = "value must be in [0,1] range";
    for (const Row& row : {
             Row{temperature, 0, positive},
             Row{temperature, 1e-300, ""},
             Row{pressure, -1, positive},
             Row{volume, 0, positive},
             Row{vaporFraction, -1e-300, range},
             Row{vaporFraction, 0, ""},
             Row{vaporFraction, 1.0000000000000009, ""},
             Row{vaporFraction, 1.000001, range},
             Row{vaporFraction, std::nextafter(1.0000000000000011, 2), range},
             Row{enthalpy, -1e9, ""},
             Row{enthalpyF, -1, ""},
             Row{entropy, -1, ""},
             Row{entropyF, 0, ""},
             Row{temperature, missing, "value cannot be missing"},
             Row{vaporFraction, missing, "value cannot be missing"},
         }) {
        CAPTURE(conditionName(row.code));
        CAPTURE(row.value);
        ProductSpecification product;
        CHECK(setting(product, row.code, row.value) == row.refusal);
        CHECK(product.conditions().size() == (*row.refusal ? 0 : 1));
    }
}

TEST_CASE("There are two conditions at most; one of them may be given another value") {
    ProductSpecification product;
    CHECK(setting(product, temperature, 300) == "");
    CHECK(setting(product, temperature, 310) == "");
    CHECK(product.conditions().size() == 1);
    CHECK(setting(product, pressure, 1e5) == "");
    CHECK(setting(product, vaporFraction, 0.5) == "exactly two equilibrium conditions must be specified for "
                                                  "port 'Out'; temperature and pressure are already "
                                                  "specified");
    // The value is looked at before the number of conditions.
    CHECK(setting(product, vaporFraction, 2) == "value must be in [0,1] range");
    CHECK(setting(product, pressure, -1) == "value must be positive");
    CHECK(product.findCondition(pressure)->value == 1e5);
    CHECK(setting(product, pressure, missing) == "");
    CHECK(std::isnan(product.findCondition(pressure)->value));
    CHECK(product.findCondition(temperature)->value == 310);
}

TEST_CASE("A copy and conditions exclude each other") {
    const CopiedState state{.temperature = 300, .pressure = 1e5, .enthalpy = 0};
    ProductSpecification product;
    product.recordCopy("Out", state);
    CHECK(setting(product, enthalpy, 0) ==
          "cannot set equilibrium conditions for port 'Out'; copy_from has been called already.");

    product.reset();
    CHECK(product.isCopied());
    product.clearCopy();
    CHECK_FALSE(product.isCopied());

    product.setCondition("Out", {vaporFraction, 0.5});
    CHECK(failureOf([&] { product.recordCopy("Out", state); }) ==
          "cannot call copy_fromm on port 'Out'; vapor_fraction is already specified");
    product.setCondition("Out", {entropyF, 1});
    CHECK(failureOf([&] { product.recordCopy("Out", state); }) ==
          "cannot call copy_fromm on port 'Out'; vapor_fraction and entropyF are already specified");
    CHECK_FALSE(product.isCopied());
}

TEST_CASE("All that is missing is reported") {
    ProductSpecification product;
    CHECK(problems(product) ==
          std::vector<std::string>{"x not specified for port 'Out'", "flow_rate not specified for port 'Out'",
                                   "missing phase equilibrium conditions for port 'Out'"});
    product.setX({1});
    product.setCondition("Out", {pressure, 1e5});
    CHECK(problems(product) ==
          std::vector<std::string>{"flow_rate not specified for port 'Out'",
                                   "missing phase equilibrium condition for port 'Out'"});
    product.markFlowRate();
    product.setCondition("Out", {temperature, 300});
    CHECK(problems(product).empty());

    product.reset();
    CHECK(problems(product).size() == 3);
    product.setX({1});
    product.markFlowRate();
    product.recordCopy("Out", {.temperature = 300, .pressure = 1e5, .enthalpy = 0});
    CHECK(problems(product).empty());
}
