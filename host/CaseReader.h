// Reads a case file, TOML, and the script that it names. All that can be judged without the unit is judged
// here.
#pragma once

#include "host/CaseFile.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace orvane::host {

/// Throws CaseError.
CaseFile readCase(const std::filesystem::path& file);

/// As readCase, from a text; `file` is what messages name and what the script's path is relative to.
CaseFile readCase(std::string_view text, const std::filesystem::path& file);

/// "NAME=VALUE" in its two parts, without blanks around them. Throws CaseError that names the option, and the form that it
/// takes.
std::pair<std::string, std::string> readAssignment(std::string_view text, std::string_view option,
                                                   std::string_view form);

/// "Heat Duty=5e4", as --set takes it. Throws CaseError.
CaseParameter readSetting(std::string_view text);

}  // namespace orvane::host
