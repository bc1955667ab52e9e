#include "platform/Files.h"

#include "cobia/Error.h"
#include "platform/Identifier.h"
#include "platform/windows/SystemText.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <windows.h>

namespace orvane {
namespace {

namespace fs = std::filesystem;

struct Close {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

[[noreturn]] void fail(const char* what, const std::string& path, const std::string& reason) {
    throw COBIA::StringException() << "Cannot " << what << " '" << path << "': " << reason;
}

[[noreturn]] void fail(const char* what, const std::string& path, int reason) {
    fail(what, path, std::generic_category().message(reason));
}

/// Processes that start later do not inherit the file.
File open(const fs::path& file, const wchar_t* mode, const char* what, const std::string& path) {
    File opened(_wfopen(file.c_str(), mode));
    if (!opened) fail(what, path, errno);
    return opened;
}

void writeAll(File file, const std::string& path, std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) fail("write", path, errno);
    // A full disk may show no earlier than here.
    if (std::fclose(file.release()) != 0) fail("write", path, errno);
}

}  // namespace

std::string readFile(const std::string& path) {
    const File file = open(wide(path), L"rbN", "read", path);
    std::string bytes;
    char block[16384];
    while (const std::size_t count = std::fread(block, 1, sizeof block, file.get()))
        bytes.append(block, count);
    if (std::ferror(file.get())) fail("read", path, errno);
    return bytes;
}

void writeFile(const std::string& path, std::string_view bytes) {
    const fs::path named = wide(path);
    std::error_code unknown;
    const bool exists = fs::exists(named, unknown);
    if (exists && !fs::is_regular_file(named, unknown)) {
        writeAll(open(named, L"wbN", "write", path), path, bytes);
        return;
    }

    // Where a link leads, so that the link itself survives the renaming.
    fs::path target = exists ? fs::canonical(named, unknown) : named;
    if (target.empty()) target = named;
    const fs::path temporary = target.parent_path() / wide("ORV" + randomIdentifier());
    try {
        writeAll(open(temporary, L"wbN", "write", path), path, bytes);
        if (!MoveFileExW(temporary.c_str(), target.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            fail("write", path, systemMessage(GetLastError()));
    }
    catch (const COBIA::StringException&) {
        DeleteFileW(temporary.c_str());
        throw;
    }
}

}  // namespace orvane
