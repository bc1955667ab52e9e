#include "host/System.h"

#include "host/Path.h"
#include "host/windows/Error.h"

#include <cstdio>
#include <io.h>
#include <random>

namespace orvane::host {
namespace {

/// Writes all of the text; gives the error code, or 0.
DWORD writeAll(HANDLE file, std::string_view text) {
    while (!text.empty()) {
        DWORD written = 0;
        const auto block = static_cast<DWORD>(std::min<std::size_t>(text.size(), 1 << 20));
        if (!WriteFile(file, text.data(), block, &written, nullptr)) return GetLastError();
        text.remove_prefix(written);
    }
    return 0;
}

/// The interpreter's C runtime has descriptors of its own, made of the standard handles when it was loaded. Nothing to do
/// where that comes later.
void redirectInOtherRuntime() {
    const HMODULE runtime = GetModuleHandleW(L"ucrtbase.dll");
    const FARPROC entry = runtime ? GetProcAddress(runtime, "_dup2") : nullptr;
    if (entry) reinterpret_cast<int (*)(int, int)>(reinterpret_cast<void*>(entry))(2, 1);
}

/// Writes into what is open, or was to be, and closes it; throws with `what` in front of the reason.
void writeInto(HANDLE file, std::string_view text, const std::string& what) {
    if (file == INVALID_HANDLE_VALUE) fail(what, GetLastError());
    DWORD error = writeAll(file, text);
    if (!CloseHandle(file) && !error) error = GetLastError();
    if (error) fail(what, error);
}

HANDLE open(const std::filesystem::path& file, DWORD share, DWORD disposition) {
    return CreateFileW(file.c_str(), GENERIC_WRITE, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

}  // namespace

bool errorIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

ReservedOutput::ReservedOutput()
    : reserved_(reinterpret_cast<std::intptr_t>(GetStdHandle(STD_OUTPUT_HANDLE))) {
    const HANDLE output = reinterpret_cast<HANDLE>(reserved_);
    // Each C runtime closes it when its descriptor is pointed elsewhere.
    if (!SetHandleInformation(output, HANDLE_FLAG_PROTECT_FROM_CLOSE, HANDLE_FLAG_PROTECT_FROM_CLOSE))
        fail("standard output cannot be reserved", GetLastError());
    std::fflush(stdout);
    redirectInOtherRuntime();
    if (_dup2(_fileno(stderr), _fileno(stdout)) != 0 ||
        !SetStdHandle(STD_OUTPUT_HANDLE, GetStdHandle(STD_ERROR_HANDLE)))
        fail("standard output cannot be pointed at standard error", GetLastError());
}

ReservedOutput::~ReservedOutput() = default;

void ReservedOutput::write(std::string_view text) {
    if (const DWORD error = writeAll(reinterpret_cast<HANDLE>(reserved_), text))
        fail("the result cannot be written to standard output", error);
}

void writeWhole(const std::filesystem::path& file, std::string_view text) {
    const std::string what = "'" + textOf(file) + "' cannot be written";
    if (const HANDLE there = open(file, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
        there != INVALID_HANDLE_VALUE) {
        if (GetFileType(there) != FILE_TYPE_DISK) return writeInto(there, text, what);
        CloseHandle(there);
    }

    // Where a link leads, so that the link itself survives the renaming.
    std::error_code unresolved;
    std::filesystem::path target = std::filesystem::canonical(file, unresolved);
    if (unresolved) target = file;
    std::filesystem::path temporary = target;
    temporary += L"." + std::to_wstring(std::random_device()());
    try {
        writeInto(open(temporary, FILE_SHARE_READ, CREATE_NEW), text, what);
        if (!MoveFileExW(temporary.c_str(), target.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            fail(what, GetLastError());
    }
    catch (const std::runtime_error&) {
        DeleteFileW(temporary.c_str());
        throw;
    }
}

void endProcess(int exitCode) noexcept {
    std::fflush(nullptr);
    // The other way runs the ends of all libraries, which may wait for threads that are gone by then.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
    for (;;) Sleep(INFINITE);
}

}  // namespace orvane::host
