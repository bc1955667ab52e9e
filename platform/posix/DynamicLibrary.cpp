#include "platform/DynamicLibrary.h"

#include "cobia/Error.h"

#include <dlfcn.h>

namespace orvane {

DynamicLibrary::DynamicLibrary(const std::string& path)
    : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (!handle_) throw COBIA::StringException() << "Cannot load '" << path << "': " << dlerror();
}

void* DynamicLibrary::find(const char* name) const noexcept { return dlsym(handle_, name); }

std::string DynamicLibrary::fileName(const std::string& name) { return "lib" + name + ".so"; }

std::string DynamicLibrary::moduleName(const std::string& name) { return name + ".so"; }

}  // namespace orvane
