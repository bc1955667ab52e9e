#include "host/System.h"

#include <dlfcn.h>
#include <link.h>

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

std::vector<std::string> pythonLibraries() {
    std::vector<std::string> found;
    const auto look = [](dl_phdr_info* library, std::size_t, void* into) {
        const std::filesystem::path file = library->dlpi_name ? library->dlpi_name : "";
        // Not the stable interface's, which is a door to the other.
        const std::string name = file.filename().string();
        if (name.starts_with("libpython") && !name.starts_with("libpython3.so"))
            static_cast<std::vector<std::string>*>(into)->push_back(
                std::filesystem::absolute(file).lexically_normal().string());
        return 0;
    };
    dl_iterate_phdr(look, &found);
    return found;
}

std::string_view pythonAdvice() {
    return "Install the shared library of CPython 3.14, or add the folder that holds libpython3.14.so.1.0 to "
           "LD_LIBRARY_PATH.";
}

}  // namespace orvane::host
