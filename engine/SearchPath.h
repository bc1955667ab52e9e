// Where the interpreter looks for modules: the installation of its library, and what PYTHONPATH adds.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// The folders and the archive of the installation that the library file belongs to, those that exist, in the order in
/// which they are searched. UTF-8.
std::vector<std::string> installationPath(const std::string& libraryFile);

/// The pieces of a PYTHONPATH value. Two adjacent separators give an empty piece; one at the end adds none.
std::vector<std::string> splitPath(std::string_view value, char separator);

/// The folder of installed modules of the virtual environment in this folder; nothing when there is none, or one for
/// another version of Python.
std::optional<std::string> virtualEnvironmentPath(const std::string& folder);

/// All entries for the interpreter of this process, or nothing when its library cannot be located.
std::optional<std::vector<std::string>> searchPath();

}  // namespace orvane
