#include "platform/posix/RegistryFile.h"

#include "cobia/Text.h"

#include <algorithm>
#include <cstdlib>
#include <unistd.h>
#include <utility>

namespace orvane {
namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

}  // namespace

std::optional<std::string> registryValue(std::string_view fileText, std::string_view key,
                                         std::string_view name) {
    bool inKey = false;
    while (!fileText.empty()) {
        const auto end = std::min(fileText.find('\n'), fileText.size());
        const std::string_view line = trimmed(fileText.substr(0, end));
        fileText.remove_prefix(std::min(end + 1, fileText.size()));

        if (line.starts_with(';') || line.starts_with('#')) continue;
        if (line.starts_with('[') && line.ends_with(']')) {
            inKey = COBIA::equalIgnoringCase(trimmed(line.substr(1, line.size() - 2)), key);
            continue;
        }
        const auto equals = line.find('=');
        if (inKey && equals != line.npos && COBIA::equalIgnoringCase(trimmed(line.substr(0, equals)), name))
            return std::string(trimmed(line.substr(equals + 1)));
    }
    return std::nullopt;
}

RegistryUser RegistryUser::current() {
    std::string invoker = environment("SUDO_UID");
    if (invoker.empty()) invoker = environment("PKEXEC_UID");
    return {getuid(), geteuid(), std::move(invoker), environment("XDG_CONFIG_HOME"), environment("HOME")};
}

std::vector<std::string> registryFiles(const RegistryUser& user) {
    // sudo and its like change both ids; a program with the set-user-id bit only the effective one.
    const bool becameRoot = user.user != 0 || (!user.invoker.empty() && user.invoker != "0");
    const bool elevated = user.effectiveUser == 0 && becameRoot;

    std::vector<std::string> files;
    if (!elevated) {
        if (user.configHome.starts_with('/'))
            files.push_back(user.configHome + "/cape-open/registry.ini");
        else if (user.home.starts_with('/'))
            files.push_back(user.home + "/.config/cape-open/registry.ini");
    }
    files.push_back("/etc/cape-open/registry.ini");
    return files;
}

}  // namespace orvane
