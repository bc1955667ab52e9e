#include "package/CompoundTable.h"

#include "package/CompoundTableData.h"
#include "package/PackageError.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace orvane::package {
namespace {

// The table's ids, names, formulas and CAS numbers are ASCII, so other letters cannot match and stay as they
// are.
std::string lower(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return result;
}

// Edit distance by insertion, deletion, exchange of a letter and swap of two neighbours.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before(b.size() + 1), above(b.size() + 1), row(b.size() + 1);
    std::iota(above.begin(), above.end(), 0);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], before[j - 2] + 1);
        }
        before.swap(above);
        above.swap(row);
    }
    return above[b.size()];
}

}  // namespace

const CompoundTable& CompoundTable::instance() {
    static const CompoundTable table;
    return table;
}

CompoundTable::CompoundTable() : compounds_(compoundRows()) {
    for (const auto& [first, second, kij] : interactionRows())
        interactions_.emplace(std::minmax(first, second), kij);
}

std::vector<const Compound*> CompoundTable::withFormula(std::string_view text) const {
    std::vector<const Compound*> found;
    for (const auto& compound : compounds_)
        if (lower(compound.formula) == text) found.push_back(&compound);
    return found;
}

const Compound* CompoundTable::find(std::string_view text) const {
    const auto wanted = lower(text);
    for (const auto member : {&Compound::id, &Compound::name, &Compound::cas})
        for (const auto& compound : compounds_)
            if (lower(compound.*member) == wanted) return &compound;
    const auto isomers = withFormula(wanted);
    return isomers.size() == 1 ? isomers.front() : nullptr;
}

const Compound& CompoundTable::at(std::string_view text) const {
    if (const auto* compound = find(text)) return *compound;
    std::vector<std::string_view> ids;
    for (const auto* compound : withFormula(lower(text))) ids.push_back(compound->id);
    if (!ids.empty())
        throw PackageError(
            fmt::format("the formula '{}' is that of several compounds: {}", text, fmt::join(ids, ", ")));
    const auto near = nearest(text);
    throw PackageError(fmt::format("unknown compound '{}'{}{}", text,
                                   near.empty() ? "" : "; nearest: ", fmt::join(near, ", ")));
}

std::vector<std::string> CompoundTable::nearest(std::string_view text, std::size_t count) const {
    const auto wanted = lower(text);
    std::vector<std::pair<std::size_t, const Compound*>> ranked;
    for (const auto& compound : compounds_) {
        const auto distance =
            std::min(editDistance(wanted, compound.id), editDistance(wanted, lower(compound.name)));
        if (2 * distance <= std::max(wanted.size(), compound.id.size()))
            ranked.emplace_back(distance, &compound);
    }
    std::ranges::stable_sort(ranked, {}, [](const auto& entry) { return entry.first; });
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < std::min(count, ranked.size()); ++i) ids.push_back(ranked[i].second->id);
    return ids;
}

bool CompoundTable::hasInteraction(std::string_view first, std::string_view second) const {
    const auto [low, high] = std::minmax(first, second);
    return interactions_.contains(std::pair<std::string, std::string>(low, high));
}

double CompoundTable::interaction(std::string_view first, std::string_view second) const {
    const auto [low, high] = std::minmax(first, second);
    const auto found = interactions_.find(std::pair<std::string, std::string>(low, high));
    return found == interactions_.end() ? 0 : found->second;
}

}  // namespace orvane::package
