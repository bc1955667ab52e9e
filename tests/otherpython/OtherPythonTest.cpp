// A process that brings a Python of another version: its functions stand before those of the library that the module is
// linked to. A unit there is made and answers, and every operation that needs a script says what is wrong.
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

using namespace orvane::test;

// What the other Python shows of itself. The module asks for the version before anything else.
extern "C" {
__attribute__((visibility("default"))) const char* Py_GetVersion() {
    return "3.12.4 (main, Jun  6 2024) [other]";
}
__attribute__((visibility("default"))) int Py_IsInitialized() { return 1; }
}

TEST_CASE("Every operation that needs the script says that another Python is in the way") {
    TestHost host;
    const auto utilities = host.as<ICapeUtilities>();
    const auto report = host.as<ICapeReport>();
    StringArray names;
    struct Row {
        const char* operation;
        Outcome outcome;
    };
    const Row rows[] = {
        {"validate", TestHost::outcome([&] { host.validate(); })},
        {"calculate", host.calculate()},
        {"ports", TestHost::outcome([&] { host.ports(); })},
        {"parameters", TestHost::outcome([&] { host.parameters(); })},
        {"save", TestHost::outcome([&] { host.save(); })},
        {"reports",
         TestHost::outcome([&] { call<&ICapeReport::Table::getReportNames>(report, names.out()); })},
    };
    for (const Row& row : rows) {
        CAPTURE(row.operation);
        CHECK(row.outcome.code == capeOpenError);
        CHECK_MESSAGE(
            row.outcome.text.find("Failed to initialize Python: this process already has Python 3.12.4; "
                                  "this unit operation needs Python 3.14") != std::string::npos,
            row.outcome.text);
    }
}

TEST_CASE("What needs no script works all the same") {
    TestHost host;
    call<&ICapeIdentification::Table::putComponentName>(host.as<ICapeIdentification>(),
                                                        StringObject("H-1").in());
    CHECK(text<&ICapeIdentification::Table::getComponentName>(host.as<ICapeIdentification>().get()) == "H-1");
    CHECK(host.status() == CapeValidationStatus::notValidated);
}
