#include "parameters/RealArrayParameter.h"

#include "tests/parameters/HostView.h"

using namespace orvane;
using namespace COBIA;

TEST_CASE("A host reaches single elements by one index") {
    using Array = ICapeArrayRealParameter::Table;
    using Specification = ICapeArrayRealParameterSpecification::Table;
    CountingOwner owner;
    const auto input = makeParameter(owner, declare("x", true, RealArrayValues{0, {1, 2, 3}, 0, 10, 3}));
    const auto output = makeParameter(owner, declare("q", false, RealArrayValues{0, {1, 2, 3}, 0, 10, 3}));
    auto* array = view<ICapeArrayRealParameter>(input);
    auto* outputArray = view<ICapeArrayRealParameter>(output);
    const IntegerArray last({2});
    double element = 0;

    for (const auto& position : {std::vector<CapeInteger>{}, {3}, {-1}, {0, 0}}) {
        const IntegerArray wrong(position);
        CHECK(failure<&Array::GetElementValue>(array, wrong.in(), &element) == "code 107");
        CHECK(failure<&Array::SetElementValue>(array, wrong.in(), 5.0) == "code 107");
        CHECK(verdict<&Array::ValidateElement>(array, wrong.in(), 5.0) == "code 107");
    }
    CHECK(failure<&Array::SetElementValue>(array, last.in(), 3.0) == "");
    CHECK(owner.heard() == 0);
    CHECK(failure<&Array::SetElementValue>(array, last.in(), 7.0) == "");
    CHECK(owner.heard() == 1);
    CHECK(failure<&Array::SetElementValue>(array, last.in(), -1.0) ==
          "in ICapeArrayRealParameter::SetElementValue of Orvane Operation parameter \"x\": "
          "Element value is below minimum value of 0");
    CHECK(read<&Array::getValue>(array) == "[1][2][7]");
    CHECK(failure<&Array::GetElementValue>(array, last.in(), &element) == "");
    CHECK(element == 7);

    const std::pair<double, const char*> rows[] = {
        {5, "valid"},
        {11, "Element value is above maximum value of 10"},
        {none, "All elements must be specified"},
    };
    for (const auto& [value, expected] : rows) {
        auto* specification = view<ICapeArrayRealParameterSpecification>(input);
        CHECK(verdict<&Array::ValidateElement>(array, last.in(), value) == expected);
        CHECK(verdict<&Specification::ValidateElement>(specification, last.in(), value) == expected);
    }
    CHECK(verdict<&Array::ValidateElement>(outputArray, last.in(), 5.0) ==
          "Cannot validate output parameter");
    CHECK(failure<&Array::SetElementValue>(outputArray, last.in(), 5.0) == "code 106");
    CHECK(read<&Array::getValue>(outputArray) == "[1][2][3]");
}
