// A binary interaction parameter.
// Not here: the table of them (CompoundTable), their use (PengRobinson).
#pragma once

#include <string>

namespace orvane::package {

/// Interaction parameter kij of two compounds by id: a_ij = sqrt(a_i a_j) (1 - kij), the same in either
/// order.
struct Interaction {
    std::string first;
    std::string second;
    double kij = 0;
};

}  // namespace orvane::package
