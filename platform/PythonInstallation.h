// How an installation of CPython 3.14 is laid out here, seen from its library.
#pragma once

#include <string>
#include <vector>

namespace orvane {

/// The folders and the archive of the installation that the library file belongs to, those that exist, in the order in
/// which they are searched. UTF-8.
std::vector<std::string> installationPath(const std::string& libraryFile);

/// The python program of that installation, UTF-8; empty when there is none.
std::string pythonProgram(const std::string& libraryFile);

}  // namespace orvane
