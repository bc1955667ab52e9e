// The default script as a resource of the module, the line ends of scripts, and names in UTF-16.
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>
#include <fstream>
#include <windows.h>

using namespace orvane::test;

TEST_CASE(
    "The default script is the module's resource PYTHON 102, byte for byte, and what a new unit saves") {
    const HMODULE module =
        LoadLibraryExW(L"" ORVANE_BIN "/Orvane3.14.dll", nullptr, LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    REQUIRE(module);
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(102), L"PYTHON");
    REQUIRE(found);
    const std::string bytes(static_cast<const char*>(LockResource(LoadResource(module, found))),
                            SizeofResource(module, found));
    std::ifstream file(ORVANE_SOURCE "/resources/default.py", std::ios::binary);
    CHECK(bytes == std::string(std::istreambuf_iterator<char>(file), {}));
    CHECK(bytes.find("\r\n") != bytes.npos);
    CHECK(TestHost().save()->string("python") == bytes);
}

TEST_CASE("A script has the line ends of Windows once it was loaded, and then stays as it is") {
    TestHost first("def Configure(unit):\n    pass\r\ndef Calculate(unit): pass");
    const std::string saved = first.save()->string("python");
    CHECK(saved == "def Configure(unit):\r\n    pass\r\ndef Calculate(unit): pass");
    TestHost second(saved);
    CHECK(second.save()->string("python") == saved);
}

TEST_CASE("Names beyond the basic plane cross the boundary whole") {
    TestHost host(
        "def Configure(unit):\n"
        "    unit.add_port('Gr\u00f6\u00dfe \U0001f600', unit.PortType.MATERIAL, unit.PortDirection.FEED,"
        " optional=True)\n"
        "def Calculate(unit): print('\U00010348')\n");
    CHECK(host.names(host.ports()) == std::vector<std::string>{"Gr\u00f6\u00dfe \U0001f600"});
    CHECK(TestHost::outcome([&] { host.port("GR\u00d6\u00dfE \U0001f600"); }).succeeded());
    REQUIRE(host.calculate().succeeded());
    CHECK(host.lastCalculation().find("\U00010348") != std::string::npos);

    StringObject name;
    call<&ICapeIdentification::Table::getComponentName>(
        query<ICapeIdentification>(host.port("gr\u00f6\u00dfe \U0001f600")), name.out());
    CHECK(std::wstring(name.view()) == L"Gr\u00f6\u00dfe \xd83d\xde00");
}
