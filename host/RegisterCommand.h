// `orvane register`: makes the unit operation known to COBIA hosts, through the companion library.
#pragma once

#include <filesystem>
#include <optional>

namespace orvane::host {

struct RegisterOptions {
    bool undo = false;  ///< takes the registration back instead
    std::optional<std::filesystem::path>
        library;  ///< in place of the companion library beside the executable
};

/// Registers for the current user, says so and gives the exit code. Throws nothing.
int registerCommand(const RegisterOptions& options);

}  // namespace orvane::host
