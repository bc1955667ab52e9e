#include "platform/windows/Registry.h"

#include "platform/windows/SystemText.h"

namespace orvane {

std::optional<TOKEN_ELEVATION_TYPE> tokenElevation() {
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return std::nullopt;
    TOKEN_ELEVATION_TYPE type{};
    DWORD size = 0;
    const bool told = GetTokenInformation(token, TokenElevationType, &type, sizeof type, &size);
    CloseHandle(token);
    return told ? std::optional(type) : std::nullopt;
}

std::vector<HKEY> registryRoots(std::optional<TOKEN_ELEVATION_TYPE> elevation) {
    if (elevation == TokenElevationTypeFull) return {HKEY_LOCAL_MACHINE};
    return {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};
}

std::optional<std::string> registryText(HKEY root, const std::wstring& key, const std::wstring& name) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return std::nullopt;
    std::wstring text;
    DWORD type = 0, size = 0;
    LSTATUS status = RegQueryValueExW(opened, name.c_str(), nullptr, &type, nullptr, &size);
    // Another process may make it longer meanwhile.
    for (bool more = status == ERROR_SUCCESS && type == REG_SZ; more; more = status == ERROR_MORE_DATA) {
        text.resize((size + 1) / sizeof(wchar_t));
        status = RegQueryValueExW(opened, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text.data()),
                                  &size);
    }
    RegCloseKey(opened);
    if (status != ERROR_SUCCESS || type != REG_SZ) return std::nullopt;
    text.resize(size / sizeof(wchar_t));
    // The null at the end may be stored or not, and more than once.
    return narrow(text.substr(0, text.find(L'\0')));
}

}  // namespace orvane
