#include "tests/system/InstalledRuntime.h"

#include "cobia/Text.h"
#include "tests/system/windows/OwnRegistry.h"

namespace orvane::test {

struct InstalledRuntime::System {
    OwnRegistry registry;
};

InstalledRuntime::InstalledRuntime(const std::string& folder) : system_(std::make_unique<System>()) {
    const wchar_t* key = L"Software\\CAPE-OPEN Laboratories Network\\COBIA\\x64";
    if (folder.empty()) return;
    // Elevated or not, the machine's root is searched.
    system_->registry.machine.text(key, L"", COBIA::toCape(folder));
    system_->registry.machine.text(key, L"version", L"4000000000.0");
}

InstalledRuntime::~InstalledRuntime() = default;

}  // namespace orvane::test
