// Whole files, read and written as bytes.
// Not here: files that go away by themselves (TemporaryFile), and anything about line ends or encodings.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// The bytes of the file at a UTF-8 path. Throws COBIA::StringException with the path and the system's
/// reason.
std::string readFile(const std::string& path);

/// Makes the file hold these bytes and no others, whole or not at all: they are written beside it under a temporary name,
/// which then takes its place. A link leads where it led, and on POSIX systems permissions stay; what is there and is no
/// regular file (a pipe, a device) is written directly. Throws COBIA::StringException with the path and the system's reason.
void writeFile(const std::string& path, std::string_view bytes);

}  // namespace orvane
