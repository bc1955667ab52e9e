// The declaring methods of `unit`: which arguments they take, and which rule they name first.
#include "tests/engine/RecordingUnit.h"

#include <doctest/doctest.h>

#include <climits>
#include <cmath>

using namespace orvane;

namespace {

/// A unit that ran one statement in Configure, with short names for the types; and the last line of the error.
struct Configured {
    explicit Configured(const std::string& statement)
        : unit(
              "def Configure(unit):\n"
              "    T = unit.PortType; D = unit.PortDirection; P = unit.ParameterType; M = unit.ParameterMode; WATT = 1.0\n"
              "    " +
              statement + "\n") {
        std::string errors = unit.loadErrors + unit.call(FunctionKind::configure).errors;
        while (!errors.empty() && errors.back() == '\n') errors.pop_back();
        error = errors.substr(errors.rfind('\n') + 1);
    }

    RecordingUnit unit;
    std::string error;
};

std::string configure(const std::string& statement) { return Configured(statement).error; }

PortDeclaration declaredPort(const std::string& arguments) {
    const Configured configured("unit.add_port(" + arguments + ")");
    REQUIRE(configured.error == "");
    return configured.unit.ports.at(0);
}

ParameterDeclaration declaredParameter(const std::string& arguments) {
    const Configured configured("unit.add_parameter('a', " + arguments + ")");
    REQUIRE(configured.error == "");
    return configured.unit.parameters.at(0);
}

}  // namespace

TEST_CASE("Ports: the first broken rule is told") {
    struct Row {
        const char* call;
        const char* error;
    };
    for (const Row& row : {
             Row{"unit.add_port('a', 0, D.FEED)", "TypeError: type must be PortType"},
             Row{"unit.add_port('a', T.MATERIAL, M.INPUT)", "TypeError: direction must be PortDirection"},
             Row{"unit.add_port('a', T.MATERIAL, D.FEED, data_name='x', axle=True)",
                 "RuntimeError: data_name cannot be specified for material port"},
             Row{"unit.add_port('a', T.MATERIAL, D.FEED, dimension=WATT)",
                 "RuntimeError: dimension cannot be specified for material port"},
             Row{"unit.add_port('a', T.MATERIAL, D.FEED, thermal=True, difference=True)",
                 "RuntimeError: difference cannot be specified for material port"},
             Row{"unit.add_port('a', T.MATERIAL, D.FEED, thermal=True)",
                 "RuntimeError: thermal cannot be specified for material port"},
             Row{"unit.add_port('a', T.ENERGY, D.FEED, thermal=True, axle=True)",
                 "RuntimeError: energy port can be axle or thermal, but not both"},
             Row{"unit.add_port('a', T.INFORMATION, D.FEED, axle=True)",
                 "RuntimeError: axle cannot be specified for information port"},
             Row{"unit.add_port('a', T.INFORMATION, D.FEED, dimension=3)",
                 "RuntimeError: Invalid dimension: not a Dimension."},
             Row{"unit.add_port('a', T.MATERIAL, D.FEED, True)",
                 "TypeError: add_port() takes at most 3 positional arguments (4 given)"},
         }) {
        CAPTURE(row.call);
        CHECK(configure(row.call) == row.error);
    }
}

TEST_CASE("Ports: what is declared is what the script said") {
    const auto material = declaredPort("'\u00c4', T.MATERIAL, D.PRODUCT, optional=True, data_name=None");
    CHECK(material.name == "\u00c4");
    CHECK_FALSE(material.isFeed);
    CHECK(material.optional);
    CHECK(declaredPort("'e', T.ENERGY, D.FEED, axle=True").energyKind == EnergyKind::axle);
    const auto difference = declaredPort("'i', T.INFORMATION, D.FEED, difference=True");
    CHECK(difference.dimensionality == std::vector<double>{0, 0, 0, 0, 0, 0, 0, 0, 1});
    CHECK(difference.dataName == "i");
    const auto power = declaredPort("'i', T.INFORMATION, D.FEED, dimension=WATT, data_name='w'");
    CHECK(power.dimensionality == std::vector<double>{2, 1, -3});
    CHECK(power.dataName == "w");
}

