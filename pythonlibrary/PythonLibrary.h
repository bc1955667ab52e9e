// Finds the library of an installed CPython 3.14 for a library that needs it, such as the unit operation's module: it is the
// one thing that a user installs besides, and need not be on any path.
// The module itself finds it through this: both the companion library and the host bring it along.
#pragma once

#include <filesystem>

namespace orvane {

/// To be called before a library that needs CPython 3.14 is loaded. On Windows loads python314.dll, unless the process has
/// one: of the installation that is registered for the user, else for the machine, else from the folder `beside`, else from
/// the path. Elsewhere does nothing: there a library names where it looks.
/// Throws std::runtime_error with all places, and what is wrong with each.
void loadPythonLibrary(const std::filesystem::path& beside);

}  // namespace orvane
