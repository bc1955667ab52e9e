#include "platform/DynamicLibrary.h"

#include "cobia/Error.h"
#include "platform/windows/SystemText.h"

#include <algorithm>
#include <windows.h>

namespace orvane {
namespace {

/// The loader wants its own separator.
std::wstring nativePath(const std::string& path) {
    std::wstring native = wide(path);
    std::replace(native.begin(), native.end(), L'/', L'\\');
    return native;
}

}  // namespace

DynamicLibrary::DynamicLibrary(const std::string& path) : handle_(LoadLibraryW(nativePath(path).c_str())) {
    if (!handle_)
        throw COBIA::StringException() << "Cannot load '" << path << "': " << systemMessage(GetLastError());
}

void* DynamicLibrary::find(const char* name) const noexcept {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

std::string DynamicLibrary::fileName(const std::string& name) { return name + ".dll"; }

std::string DynamicLibrary::moduleName(const std::string& name) { return name + ".dll"; }

}  // namespace orvane
