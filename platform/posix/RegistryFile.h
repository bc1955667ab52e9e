// The registry roots here: one INI file for the user, one for the machine, with a section for each key and an
// entry for each value. Lines that begin with ; or # are comments; blanks around names and values do not
// count; letter case matters in values only. A key's default value is the entry "default".
// Not here: what the values mean (RuntimeRegistry).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// The value of a key in a file's text; the first, should there be more. Nullopt when it is not there.
std::optional<std::string> registryValue(std::string_view fileText, std::string_view key,
                                         std::string_view name);

/// What the choice of registry files depends on.
struct RegistryUser {
    unsigned user;           // who started the process
    unsigned effectiveUser;  // whose rights it has
    std::string invoker;     // SUDO_UID or PKEXEC_UID: who asked for user 0; empty when nobody did
    std::string configHome;  // XDG_CONFIG_HOME; it counts when it is an absolute path
    std::string home;        // HOME; likewise

    /// Of this process.
    static RegistryUser current();
};

/// The files to search, in this order. The user's is left out for a user who became user 0 on the way.
std::vector<std::string> registryFiles(const RegistryUser& user);

}  // namespace orvane
