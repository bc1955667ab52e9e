#include "platform/TemporaryFile.h"

#include "cobia/Error.h"
#include "platform/Identifier.h"
#include "platform/windows/SystemText.h"

#include <utility>
#include <windows.h>

namespace orvane {
namespace {

std::wstring temporaryDirectory() {
    wchar_t directory[MAX_PATH + 1];
    const DWORD length = GetTempPathW(MAX_PATH + 1, directory);
    if (length == 0 || length > MAX_PATH)
        throw COBIA::StringException() << "No temporary directory, check TMP and TEMP: "
                                       << (length ? "its path is too long" : systemMessage(GetLastError()));
    return {directory, length};
}

[[noreturn]] void fail(const std::wstring& directory, DWORD reason) {
    throw COBIA::StringException() << "Cannot create a file in '" << narrow(directory)
                                   << "', check TMP and TEMP: " << systemMessage(reason);
}

/// The system's own way, whose names end in .tmp.
std::wstring createFile(const std::wstring& directory) {
    wchar_t path[MAX_PATH];
    if (!GetTempFileNameW(directory.c_str(), L"ORV", 0, path)) fail(directory, GetLastError());
    return path;
}

std::wstring createFile(const std::wstring& directory, std::string_view suffix) {
    std::wstring path = directory + L"ORV" + wide(randomIdentifier()) + wide(suffix);
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) fail(directory, GetLastError());
    CloseHandle(file);
    return path;
}

}  // namespace

TemporaryFile::TemporaryFile(std::string_view suffix) {
    const std::wstring directory = temporaryDirectory();
    path_ = narrow(suffix.empty() ? createFile(directory) : createFile(directory, suffix));
}

void TemporaryFile::remove(const std::string& path) noexcept {
    try {
        DeleteFileW(wide(path).c_str());
    }
    catch (const std::bad_alloc&) {
        // As a file that cannot be deleted.
    }
}

}  // namespace orvane
