#include "platform/ModuleLocation.h"

#include "cobia/Error.h"
#include "platform/windows/SystemText.h"

#include <windows.h>

namespace orvane {
namespace {

HMODULE moduleAt(const void* address) {
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            static_cast<const wchar_t*>(address), &module))
        throw COBIA::StringException() << "No loaded library holds the address " << address;
    return module;
}

}  // namespace

std::string moduleFile(const void* address) {
    const HMODULE module = moduleAt(address);
    std::wstring file(1024, L'\0');
    DWORD length = GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size()));
    for (; length == file.size();
         length = GetModuleFileNameW(module, file.data(), static_cast<DWORD>(file.size())))
        file.resize(2 * file.size());
    if (length == 0)
        throw COBIA::StringException()
            << "The file of a loaded library cannot be told: " << systemMessage(GetLastError());
    file.resize(length);
    return narrow(file);
}

void makeGlobal(const void* address) { moduleAt(address); }

}  // namespace orvane
