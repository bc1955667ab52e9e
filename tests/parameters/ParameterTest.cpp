#include "parameters/Parameter.h"

#include "tests/parameters/HostView.h"

using namespace orvane;
using namespace COBIA;

namespace {

/// What a host can read from the typed interfaces: "value, default, bounds, ... | the same of the specification".
std::string readAll(const Ref<Parameter>& parameter) {
    const auto join = [](std::initializer_list<std::string> texts) {
        std::string all;
        for (const auto& text : texts) all += (all.empty() ? "" : " | ") + text;
        return all;
    };
    if (parameter->find(ICapeRealParameter::uuid)) {
        using I = ICapeRealParameter::Table;
        using S = ICapeRealParameterSpecification::Table;
        return join({read<&I::getValue, &I::getDefaultValue, &I::getLowerBound, &I::getUpperBound,
                          &I::getDimensionality>(view<ICapeRealParameter>(parameter)),
                     read<&S::getDefaultValue, &S::getLowerBound, &S::getUpperBound, &S::getDimensionality>(
                         view<ICapeRealParameterSpecification>(parameter))});
    }
    if (parameter->find(ICapeIntegerParameter::uuid)) {
        using I = ICapeIntegerParameter::Table;
        using S = ICapeIntegerParameterSpecification::Table;
        return join({read<&I::getValue, &I::getDefaultValue, &I::getLowerBound, &I::getUpperBound>(
                         view<ICapeIntegerParameter>(parameter)),
                     read<&S::getDefaultValue, &S::getLowerBound, &S::getUpperBound>(
                         view<ICapeIntegerParameterSpecification>(parameter))});
    }
    if (parameter->find(ICapeStringParameter::uuid)) {
        using I = ICapeStringParameter::Table;
        using S = ICapeStringParameterSpecification::Table;
        return join({read<&I::getValue, &I::getDefaultValue, &I::getOptionList, &I::getRestrictedToList>(
                         view<ICapeStringParameter>(parameter)),
                     read<&S::getDefaultValue, &S::getOptionList, &S::getRestrictedToList>(
                         view<ICapeStringParameterSpecification>(parameter))});
    }
    if (parameter->find(ICapeBooleanParameter::uuid)) {
        using I = ICapeBooleanParameter::Table;
        using S = ICapeBooleanParameterSpecification::Table;
        return join({read<&I::getValue, &I::getDefaultValue>(view<ICapeBooleanParameter>(parameter)),
                     read<&S::getDefaultValue>(view<ICapeBooleanParameterSpecification>(parameter))});
    }
    using I = ICapeArrayRealParameter::Table;
    using S = ICapeArrayRealParameterSpecification::Table;
    using A = ICapeArrayParameter::Table;
    using T = ICapeArrayParameterSpecification::Table;
    return join(
        {read<&I::getValue, &I::getDefaultValue, &I::getLowerBound, &I::getUpperBound, &I::getDimensionality>(
             view<ICapeArrayRealParameter>(parameter)),
         read<&S::getDefaultValue, &S::getLowerBound, &S::getUpperBound, &S::getDimensionality>(
             view<ICapeArrayRealParameterSpecification>(parameter)),
         read<&A::getNumDimensions, &A::getSize>(view<ICapeArrayParameter>(parameter)),
         read<&T::getNumDimensions, &T::getSize>(view<ICapeArrayParameterSpecification>(parameter))});
}

}  // namespace

TEST_CASE("A host reads what a parameter was declared with") {
    struct Row {
        decltype(ParameterDeclaration::values) values;
        const char *code, *typeName, *unit, *readings;
    };
    const Row rows[] = {
        {RealValues{5, 7, 1, 10}, "0", "real", "m/s", "7 5 1 10 [1][0][-1] | 5 1 10 [1][0][-1]"},
        {IntegerValues{5, 7, 1, 10}, "1", "integer", "", "7 5 1 10 | 5 1 10"},
        {StringValues{"a", "b", {"a", "b"}}, "2", "string", "", "b a [a][b] 1 | a [a][b] 1"},
        {StringValues{"", "π", {}}, "2", "string", "",
         "π in ICapeStringParameter::DefaultValue of Orvane Operation parameter \"Größe\": no default value "
         "in ICapeStringParameter::OptionList of Orvane Operation parameter \"Größe\": no option list 0 | "
         "in ICapeStringParameterSpecification::DefaultValue of Orvane Operation parameter \"Größe\": no "
         "default value "
         "in ICapeStringParameterSpecification::OptionList of Orvane Operation parameter \"Größe\": no "
         "option list 0"},
        {BooleanValues{true, false}, "3", "boolean", "", "0 1 | 1"},
        {RealArrayValues{5, {7, 8}, 1, 10, 0}, "4", "real[]", "m/s",
         "[7][8] 5 1 10 [1][0][-1] | 5 1 10 [1][0][-1] | 1 [2] | 1 [2]"},
    };
    const StringObject other(std::string_view("other"));
    CountingOwner owner;
    for (const auto& [values, code, typeName, unit, readings] : rows) {
        for (const bool input : {true, false}) {
            using Common = ICapeParameter::Table;
            using Identification = ICapeIdentification::Table;
            const auto parameter = makeParameter(owner, declare("Größe", input, values, false, {1, 0, -1}));
            auto* identification = view<ICapeIdentification>(parameter);
            CHECK(readAll(parameter) == readings);
            CHECK(read<&Common::getType, &Common::getMode, &Common::getValStatus>(
                      view<ICapeParameter>(parameter)) == code + std::string(input ? " 1 0" : " 2 0"));
            CHECK(read<&ICapeParameterSpecification::Table::getType>(
                      view<ICapeParameterSpecification>(parameter)) == code);
            CHECK(read<&Identification::getComponentName, &Identification::getComponentDescription>(
                      identification) == "Größe what it is");
            CHECK(failure<&Identification::putComponentName>(identification, other.in()) == "code 106");
            CHECK(failure<&Identification::putComponentDescription>(identification, other.in()) ==
                  "code 106");
            CHECK(std::string(parameter->typeName()) == typeName);
            CHECK(parameter->unit() == unit);
        }
    }
}

