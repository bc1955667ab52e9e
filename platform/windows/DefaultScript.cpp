#include "platform/DefaultScript.h"

#include <windows.h>

namespace orvane {

std::string_view defaultScriptText() {
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<const wchar_t*>(&defaultScriptText), &module))
        return {};
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(102), L"PYTHON");
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const void* bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes) return {};
    return {static_cast<const char*>(bytes), SizeofResource(module, found)};
}

}  // namespace orvane
