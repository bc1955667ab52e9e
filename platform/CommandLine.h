// How this process was started.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// The command line in UTF-8, of which only the program that it names first is promised; in double quotes
/// when its path has blanks. Empty when the system does not tell.
std::string commandLine();

/// The characters that end a folder in a program's path here.
extern const std::string_view pathSeparators;

}  // namespace orvane
