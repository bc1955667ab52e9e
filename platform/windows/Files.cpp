#include "platform/Files.h"

#include "cobia/Error.h"
#include "platform/Identifier.h"
#include "platform/windows/SystemText.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>
#include <windows.h>

namespace orvane {
namespace {

namespace fs = std::filesystem;

struct CloseFile {
    using pointer = HANDLE;
    void operator()(HANDLE file) const noexcept { CloseHandle(file); }
};
using File = std::unique_ptr<HANDLE, CloseFile>;

[[noreturn]] void fail(const char* what, const std::string& path, DWORD reason = GetLastError()) {
    throw COBIA::StringException() << "Cannot " << what << " '" << path << "': " << systemMessage(reason);
}

/// Null when it cannot be opened. Processes that start later do not inherit it.
File open(const fs::path& file, DWORD access, DWORD share, DWORD disposition) {
    const HANDLE opened =
        CreateFileW(file.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return File(opened == INVALID_HANDLE_VALUE ? nullptr : opened);
}

constexpr DWORD largestBlock = 1 << 20;

void writeAll(const File& file, const std::string& path, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto block = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), largestBlock));
        if (!WriteFile(file.get(), bytes.data(), block, &written, nullptr)) fail("write", path);
        bytes.remove_prefix(written);
    }
}

}  // namespace

std::string readFile(const std::string& path) {
    const File file =
        open(wide(path), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    if (!file) fail("read", path);
    std::string bytes;
    std::vector<char> block(largestBlock);
    for (;;) {
        DWORD count = 0;
        if (!ReadFile(file.get(), block.data(), largestBlock, &count, nullptr)) fail("read", path);
        if (count == 0) return bytes;
        bytes.append(block.data(), count);
    }
}

void writeFile(const std::string& path, std::string_view bytes) {
    const fs::path named = wide(path);
    if (const File there = open(named, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
        there && GetFileType(there.get()) != FILE_TYPE_DISK) {
        writeAll(there, path, bytes);
        return;
    }

    // Where a link leads, so that the link itself survives the renaming.
    std::error_code unresolved;
    fs::path target = fs::canonical(named, unresolved);
    if (unresolved) target = named;
    const fs::path temporary = target.parent_path() / wide("ORV" + randomIdentifier());
    try {
        const File file = open(temporary, GENERIC_WRITE, 0, CREATE_NEW);
        if (!file) fail("write", path);
        writeAll(file, path, bytes);
    }
    catch (const COBIA::StringException&) {
        DeleteFileW(temporary.c_str());
        throw;
    }
    if (!MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        const DWORD reason = GetLastError();
        DeleteFileW(temporary.c_str());
        fail("write", path, reason);
    }
}

}  // namespace orvane
