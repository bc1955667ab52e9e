#include "platform/posix/RegistryFile.h"

#include <doctest/doctest.h>
#include <string>
#include <vector>

using namespace orvane;

namespace {

using Files = std::vector<std::string>;

}  // namespace

TEST_CASE("A registry file gives the values of a key") {
    const std::string text = "default = before any key\n"
                             "; default = a comment\n"
                             "[Software\\Other]\n"
                             "default=/other\n"
                             "[Software\\COBIA\\x64]\r\n"
                             "# version = 9\r\n"
                             "  Default \t=  /opt/my cobia = v2 \r\n"
                             "default = /second\n"
                             "empty =\n"
                             "no value\n"
                             "\n"
                             "[unfinished\n"
                             "Version=1.2.1\n"
                             "[Software\\Last]\n"
                             "version = 7\n"
                             "default = at the end";
    const auto value = [&](const char* key, const char* name) {
        return registryValue(text, key, name).value_or("(none)");
    };
    CHECK(value("Software\\COBIA\\x64", "default") == "/opt/my cobia = v2");
    CHECK(value("SOFTWARE\\cobia\\X64", "VERSION") == "1.2.1");
    CHECK(value("Software\\COBIA\\x64", "empty").empty());
    CHECK(value("Software\\COBIA\\x64", "no value") == "(none)");
    CHECK(value("Software\\COBIA\\x64", "; default") == "(none)");
    CHECK(value("Software\\COBIA", "default") == "(none)");
    CHECK(value("Software\\Other", "version") == "(none)");
    CHECK(value("Software\\Last", "default") == "at the end");
    CHECK(value("", "default") == "(none)");
    CHECK_FALSE(registryValue("", "key", "default"));
}

TEST_CASE("The user's registry comes before the machine's") {
    const std::string machine = "/etc/cape-open/registry.ini";
    CHECK(registryFiles({1000, 1000, "", "/cfg", "/home/u"}) ==
          Files{"/cfg/cape-open/registry.ini", machine});
    CHECK(registryFiles({1000, 1000, "", "", "/home/u"}) ==
          Files{"/home/u/.config/cape-open/registry.ini", machine});
    CHECK(registryFiles({1000, 1000, "", "relative", "/home/u"}) ==
          Files{"/home/u/.config/cape-open/registry.ini", machine});
    CHECK(registryFiles({1000, 1000, "", "", ""}) == Files{machine});
    CHECK(registryFiles({1000, 1000, "", "", "relative"}) == Files{machine});
}

TEST_CASE("A user who became root on the way brings no registry along") {
    const std::string machine = "/etc/cape-open/registry.ini";
    const Files both = {"/cfg/cape-open/registry.ini", machine};
    CHECK(registryFiles({0, 0, "", "/cfg", ""}) == both);
    CHECK(registryFiles({0, 0, "0", "/cfg", ""}) == both);
    CHECK(registryFiles({0, 0, "1000", "/cfg", ""}) == Files{machine});
    CHECK(registryFiles({1000, 0, "", "/cfg", ""}) == Files{machine});
    CHECK(registryFiles({1000, 0, "0", "/cfg", ""}) == Files{machine});
    // An ordinary user who was once root's, as in a build that drops its rights.
    CHECK(registryFiles({1000, 1000, "1001", "/cfg", ""}) == both);
}
