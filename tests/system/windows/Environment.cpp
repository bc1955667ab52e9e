#include "tests/system/Environment.h"

#include "cobia/Text.h"

#include <cstdlib>
#include <windows.h>

namespace orvane::test {

// The interpreter's C runtime has a copy of its own, and this one too; each also writes to the process.
void setVariable(const char* name, const std::string& value) {
    const std::wstring wideName = COBIA::toCape(name), wideValue = COBIA::toCape(value);
    const HMODULE runtime = LoadLibraryW(L"ucrtbase.dll");
    using Put = int(const wchar_t* name, const wchar_t* value);
    if (const auto put = runtime ? GetProcAddress(runtime, "_wputenv_s") : nullptr)
        reinterpret_cast<Put*>(reinterpret_cast<void*>(put))(wideName.c_str(), wideValue.c_str());
    _wputenv_s(wideName.c_str(), wideValue.c_str());
}

void unsetVariable(const char* name) { setVariable(name, ""); }

const char listSeparator = ';';

}  // namespace orvane::test
