// The registry roots, and the runtimes that are registered there.
#include "platform/windows/Registry.h"

#include "cobia/Error.h"
#include "cobia/Text.h"
#include "platform/RuntimeLoader.h"
#include "platform/RuntimeRegistry.h"
#include "tests/system/Environment.h"
#include "tests/system/windows/OwnRegistry.h"

#include <doctest/doctest.h>

using namespace orvane;
using namespace orvane::test;

TEST_CASE("An elevated process looks at the machine's root alone, any other at the user's first") {
    using Roots = std::vector<HKEY>;
    const Roots both = {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};
    CHECK(registryRoots(TokenElevationTypeFull) == Roots{HKEY_LOCAL_MACHINE});
    CHECK(registryRoots(TokenElevationTypeLimited) == both);
    CHECK(registryRoots(TokenElevationTypeDefault) == both);
    CHECK(registryRoots(std::nullopt) == both);
    CHECK(tokenElevation().has_value());
}

TEST_CASE("Texts are read whole, other values are none") {
    OwnRegistry registry;
    const auto read = [](const wchar_t* name) {
        return registryText(HKEY_CURRENT_USER, L"Software\\Some", name);
    };
    CHECK_FALSE(read(L""));
    const std::wstring beyond = L"Gr\u00f6\u00dfe \xd83d\xde00 ", longText(5000, L'x');
    registry.user.text(L"Software\\Some", L"", beyond);
    registry.user.text(L"Software\\Some", L"long", longText);
    registry.user.value(L"Software\\Some", L"number", REG_DWORD, L"12");
    registry.user.value(L"Software\\Some", L"unterminated", REG_SZ, L"abc");
    registry.user.value(L"Software\\Some", L"expanding", REG_EXPAND_SZ, L"abc");
    CHECK(read(L"") == "Gr\u00f6\u00dfe \U0001f600 ");
    CHECK(read(L"LONG") == std::string(5000, 'x'));
    CHECK(read(L"unterminated") == "abc");
    CHECK_FALSE(read(L"number"));
    CHECK_FALSE(read(L"expanding"));
    CHECK_FALSE(read(L"none"));
}

TEST_CASE("The registration of the highest version counts, the user's among equals") {
    OwnRegistry registry;
    const std::wstring key = L"Software\\CAPE-OPEN Laboratories Network\\COBIA\\x64";
    const bool elevated = tokenElevation() == TokenElevationTypeFull;
    const auto chosen = [&](const wchar_t* userVersion, const wchar_t* machineVersion) -> std::string {
        registry.user.text(key, L"", L"C:\\user");
        registry.user.text(key, L"version", userVersion);
        registry.machine.text(key, L"", L"C:\\machine");
        registry.machine.text(key, L"version", machineVersion);
        const auto runtime = chooseRuntime(registeredRuntimes());
        return runtime ? runtime->folder : "";
    };
    CHECK(chosen(L"1.2.1", L"1.3") == "C:\\machine");
    CHECK(chosen(L"1.2.1", L"1.2.1") == (elevated ? "C:\\machine" : "C:\\user"));
    CHECK(chosen(L"1.3", L"1.2.9") == (elevated ? "C:\\machine" : "C:\\user"));

    // A root whose folder is no text is left out.
    registry.machine.value(key, L"", REG_EXPAND_SZ, L"C:\\machine");
    CHECK(registeredRuntimes().size() == (elevated ? 0 : 1));
}

TEST_CASE("A registered runtime is loaded from its folder and describes error codes") {
    OwnRegistry registry;
    const std::wstring key = L"Software\\CAPE-OPEN Laboratories Network\\COBIA\\x64";
    registry.machine.text(key, L"", COBIA::toCape(ORVANE_RUNTIME_FIXTURE));
    registry.machine.text(key, L"version", L"1.2.1");
    setVariable("COBIA_FIXTURE_VERSION", "1.2.1");
    REQUIRE(runtime());
    CHECK(runtime()->capeGenUUID().data[15] == 1);
    CHECK(COBIA::errorDescription(COBIA::denied) == "fixture text of 106");
}
