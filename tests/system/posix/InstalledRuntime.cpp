#include "tests/system/InstalledRuntime.h"

#include "tests/system/Environment.h"
#include "tests/TemporaryFolder.h"

namespace orvane::test {

struct InstalledRuntime::System {
    TemporaryFolder configHome;
};

InstalledRuntime::InstalledRuntime(const std::string& folder) : system_(std::make_unique<System>()) {
    for (const char* name : {"SUDO_UID", "PKEXEC_UID"}) unsetVariable(name);
    setVariable("XDG_CONFIG_HOME", system_->configHome.utf8());
    if (!folder.empty())
        system_->configHome.write("cape-open/registry.ini",
                                  "[Software\\CAPE-OPEN Laboratories Network\\COBIA\\x64]\ndefault = " +
                                      folder + "\nversion = 4000000000.0\n");
}

InstalledRuntime::~InstalledRuntime() { unsetVariable("XDG_CONFIG_HOME"); }

}  // namespace orvane::test
