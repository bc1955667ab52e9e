// Names of ports and parameters in any script and of any length, through the host's collections.
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

using namespace orvane::test;

namespace {

std::string quoted(const std::string& name) { return "'" + name + "'"; }

std::string script(const std::vector<std::string>& names) {
    std::string text = "def Configure(unit):\n    t, m = unit.ParameterType, unit.ParameterMode\n";
    for (const std::string& name : names)
        text += "    unit.add_port(" + quoted(name) +
                ", unit.PortType.MATERIAL, unit.PortDirection.FEED, optional=True)\n"
                "    unit.add_parameter(" +
                quoted(name) + ", t.REAL, m.INPUT, default=1)\n";
    return text;
}

bool finds(TestHost& host, const std::string& name) {
    const bool port = TestHost::outcome([&] { host.port(name); }).succeeded();
    const bool parameter = TestHost::outcome([&] { host.parameter<ICapeRealParameter>(name); }).succeeded();
    CHECK(port == parameter);
    return port;
}

}  // namespace

TEST_CASE("Names are found without regard to case in every script") {
    struct Row {
        const char *declared, *asked;
        bool found;
    };
    for (const Row& row :
         {Row{"\u00c4\u00d6\u00dc \u00df", "\u00e4\u00f6\u00fc \u00df", true},
          {"stra\u00dfe", "STRASSE", false},  // one character each
          {"\u039b\u03a9\u03a3", "\u03bb\u03c9\u03c3", true},
          {"\u03bb\u03cc\u03b3\u03bf\u03c2", "\u039b\u038c\u0393\u039f\u03c2", true},
          {"\u03bb\u03cc\u03b3\u03bf\u03c2", "\u039b\u038c\u0393\u039f\u03a3", false},
          {"\u041f\u043e\u0442\u043e\u043a \u0401", "\u043f\u041e\u0422\u041e\u041a \u0451", true},
          {"I", "i", true},
          {"\u0130", "i", true},
          {"\u0131", "I", false},
          {"\u0131", "\u0131", true},
          {"\u6c34 \U0001F600", "\u6c34 \U0001F600", true},
          {"\U00010400", "\U00010428", true},
          {"Feed", "Feed ", false},
          {"e\u0301", "\u00e9", false}}) {
        CAPTURE(row.declared);
        CAPTURE(row.asked);
        TestHost host(script({row.declared}));
        CHECK(finds(host, row.asked) == row.found);
        CHECK(host.names(host.ports()) == std::vector<std::string>{row.declared});
    }
}

TEST_CASE("Names that differ in more than case are different names") {
    const std::vector<std::string> names = {"\u03bf\u03c3", "\u03bf\u03c2", "i",
                                            "\u0131",       "\u00e9",       "e\u0301"};
    TestHost host(script(names));
    CHECK(host.names(host.ports()) == names);
    for (const std::string& name : names) CHECK(finds(host, name));
}

TEST_CASE("Names of ten thousand characters pass through") {
    std::string first, second;
    for (int i = 0; i < 10000; ++i) {
        first += "\u00c4";
        second += i < 9999 ? "\u00e4" : "b";
    }
    TestHost host(script({first, second}));
    CHECK(host.names(host.parameters()) == std::vector<std::string>{first, second});
    CHECK(finds(host, second));
    CHECK_FALSE(finds(host, first.substr(2)));
    const auto parameter = host.parameter<ICapeRealParameter>(first);
    const double missing = std::numeric_limits<double>::quiet_NaN();
    CHECK(TestHost::outcome([&] { call<&ICapeRealParameter::Table::putValue>(parameter, missing); }).text ==
          "in ICapeRealParameter::Value of Orvane Operation parameter \"" + first +
              "\": Value must be specified");
    call<&ICapeRealParameter::Table::putValue>(parameter, 5.0);
    const auto saved = host.save();
    TestHost again;
    again.load(*saved);
    double value = 0;
    call<&ICapeRealParameter::Table::getValue>(again.parameter<ICapeRealParameter>(first), &value);
    CHECK(value == 5);
}

TEST_CASE("A unit with a thousand parameters finds each of them") {
    std::vector<std::string> names;
    for (int i = 0; i < 1000; ++i) names.push_back("P" + std::to_string(i));
    TestHost host(script(names));
    CHECK(host.names(host.parameters()) == names);
    for (int i = 0; i < 1000; i += 37) CHECK(finds(host, "p" + std::to_string(i)));
    CHECK_FALSE(finds(host, "p1000"));
}
