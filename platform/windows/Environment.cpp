#include "platform/Environment.h"

#include "platform/windows/SystemText.h"

#include <windows.h>

namespace orvane {

// Of the process, since every C runtime in it has a copy of its own from when it started.
std::optional<std::string> environmentVariable(const char* name) {
    const std::wstring wideName = wide(name);
    SetLastError(ERROR_SUCCESS);
    DWORD size = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
    std::wstring value;
    // Another thread may make it longer meanwhile.
    while (size > value.size()) {
        value.resize(size);
        size = GetEnvironmentVariableW(wideName.c_str(), value.data(), static_cast<DWORD>(value.size()));
    }
    if (size == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND) return std::nullopt;
    value.resize(size);
    return narrow(value);
}

void setDefaultEnvironmentVariable(const char* name, const char* value) {
    if (environmentVariable(name)) return;
    SetEnvironmentVariableW(wide(name).c_str(), wide(value).c_str());
    // The interpreter reads the copy of its own C runtime.
    const HMODULE runtime = GetModuleHandleW(L"ucrtbase.dll");
    using Put = int(const wchar_t* name, const wchar_t* value);
    if (const auto put = runtime ? GetProcAddress(runtime, "_wputenv_s") : nullptr)
        reinterpret_cast<Put*>(reinterpret_cast<void*>(put))(wide(name).c_str(), wide(value).c_str());
}

const char pathListSeparator = ';';

}  // namespace orvane
