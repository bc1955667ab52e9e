// The loaded libraries of this process, reached by an address of a function or variable that they hold.
// Not here: loading a library (DynamicLibrary).
#pragma once

#include <string>

namespace orvane {

/// The file that holds the code or data at this address: an absolute UTF-8 path, symbolic links left as they
/// are; for an address in the program itself, the program. Throws COBIA::StringException when no module holds
/// the address.
std::string moduleFile(const void* address);

/// Lets libraries that are loaded from now on find the symbols of the library that holds this address,
/// although a host loaded it for itself alone. The library then stays loaded until the process ends. Nothing
/// to do for the program itself, and on systems where libraries name where each symbol comes from. Throws
/// COBIA::StringException with the library and the system's reason.
void makeGlobal(const void* address);

/// A function's address, as the functions above take it.
template <class Result, class... Arguments> const void* addressOf(Result (*function)(Arguments...)) noexcept {
    return reinterpret_cast<const void*>(function);
}

}  // namespace orvane
