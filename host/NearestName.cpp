#include "host/NearestName.h"

#include "cobia/Text.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace orvane::host {
namespace {

/// Changes of one byte, insertions and removals that lead from one text to the other.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, changed});
        }
    }
    return row.back();
}

}  // namespace

std::string nearestName(std::string_view written, std::span<const std::string> known) {
    const std::string lowered = COBIA::lowerCase(written);
    std::string nearest;
    std::size_t least = 0;
    for (const std::string& name : known) {
        const std::size_t changes = distance(lowered, COBIA::lowerCase(name));
        if (2 * changes > std::max(written.size(), name.size())) continue;
        if (nearest.empty() || changes < least) {
            nearest = name;
            least = changes;
        }
    }
    return nearest;
}

std::string suggestion(std::string_view written, std::span<const std::string> known) {
    if (const std::string nearest = nearestName(written, known); !nearest.empty()) {
        return ", did you mean '" + nearest + "'?";
    }
    return "; known: " + listed(known);
}

std::string listed(std::span<const std::string> names) {
    if (names.empty()) return "none";
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) text += i + 1 == names.size() ? " and " : ", ";
        text += "'" + names[i] + "'";
    }
    return text;
}

}  // namespace orvane::host
