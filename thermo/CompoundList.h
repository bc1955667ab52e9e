// The compounds of a property package as its material objects list them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orvane {

/// Six lists in the package's order of compounds, just as the host gave them: their lengths are not compared
/// here.
struct CompoundList {
    std::vector<std::string> identifiers;
    std::vector<std::string> formulae;
    std::vector<std::string> names;
    std::vector<double> boilingPoints;     // K at 1 atm; NaN: unknown
    std::vector<double> molecularWeights;  // relative; NaN: unknown
    std::vector<std::string> casNumbers;

    bool consistent() const {
        const std::size_t count = identifiers.size();
        return formulae.size() == count && names.size() == count && boilingPoints.size() == count &&
               molecularWeights.size() == count && casNumbers.size() == count;
    }
};

}  // namespace orvane