TEST_CASE("Parameters: the first broken rule is told") {
    struct Row {
        const char* type;
        const char* keywords;
        const char* error;
    };
    for (
        const Row& row : {
            Row{"REAL", "options=['a'], length=2", "Cannot specify options for a real parameter"},
            Row{"REAL", "length=2", "Cannot specify length for a real parameter"},
            Row{"REAL", "default='x', min='y'", "Invalid default value."},
            Row{"REAL", "initial='x'", "Invalid initial value."},
            Row{"REAL", "min='x', max='y'", "Invalid minimum value."},
            Row{"REAL", "max='x'", "Invalid maximum value."},
            Row{"REAL", "dimension='m'", "Invalid dimension: not a Dimension."},
            Row{"INTEGER", "optional=True, difference=True",
                "For integer parameters, optional=True is not supported."},
            Row{"INTEGER", "dimension=WATT", "For integer parameters, dimension cannot be specified."},
            Row{"INTEGER", "default=1.5", "Invalid default value."},
            Row{"INTEGER", "max=2**31", "Invalid maximum value."},
            Row{"STRING", "difference=True, length=1",
                "For string parameters, difference=True is not allowed."},
            Row{"STRING", "max=1", "For string parameters, max cannot be specified."},
            Row{"STRING", "default=1", "Invalid default value."},
            Row{"STRING", "options=[]", "If an option list is specified, it cannot be empty."},
            Row{"STRING", "options=3", "'options' must be either string or collection of strings"},
            Row{"STRING", "options=['a', 1]",
                "'options' must be either string or collection of strings; given argument is a collection but not all "
                "elements are strings"},
            Row{"STRING", "options=['a'], default='b'",
                "If an option list and default value are specified, default value must appear in option list."},
            Row{"BOOLEAN", "min=1", "For boolean parameters, min cannot be specified."},
            Row{"ARRAY_REAL", "length=0", "Value of length must be positive"},
            Row{"ARRAY_REAL", "initial=5", "'initial' must be iterable of real items"},
            Row{"ARRAY_REAL", "initial=[1, 'x']",
                "'initial' must be iterable of real items; given argument is iterable but not all elements are real "
                "numbers"},
        }) {
        CAPTURE(row.type);
        CAPTURE(row.keywords);
        const std::string call =
            std::string("unit.add_parameter('a', P.") + row.type + ", M.INPUT, " + row.keywords + ")";
        CHECK(configure(call) == std::string("RuntimeError: ") + row.error);
    }
    CHECK(configure("unit.add_parameter('a', T.MATERIAL, M.INPUT)") ==
          "TypeError: type must be ParameterType");
    CHECK(configure("unit.add_parameter('a', P.REAL, D.FEED)") == "TypeError: mode must be ParameterMode");
}

TEST_CASE("Parameters: absent values are filled in by type") {
    const auto real = declaredParameter("P.REAL, M.OUTPUT, default=2, dimension=WATT, difference=True");
    CHECK(std::get<RealValues>(real.values).initial == 2);
    CHECK(std::isnan(std::get<RealValues>(real.values).min));
    CHECK(real.dimensionality == std::vector<double>{2, 1, -3, 0, 0, 0, 0, 0, 1});
    CHECK(real.description == "Orvane Operation Real Output Parameter");
    CHECK_FALSE(real.isInput);

    const auto integer = declaredParameter("P.INTEGER, M.INPUT");
    CHECK(std::get<IntegerValues>(integer.values).standard == 0);
    CHECK(std::get<IntegerValues>(integer.values).max == INT_MAX);

    const auto option = declaredParameter("P.STRING, M.INPUT, options='red'");
    CHECK(std::get<StringValues>(option.values).options == std::vector<std::string>{"red"});
    CHECK(option.description == "Orvane Operation Option Input Parameter");

    const auto boolean = declaredParameter("P.BOOLEAN, M.INPUT, initial=True");
    CHECK_FALSE(std::get<BooleanValues>(boolean.values).initial);

    const auto array = declaredParameter("P.ARRAY_REAL, M.INPUT, default=3, length=2, description='my own'");
    CHECK(std::get<RealArrayValues>(array.values).initial == std::vector<double>{3, 3});
    CHECK(array.description == "my own");
    CHECK(std::get<RealArrayValues>(declaredParameter("P.ARRAY_REAL, M.INPUT").values).initial.empty());
}

TEST_CASE("The object unit and its constants cannot be made or rebound") {
    CHECK(configure("type(unit)()") ==
          "RuntimeError: A unit operation cannot be created. It is passed as argument.");
    CHECK(configure("T()") == "RuntimeError: A PortType cannot be created. Use unit.PortType.MATERIAL, "
                              "unit.PortType.ENERGY or unit.PortType.INFORMATION.");
    CHECK(configure("unit.ports = {}") == "RuntimeError: The property 'ports' is read-only");
    CHECK(configure("assert T.MATERIAL is unit.PortType.MATERIAL and T.MATERIAL != T.ENERGY") == "");
    CHECK(configure("unit.define_from(3)") == "RuntimeError: The argument to define_from must be a module");
    CHECK(configure("import sys; sys.stdout.flush()") ==
          "AttributeError: 'capeopen_unit.OutputRedirector' object has no attribute 'flush'");
}
