// Whether what goes into the unit comes out again: each compound, and energy.
// Not here: how it is shown (ResultTables).
#pragma once

#include "host/RunResult.h"

#include <string>
#include <vector>

namespace orvane::host {

/// What goes in and what comes out of one conserved quantity.
struct Balance {
    std::string name;
    double in = 0;
    double out = 0;
    double scale = 0;  ///< what a difference is relative to; 0 where nothing flows

    double difference() const { return out - in; }
    double relative() const { return scale > 0 ? difference() / scale : 0; }
};

/// Differences above this relative size are worth a warning.
inline constexpr double closureTolerance = 1e-6;

struct Closure {
    std::vector<Balance> compounds;  ///< mol/s
    std::vector<Balance> elements;   ///< mol/s of atoms, which a reaction keeps
    /// Enthalpy flow [W]: `in` is that of the feeds and what is supplied.
    Balance energy;
    double supplied = 0;  ///< W, the sum of the powers below
    /// The parameters that are powers, and the energy streams that go in. Where a unit has energy streams these say what it
    /// gives off, and powers that are outputs say it again: those do not count then.
    std::vector<std::string> suppliedBy;

    /// One sentence for each balance that is off by more than closureTolerance; one for all compounds together where
    /// the elements close, as in a reaction.
    std::vector<std::string> warnings() const;
};

/// Empty when a stream is not known in full, so that there is nothing to compare. Relative to the larger of
/// in and out, for energy to the sum of the sizes of all its terms.
std::optional<Closure> closure(const RunResult& result);

}  // namespace orvane::host