TEST_CASE("A parameter knows whether its value was validated") {
    CountingOwner owner;
    const auto input = makeParameter(owner, declare("x", true, RealValues{99, 5, 0, 10}));
    const auto status = [&] {
        return read<&ICapeParameter::Table::getValStatus>(view<ICapeParameter>(input));
    };
    CHECK(status() == "0");
    CHECK(validating(input) == "valid");
    CHECK(status() == "2");
    CHECK(setting(input, 99.0) != "");
    CHECK_MESSAGE(status() == "2", "a refused value changes nothing");
    CHECK(resetting(input) == "");
    CHECK(status() == "0");
    CHECK(validating(input) == "Value is above maximum value of 10");
    CHECK(status() == "1");
    CHECK(validating(makeParameter(owner, declare("q", false, RealValues{none, none, 0, 10}))) == "valid");
}

TEST_CASE("A parameter declared again keeps its value under the new definition") {
    struct Row {
        decltype(ParameterDeclaration::values) before, after;
        const char* readings;
        const char* verdict;
    };
    const Row rows[] = {
        {RealValues{1, 2, 0, 9}, RealValues{5, 6, 4, 7}, "2 5 4 7 [1][0] | 5 4 7 [1][0]",
         "Value is below minimum value of 4"},
        {IntegerValues{1, 2, 0, 9}, IntegerValues{5, 6, 4, 7}, "2 5 4 7 | 5 4 7",
         "Value is below minimum value of 4"},
        {StringValues{"red", "blue", {"red", "blue"}}, StringValues{"pink", "pink", {"pink"}},
         "blue pink [pink] 1 | pink [pink] 1", "value must be one of \"pink\""},
        {BooleanValues{false, false}, BooleanValues{true, true}, "0 1 | 1", "valid"},
        {RealArrayValues{1, {2, 3}, 0, 9, 2}, RealArrayValues{5, {}, 4, 7, 3},
         "[2][3] 5 4 7 [1][0] | 5 4 7 [1][0] | 1 [2] | 1 [2]", "Invalid size"},
    };
    CountingOwner owner;
    for (const auto& [before, after, readings, expected] : rows) {
        const auto parameter = makeParameter(owner, declare("x", true, before, false, {1}));
        CHECK(validating(parameter) == "valid");
        auto redeclared = declare("X", true, after, false, {1, 0});
        redeclared.description = "new";
        const auto again = makeParameter(owner, redeclared);
        REQUIRE(parameter->sameKind(*again));
        parameter->takeOver(*again);
        CHECK(parameter->validationStatus() == CapeValidationStatus::notValidated);
        CHECK(readAll(parameter) == readings);
        CHECK(parameter->name() + parameter->description() == "Xnew");
        CHECK(validating(parameter) == expected);

        parameter->takeOver(*makeParameter(owner, declare("X", false, after, true)));
        CHECK(!parameter->isInput());
        CHECK(parameter->isOptional());
    }
    CHECK(owner.heard() == 0);
}

TEST_CASE("A parameter of another type or dimension is another parameter") {
    CountingOwner owner;
    const RealValues real{1, 1, none, none};
    const RealArrayValues array{1, {1}, none, none, 0};
    const auto metre = makeParameter(owner, declare("x", true, real, false, {1}));
    const auto metres = makeParameter(owner, declare("x", true, array, false, {1}));
    CHECK(metre->sameKind(*makeParameter(owner, declare("x", false, real, true, {1, 0, 0}))));
    CHECK(!metre->sameKind(*makeParameter(owner, declare("x", true, real, false, {1, 0, 1}))));
    CHECK(!metre->sameKind(*metres));
    CHECK(!metres->sameKind(*makeParameter(owner, declare("x", true, array, false, {2}))));
    CHECK_THROWS_WITH(metre->takeOver(*metres), "incorrect type");
}

TEST_CASE("A host may use a parameter after the unit is gone") {
    Ref<Parameter> parameter;
    {
        CountingOwner owner;
        parameter = makeParameter(owner, declare("x", true, RealValues{1, 2, none, none}));
        parameter->disown();
    }
    CHECK(setting(parameter, 3.0) == "");
    CHECK(resetting(parameter) == "");
    CHECK(parameter->storedValue() == StoredValue(1.0));
}
