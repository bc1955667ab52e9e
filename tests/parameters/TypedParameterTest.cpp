#include "parameters/TypedParameter.h"

#include "tests/parameters/HostView.h"

#include <locale>

using namespace orvane;
using namespace COBIA;

namespace {

using Reals = std::vector<double>;
const std::vector<std::string> colours = {"red", "green", "blue"};

}  // namespace

TEST_CASE("A proposed value is judged by the rules of its type") {
    struct Row {
        decltype(ParameterDeclaration::values) values;
        bool input, optional;
        StoredValue proposed;
        const char* verdict;
    };
    const RealValues real{0, 0, 0.001, 1234567.8}, free{0, 0, none, none};
    const IntegerValues integer{0, 0, -1000000, 2000000};
    const StringValues text{"", "", {}}, colour{"", "", colours}, five{"", "", {"a", "b", "c", "d", "e"}},
        six{"", "", {"a", "b", "c", "d", "e", "f"}};
    const RealArrayValues three{0, {}, 0.5, 10, 3}, any{0, {}, 0.5, 10, 0}, freeArray{0, {}, none, none, 0};
    const Row rows[] = {
        {real, true, false, 0.001, "valid"},
        {real, true, false, 1234567.8, "valid"},
        {real, true, false, 0.0, "Value is below minimum value of 0.001"},
        {real, true, false, 2e6, "Value is above maximum value of 1.23457e+06"},
        {real, true, false, none, "Value must be specified"},
        {real, true, true, none, "valid"},
        {real, false, false, 0.0, "Cannot validate output parameter"},
        {free, true, false, -1e300, "valid"},
        {integer, true, false, -1000000, "valid"},
        {integer, true, false, 2000000, "valid"},
        {integer, true, false, -1000001, "Value is below minimum value of -1000000"},
        {integer, true, false, 2000001, "Value is above maximum value of 2000000"},
        {integer, true, false, undefinedInteger, "Value must be specified"},
        {integer, false, false, 0, "Cannot validate output parameter"},
        {BooleanValues{false, false}, true, false, true, "valid"},
        {BooleanValues{false, false}, false, false, true, "valid"},
        {colour, true, false, "green", "valid"},
        {colour, true, false, "Green", "value must be one of \"red\", \"green\" or \"blue\""},
        {colour, true, false, "gree", "value must be one of \"red\", \"green\" or \"blue\""},
        {colour, true, false, "", "Value must be specified"},
        {colour, true, true, "", "valid"},
        {StringValues{"", "", {"one"}}, true, false, "two", "value must be one of \"one\""},
        {StringValues{"", "", {"a", "b"}}, true, false, "c", "value must be one of \"a\" or \"b\""},
        {five, true, false, "x", "value must be one of \"a\", \"b\", \"c\", \"d\" or \"e\""},
        {six, true, false, "x", "value is not valid"},
        {six, true, false, "f", "valid"},
        {text, true, false, "anything", "valid"},
        {text, true, false, "", "Value must be specified"},
        {text, false, false, "anything", "Cannot validate output parameter"},
        {three, true, false, Reals{1, 2, 3}, "valid"},
        {three, true, false, Reals{}, "Value must be specified"},
        {three, true, true, Reals{}, "valid"},
        {three, true, false, Reals{99, none}, "Invalid size"},
        {three, true, true, Reals{1, 2, 3, 4}, "Invalid size"},
        {three, true, true, Reals{1, none, 2}, "valid"},
        {three, true, false, Reals{1, none, 2}, "All elements must be specified"},
        {three, false, false, Reals{1, 2, 3}, "Cannot validate output parameter"},
        {any, true, false, Reals{1, 0.1, 99}, "Element value is below minimum value of 0.5"},
        {any, true, true, Reals{none, 99, 0.1}, "Element value is above maximum value of 10"},
        {any, true, false, Reals{10, 0.5}, "valid"},
        {freeArray, true, false, Reals{-1e300, 1e300}, "valid"},
    };
    struct Grouping : std::numpunct<char> {  // messages are the same whatever the host's locale
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Grouping));
    CountingOwner owner;
    for (const auto& [values, input, optional, proposed, expected] : rows)
        CHECK(validating(makeParameter(owner, declare("x", input, values, optional)), proposed) == expected);
    std::locale::global(before);
    CHECK(owner.heard() == 0);
}

