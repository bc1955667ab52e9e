// Finds the unit operation's module, loads it as a simulator does, and creates units through its one export.
// Not here: what is done with a unit (UnitSession).
#pragma once

#include "cobia/Ref.h"
#include "host/System.h"

#include <filesystem>
#include <optional>
#include <stdexcept>

namespace orvane::host {

/// The module, or the interpreter in it, could not be loaded. The message says what was looked for, where,
/// and why it failed.
class ModuleError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class ModuleLoader {
public:
    /// The module named on the command line, else by the environment variable ORVANE_MODULE, else beside the
    /// executable. Throws ModuleError.
    explicit ModuleLoader(const std::optional<std::filesystem::path>& named);

    const std::filesystem::path& file() const { return file_; }

    /// A new unit operation. Throws ModuleError.
    COBIA::Ref<COBIA::ICapeInterface> createUnit() const;

private:
    using Create = COBIA::CapeResult (*)(COBIA::ICapeInterface** result);

    std::filesystem::path file_;
    Create create_ = nullptr;
};

}  // namespace orvane::host
