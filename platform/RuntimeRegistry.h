// Where COBIA runtimes are registered, and which of them counts.
// Not here: loading one (RuntimeLoader).
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// Up to four numbers; those not given are 0.
struct RuntimeVersion {
    std::array<std::uint32_t, 4> numbers{};

    friend auto operator<=>(const RuntimeVersion&, const RuntimeVersion&) = default;
};

/// Decimal numbers separated by dots, read up to the first character that is neither, or the end of the
/// fourth number.
RuntimeVersion parseVersion(std::string_view text) noexcept;

/// What a registry root says: the folder that holds the runtime (UTF-8, never empty), and which version it
/// is.
struct RuntimeRegistration {
    std::string folder;
    RuntimeVersion version;
};

/// The key that holds the registration: its default value is the folder, its value "version" the version.
inline constexpr std::string_view runtimeKey = "Software\\CAPE-OPEN Laboratories Network\\COBIA\\x64";

/// The registrations of this process's registry roots, in the order of search: the user's, then the
/// machine's. A process that runs with more rights than its user has looks at the machine's only: no user
/// plants a library there. Roots that lack one, or cannot be read, are left out.
std::vector<RuntimeRegistration> registeredRuntimes();

/// The registration of the highest version, the earliest of equals; nullopt when there is none.
std::optional<RuntimeRegistration> chooseRuntime(const std::vector<RuntimeRegistration>& inOrderOfSearch);

}  // namespace orvane
