#include "host/System.h"

#include "cobia/Text.h"
#include "host/windows/Error.h"

#include <tlhelp32.h>

namespace orvane::host {

std::filesystem::path executableFile() {
    std::wstring file(1024, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()))) ==
           file.size())
        file.resize(2 * file.size());
    return file.substr(0, length);
}

std::string_view moduleFileName() { return "Orvane3.14.dll"; }

std::string_view companionFileName() { return "OrvaneOperation.dll"; }

DynamicLibrary::DynamicLibrary(const std::filesystem::path& file)
    : handle_(LoadLibraryExW(std::filesystem::path(file).make_preferred().c_str(), nullptr,
                             LOAD_WITH_ALTERED_SEARCH_PATH)) {
    if (!handle_) throw std::runtime_error(errorText(GetLastError()));
}

void* DynamicLibrary::symbol(const char* name) const {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

bool saysPythonIsMissing(std::string_view loaderText) {
    return loaderText.find("python314.dll") != std::string_view::npos;
}

std::vector<std::string> pythonLibraries() {
    std::vector<std::string> found;
    const HANDLE modules = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, 0);
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    for (BOOL more = Module32FirstW(modules, &module); more; more = Module32NextW(modules, &module)) {
        const std::string name = COBIA::lowerCase(COBIA::toUtf8(module.szModule));
        // Not the stable interface's, which is a door to the other.
        if (name.starts_with("python3") && name.ends_with(".dll") && name != "python3.dll")
            found.push_back(COBIA::toUtf8(module.szExePath));
    }
    CloseHandle(modules);
    return found;
}

std::string_view pythonAdvice() {
    return "Install Python 3.14 for Windows (64-bit), or add the folder that holds python314.dll to PATH.";
}

}  // namespace orvane::host
