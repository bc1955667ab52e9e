#include "host/System.h"

#include "cobia/Text.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

namespace orvane::host {

// Not what main was given: that is in the code page of the system.
std::vector<std::string> programArguments(int, char**) {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> result;
    for (int i = 0; i < count; ++i) result.push_back(COBIA::toUtf8(words[i]));
    LocalFree(words);
    return result;
}

void prepareStreams() {
    SetConsoleOutputCP(CP_UTF8);
    // Texts of the unit have CR LF line ends already, and a file is to be the same as on other systems.
    for (std::FILE* stream : {stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
}

std::optional<std::string> environmentVariable(const char* name) {
    const wchar_t* value = _wgetenv(COBIA::toCape(name).c_str());
    return value ? std::optional(COBIA::toUtf8(value)) : std::nullopt;
}

}  // namespace orvane::host
