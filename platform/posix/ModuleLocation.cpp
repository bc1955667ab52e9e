#include "platform/ModuleLocation.h"

#include "cobia/Error.h"

#include <dlfcn.h>
#include <filesystem>
#include <link.h>

namespace orvane {
namespace {

/// The name under which the loader knows the module; empty for the program itself.
std::string loadedName(const void* address) {
    Dl_info info;
    void* entry = nullptr;
    if (!dladdr1(address, &info, &entry, RTLD_DL_LINKMAP) || !entry)
        throw COBIA::StringException() << "No loaded library holds the address " << address;
    return static_cast<const link_map*>(entry)->l_name;
}

}  // namespace

std::string moduleFile(const void* address) {
    const std::string name = loadedName(address);
    // The loader has only argv[0] for the program, which need not be a path.
    const auto path =
        name.empty() ? std::filesystem::read_symlink("/proc/self/exe") : std::filesystem::path(name);
    return std::filesystem::absolute(path).lexically_normal().string();
}

void makeGlobal(const void* address) {
    const std::string name = loadedName(address);
    if (name.empty()) return;
    // The handle is kept: closing it is not worth the question whether the symbols then stay.
    if (!dlopen(name.c_str(), RTLD_NOLOAD | RTLD_GLOBAL | RTLD_LAZY))
        throw COBIA::StringException() << "Cannot make the symbols of '" << name << "' global: " << dlerror();
}

}  // namespace orvane
