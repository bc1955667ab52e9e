#include "host/System.h"

#include <dlfcn.h>

namespace orvane::host {

std::filesystem::path executableFile() { return std::filesystem::read_symlink("/proc/self/exe"); }

std::string_view moduleFileName() { return "Orvane3.14.so"; }

std::string_view companionFileName() { return "OrvaneOperation.so"; }

DynamicLibrary::DynamicLibrary(const std::filesystem::path& file)
    : handle_(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (!handle_) throw std::runtime_error(dlerror());
}

void* DynamicLibrary::symbol(const char* name) const { return dlsym(handle_, name); }

bool saysPythonIsMissing(std::string_view loaderText) {
    return loaderText.find("libpython3.14.so") != std::string_view::npos;
}

std::string_view pythonAdvice() {
    return "Install the shared library of CPython 3.14, or add the folder that holds libpython3.14.so.1.0 to "
           "LD_LIBRARY_PATH.";
}

}  // namespace orvane::host
