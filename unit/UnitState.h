// What is saved with a simulation, and its items in the host's persistence: their names, kinds and order.
// Not here: where it comes from and what becomes of it (OrvaneOperation).
#pragma once

#include "cobia/Interfaces.h"
#include "parameters/Parameter.h"
#include "unit/Declarations.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvane {

struct UnitState {
    struct SavedParameter {
        std::string name;
        StoredValue value;
    };

    std::string script;
    std::string lastOutput;
    std::string runReportHeader;
    std::string runReportFooter;
    std::vector<SavedParameter> parameters;
    std::vector<std::pair<std::string, std::string>> reports;  // upper-cased name, text
    std::vector<Image> images;
    std::vector<std::uint8_t> privateData;
};

/// Throws cape_open_error when the host's writer fails.
void writeState(COBIA::ICapePersistWriter* writer, const UnitState& state);

/// Reads all of it before anything is used. A parameter's value that cannot be read is left out, with a warning, and so are
/// reports or images whose two lists disagree; throws when another item is missing or damaged.
UnitState readState(COBIA::ICapePersistReader* reader, std::vector<std::string>& warnings);

}  // namespace orvane
