// A library loaded at run time, and its entry points by name.
// Not here: libraries that are loaded already (ModuleLocation).
#pragma once

#include <string>

namespace orvane {

/// Stays loaded when the object goes: a library that ran may have left threads and callbacks behind. Copies
/// are cheap.
class DynamicLibrary {
public:
    /// Throws COBIA::StringException with the UTF-8 path and the system's reason.
    explicit DynamicLibrary(const std::string& path);

    /// Null when the library does not export the name.
    void* find(const char* name) const noexcept;

    /// An entry point of the type Function, null when the library does not export the name.
    template <class Function> Function* find(const char* name) const noexcept {
        return reinterpret_cast<Function*>(find(name));
    }

    /// The file name of the library that others call by this name: "COBIA" is libCOBIA.so or COBIA.dll.
    static std::string fileName(const std::string& name);
    /// The file name of a library that belongs to a program and that nobody links against: "OrvaneOperation" is
    /// OrvaneOperation.so or OrvaneOperation.dll.
    static std::string moduleName(const std::string& name);

private:
    void* handle_;
};

}  // namespace orvane
