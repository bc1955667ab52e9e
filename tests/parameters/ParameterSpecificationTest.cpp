#include "parameters/ParameterSpecification.h"

#include "tests/NullArguments.h"
#include "tests/parameters/HostView.h"

using namespace orvane;
using namespace COBIA;

TEST_CASE("A port tells the host which value it looks for") {
    using Real = ICapeRealParameterSpecification::Table;
    using Identification = ICapeIdentification::Table;
    const auto specification =
        makeObject<ParameterSpecification>("work", "energy", std::vector<double>{2, 1, -3});
    auto* real = view<ICapeRealParameterSpecification>(specification);
    auto* identification = view<ICapeIdentification>(specification);
    const StringObject other(std::string_view("other"));

    CHECK(read<&Identification::getComponentName, &Identification::getComponentDescription>(identification) ==
          "work Parameter descriptor for energy port");
    CHECK(failure<&Identification::putComponentName>(identification, other.in()) == "code 106");
    CHECK(failure<&Identification::putComponentDescription>(identification, other.in()) == "code 106");
    CHECK(read<&ICapeParameterSpecification::Table::getType>(
              view<ICapeParameterSpecification>(specification)) == "0");
    CHECK(read<&Real::getDimensionality, &Real::getLowerBound, &Real::getUpperBound>(real) ==
          "[2][1][-3] nan nan");
    CHECK(read<&Real::getDefaultValue>(real) == "in ICapeRealParameterSpecification::DefaultValue of Orvane "
                                                "Operation parameter specification \"work\": "
                                                "No default value");
    CHECK(verdict<&Real::Validate>(real, 1e300) == "valid");
    CHECK(!specification->find(ICapeRealParameter::uuid));

    test::NullSweep nulls;
    test::sweepObject(real, nulls);
    CHECK(nulls.faults.empty());
    CHECK(nulls.interfaces == 3);
}
