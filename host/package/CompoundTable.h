// The compounds and binary interaction parameters that the package knows.
// Not here: the figures themselves, which tables.py turns into C++ from data/*.csv when the package is built.
#pragma once

#include "package/Compound.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvane::package {

/// All compounds and interaction parameters of the package. Immutable, so threads may share it.
class CompoundTable {
public:
    /// The one table, made on the first call.
    static const CompoundTable& instance();

    /// In the order of the table: gases and inorganic compounds first, then by family.
    const std::vector<Compound>& compounds() const { return compounds_; }

    /// The compound with this id, name, CAS number or formula, letter case aside, in this order of
    /// preference. Null when there is none, or when only a formula matches and isomers share it.
    const Compound* find(std::string_view text) const;

    /// As find, but throws PackageError instead of null: unknown, with the nearest names, or ambiguous, with
    /// the ids of the isomers.
    const Compound& at(std::string_view text) const;

    /// The ids of up to `count` compounds whose id or name is nearest to text by edit distance, nearest
    /// first. Those that differ in more than half of the letters are left out.
    std::vector<std::string> nearest(std::string_view text, std::size_t count = 3) const;

    /// Interaction parameter kij of two compounds by id, in either order; 0 for a pair that is not in the
    /// table.
    double interaction(std::string_view first, std::string_view second) const;

    /// Whether the table has a value for the pair, so that 0 can be told from "not known".
    bool hasInteraction(std::string_view first, std::string_view second) const;

private:
    CompoundTable();

    std::vector<const Compound*> withFormula(std::string_view text) const;

    std::vector<Compound> compounds_;
    std::map<std::pair<std::string, std::string>, double, std::less<>> interactions_;  // first < second
};

}  // namespace orvane::package
