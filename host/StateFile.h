// The saved state of a unit as a file: JSON, each item with its name, kind and value; docs/state-file.md describes it.
// Not here: what the items mean (the unit's own), keeping them in memory (PersistStore).
#pragma once

#include "host/PersistStore.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace orvane::host {

/// The text of a state file. Reals come back exactly, the bits of NaN apart.
std::string stateText(const PersistStore& state);

/// The state in a text. `file` is what messages name. Throws CaseError for what is no state file, of another version, or
/// damaged.
COBIA::Ref<PersistStore> readState(std::string_view text, const std::filesystem::path& file);

/// The state in a file. Throws CaseError.
COBIA::Ref<PersistStore> loadStateFile(const std::filesystem::path& file);

}  // namespace orvane::host
