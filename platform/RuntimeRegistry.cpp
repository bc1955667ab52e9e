#include "platform/RuntimeRegistry.h"

#include <algorithm>
#include <limits>

namespace orvane {

RuntimeVersion parseVersion(std::string_view text) noexcept {
    constexpr auto largest = std::numeric_limits<std::uint32_t>::max();
    RuntimeVersion version;
    std::size_t at = 0;
    for (std::uint32_t& number : version.numbers) {
        std::uint64_t value = 0;
        for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at)
            value = std::min<std::uint64_t>(value * 10 + static_cast<std::uint64_t>(text[at] - '0'), largest);
        number = static_cast<std::uint32_t>(value);
        if (at == text.size() || text[at] != '.') break;
        ++at;
    }
    return version;
}

std::optional<RuntimeRegistration> chooseRuntime(const std::vector<RuntimeRegistration>& inOrderOfSearch) {
    std::optional<RuntimeRegistration> best;
    for (const auto& candidate : inOrderOfSearch)
        if (!best || candidate.version > best->version) best = candidate;
    return best;
}

}  // namespace orvane
