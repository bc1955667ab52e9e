// The script's side of the unit operation, run in the real module: what stands for the script, what a script keeps or sets
// off in the midst of a call, and scripts of a size that only programs write.
#include "tests/TemporaryFolder.h"
#include "tests/unit/TestHost.h"

#include <cstdint>
#include <cstdlib>
#include <doctest/doctest.h>
#include <fmt/format.h>
#include <thread>

using namespace orvane::test;

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TestHost* calledBack = nullptr;
std::string whileCalledBack;

/// What a host does in the midst of a calculation of the unit, on the same thread.
void callBack() {
    const Verdict verdict = calledBack->validate();
    whileCalledBack = verdict.valid ? "valid" : verdict.message;
}

}  // namespace

TEST_CASE("A package on PYTHONPATH stands for the script") {
    const TemporaryFolder folder;
    folder.write("units/__init__.py", "");
    folder.write("units/names.py", "feed = 'Zulauf \u00e4'\n");
    folder.write("units/passing.py",
                 "from .names import feed\n"
                 "def Configure(unit):\n"
                 "    unit.add_port(feed, unit.PortType.MATERIAL, unit.PortDirection.FEED, optional=True)\n"
                 "    unit.add_parameter('n', unit.ParameterType.INTEGER, unit.ParameterMode.OUTPUT)\n"
                 "def Validate(unit): print('checked')\n"
                 "def Calculate(unit):\n"
                 "    unit.parameters['n'].value = 7\n"
                 "    print(__name__)\n");
    setenv("PYTHONPATH", folder.path().c_str(), 1);
    TestHost host("import units.passing\ndef Configure(unit): unit.define_from(units.passing)\n"
                  "def Calculate(unit): print('not this one')\n");
    CHECK(host.names(host.ports()) == std::vector<std::string>{"Zulauf \u00e4"});
    const Outcome outcome = host.calculate();
    CHECK_MESSAGE(outcome.succeeded(), outcome.text);
    CHECK(contains(host.lastCalculation(), "checked\r\nunits.passing\r\n"));
    CapeInteger n = 0;
    call<&ICapeIntegerParameter::Table::getValue>(host.parameter<ICapeIntegerParameter>("N"), &n);
    CHECK(n == 7);
}

TEST_CASE("A host that calls back into a calculating unit leaves it its streams") {
    TestHost host(
        fmt::format("import ctypes\n"
                    "def Configure(unit):\n"
                    "    unit.add_port('Feed', unit.PortType.MATERIAL, unit.PortDirection.FEED)\n"
                    "    unit.add_port('Product', unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)\n"
                    "def Validate(unit):\n"
                    "    if unit.volatile_data: raise RuntimeError(f'not now: {{unit.ports[\"Feed\"].p}}')\n"
                    "def Calculate(unit):\n"
                    "    feed = unit.ports['Feed']\n"
                    "    unit.volatile_data['busy'] = True\n"
                    "    ctypes.CFUNCTYPE(None)({})()\n"
                    "    unit.volatile_data.clear()\n"
                    "    unit.ports['Product'].set(x=feed.x, p=feed.p, flow_rate=feed.flow_rate, t=feed.t)\n"
                    "    print('ran to its end')\n",
                    reinterpret_cast<std::uintptr_t>(&callBack)));
    host.feed();
    host.stream("Product");
    calledBack = &host;
    const Outcome outcome = host.calculate();
    CHECK_MESSAGE(outcome.succeeded(), outcome.text);
    CHECK_MESSAGE(contains(whileCalledBack, "not now: 1000000.0"), whileCalledBack);
    CHECK(contains(host.lastCalculation(), "ran to its end"));
    // The last word on the unit's state is the validation's.
    CHECK(host.status() == CapeValidationStatus::invalid);
}

TEST_CASE("Hundreds of ports and parameters are declared, found and declared again") {
    TestHost host(
        "n = 0\n"
        "def Configure(unit):\n"
        "    for i in range(100):\n"
        "        unit.add_port(f'P{i}', unit.PortType.MATERIAL, unit.PortDirection.FEED, optional=True)\n"
        "    for i in range(1000):\n"
        "        unit.add_parameter(f'x{i}', unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=i)\n"
        "    try: unit.add_parameter('X999', unit.ParameterType.REAL, unit.ParameterMode.INPUT)\n"
        "    except RuntimeError as error: print(error)\n"
        "    else: raise ValueError('taken twice')\n"
        "def Calculate(unit): print(sum(p.value for p in unit.parameters.values()))\n");
    CHECK(host.names(host.ports()).size() == 100);
    CHECK(host.names(host.parameters()).size() == 1000);
    CHECK(host.calculate().succeeded());
    CHECK(contains(host.lastCalculation(), "499500.0"));
}

TEST_CASE("Units are created, run and released on several threads at once") {
    std::vector<std::thread> threads;
    std::vector<std::string> texts(4);
    for (std::size_t i = 0; i < texts.size(); ++i)
        threads.emplace_back([&, i] {
            for (int repeat = 0; repeat < 20; ++repeat) {
                TestHost host(fmt::format("def Configure(unit): pass\n"
                                          "def Calculate(unit):\n    for i in range(50): print({})\n",
                                          i));
                if (!host.calculate().succeeded()) return;
                texts[i] = host.lastCalculation();
            }
        });
    for (std::thread& thread : threads) thread.join();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        std::string expected;
        for (int line = 0; line < 50; ++line) expected += std::to_string(i) + "\r\n";
        CHECK(contains(texts[i], "\r\n\r\n" + expected + "\r\n\r\n"));
    }
}

TEST_CASE("A thousand units come and go without leaving a Python object behind") {
    // A debug build of the interpreter also counts references.
    TestHost counter(
        "import gc, sys\n"
        "def Configure(unit):\n"
        "    for name in 'blocks', 'references':\n"
        "        unit.add_parameter(name, unit.ParameterType.INTEGER, unit.ParameterMode.OUTPUT)\n"
        "def Calculate(unit):\n"
        "    gc.collect()\n"
        "    unit.parameters['blocks'].value = sys.getallocatedblocks()\n"
        "    unit.parameters['references'].value = getattr(sys, 'gettotalrefcount', int)()\n");
    const auto count = [&](const char* what) {
        CapeInteger value = 0;
        call<&ICapeIntegerParameter::Table::getValue>(counter.parameter<ICapeIntegerParameter>(what), &value);
        return value;
    };
    const auto cycles = [&](int number) {
        for (int i = 0; i < number; ++i) REQUIRE(TestHost().calculateDefault().succeeded());
        REQUIRE(counter.calculate().succeeded());
    };
    // The interpreter keeps freed objects for reuse, up to a limit that it has reached by then.
    cycles(1000);
    const CapeInteger blocks = count("blocks"), references = count("references");
    cycles(1000);
    CHECK(count("blocks") - blocks < 300);
    CHECK(count("references") - references < 300);
}