TEST_CASE("A host sets and resets inputs alone and the unit hears of each change once") {
    struct Row {
        decltype(ParameterDeclaration::values) values;
        bool optional;
        StoredValue value, refused, afterReset;
        const char* refusal;
    };
    const Row rows[] = {
        {RealValues{5, 7, 1, 10}, false, 3.0, 11.0, 5.0,
         "in ICapeRealParameter::Value of Orvane Operation parameter \"x\": Value is above maximum value of "
         "10"},
        {RealValues{none, 7, 1, 10}, true, 3.0, 0.5, none,
         "in ICapeRealParameter::Value of Orvane Operation parameter \"x\": Value is below minimum value of "
         "1"},
        {IntegerValues{5, 7, 1, 10}, false, 3, 11, 5,
         "in ICapeIntegerParameter::Value of Orvane Operation parameter \"x\": Value is above maximum value "
         "of 10"},
        {BooleanValues{false, false}, false, true, true, false, ""},
        {StringValues{"red", "blue", colours}, false, "green", "black", "red",
         "in ICapeStringParameter::Value of Orvane Operation parameter \"x\": value must be one of \"red\", "
         "\"green\" "
         "or \"blue\""},
        {StringValues{"", "blue", {}}, false, "π ≈ 3", "", "",
         "in ICapeStringParameter::Value of Orvane Operation parameter \"x\": Value must be specified"},
        {RealArrayValues{4, {7, 8}, none, 10, 2}, true, Reals{3, none}, Reals{3, 11}, Reals{4, 4},
         "in ICapeArrayRealParameter::Value of Orvane Operation parameter \"x\": Element value is above "
         "maximum value "
         "of 10"},
        {RealArrayValues{none, {7, 8}, none, 10, 2}, true, Reals{3, 4}, Reals{1}, Reals{none, none},
         "in ICapeArrayRealParameter::Value of Orvane Operation parameter \"x\": Invalid size"},
        {RealArrayValues{4, {7, 8}, none, 10, 0}, true, Reals{3}, Reals{11}, Reals{},
         "in ICapeArrayRealParameter::Value of Orvane Operation parameter \"x\": Element value is above "
         "maximum value "
         "of 10"},
    };
    const auto holds = [](const Ref<Parameter>& parameter, const StoredValue& expected) {
        const StoredValue value = parameter->storedValue();
        return std::visit([&]<class Value>(const Value& v) { return sameValue(v, std::get<Value>(value)); },
                          expected);
    };
    for (const auto& [values, optional, value, refused, afterReset, refusal] : rows) {
        CountingOwner owner;
        const auto input = makeParameter(owner, declare("x", true, values, optional));
        CHECK(setting(input, value) == "");
        CHECK(setting(input, value) == "");
        CHECK(owner.heard() == 1);
        CHECK(setting(input, refused) == refusal);
        CHECK(holds(input, value));
        CHECK(owner.heard() == 0);
        CHECK(resetting(input) == "");
        CHECK(resetting(input) == "");
        CHECK(holds(input, afterReset));
        CHECK(owner.heard() == 1);

        const auto output = makeParameter(owner, declare("x", false, values, optional));
        const StoredValue initial = output->storedValue();
        CHECK(setting(output, value) == "code 106");
        CHECK(resetting(output) == "code 106");
        CHECK(holds(output, initial));
        CHECK(owner.heard() == 0);
    }
    CountingOwner owner;
    const auto unset = makeParameter(owner, declare("x", true, RealValues{none, none, none, none}, true));
    CHECK(setting(unset, none) == "");
    CHECK_MESSAGE(owner.heard() == 0, "NaN on NaN changes nothing");
}

TEST_CASE("A saved value comes back into inputs and outputs of its type") {
    struct Row {
        decltype(ParameterDeclaration::values) values;
        StoredValue good, bad;
        const char* reason;
    };
    const Row rows[] = {
        {RealValues{1, 2, 0, 9}, 3.5, 10.0, "Value is above maximum value of 9"},
        {IntegerValues{1, 2, 0, 9}, 3, 10, "Value is above maximum value of 9"},
        {StringValues{"a", "a", {"a", "b"}}, "b", "c", "value must be one of \"a\" or \"b\""},
        {BooleanValues{true, false}, true, 1, "incorrect type"},
        {RealArrayValues{1, {2, 2}, 0, 9, 2}, Reals{3, 4}, Reals{3}, "Invalid size"},
    };
    CountingOwner owner;
    for (const auto& [values, good, bad, reason] : rows) {
        for (const bool input : {true, false}) {
            const auto parameter = makeParameter(owner, declare("x", input, values));
            CHECK(parameter->storedValue().index() == static_cast<std::size_t>(parameter->typeCode()));
            parameter->restore(good);
            CHECK(owner.heard() == 1);
            CHECK_THROWS_WITH(parameter->restore(bad), reason);
            for (const auto& row : rows)
                if (row.good.index() != good.index())
                    CHECK_THROWS_WITH(parameter->restore(row.good), "incorrect type");
            CHECK(parameter->storedValue() == good);
            CHECK(parameter->isInput() == input);
            CHECK(owner.heard() == 0);
        }
    }
    const auto unset = makeParameter(owner, declare("q", false, RealValues{none, none, 0, 9}));
    CHECK_NOTHROW_MESSAGE(unset->restore(none), "what was never specified comes back without complaint");
}
