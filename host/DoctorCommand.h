// `orvane doctor`: whether the module and its interpreter can be used, and what scripts will find there.
// All of it comes through the module's binary interface, from a script, or from the process.
#pragma once

#include <filesystem>
#include <optional>

namespace orvane::host {

struct DoctorOptions {
    std::optional<std::filesystem::path> module;  ///< in place of the one beside the executable
    bool json = false;
};

/// Clashes are warnings: exit code 0. Throws nothing: every failure becomes a message and an exit code.
int doctorCommand(const DoctorOptions& options);

}  // namespace orvane::host
