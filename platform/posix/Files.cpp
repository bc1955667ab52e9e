#include "platform/Files.h"

#include "cobia/Error.h"
#include "platform/Identifier.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orvane {
namespace {

struct Close {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

[[noreturn]] void fail(const char* what, const std::string& path, int reason) {
    throw COBIA::StringException() << "Cannot " << what << " '" << path
                                   << "': " << std::generic_category().message(reason);
}

File open(const std::string& path, const char* mode, const char* what) {
    File file(std::fopen(path.c_str(), mode));
    if (!file) fail(what, path, errno);
    return file;
}

void writeAll(File file, const std::string& path, std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) fail("write", path, errno);
    // A full disk may show no earlier than here.
    if (std::fclose(file.release()) != 0) fail("write", path, errno);
}

}  // namespace

std::string readFile(const std::string& path) {
    const File file = open(path, "rbe", "read");
    std::string bytes;
    char block[16384];
    while (const std::size_t count = std::fread(block, 1, sizeof block, file.get()))
        bytes.append(block, count);
    if (std::ferror(file.get())) fail("read", path, errno);
    return bytes;
}

void writeFile(const std::string& path, std::string_view bytes) {
    struct stat status {};
    const bool exists = stat(path.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        writeAll(open(path, "wbe", "write"), path, bytes);
        return;
    }

    // Where a link leads, so that the link itself survives the renaming.
    std::error_code unresolved;
    std::filesystem::path target = path;
    if (exists) target = std::filesystem::canonical(path, unresolved);
    if (unresolved) fail("write", path, unresolved.value());
    const std::string temporary = (target.parent_path() / ("ORV" + randomIdentifier())).string();
    const int descriptor =
        ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, exists ? 0600 : 0666);
    if (descriptor < 0) fail("write", path, errno);
    try {
        const bool allowed = !exists || fchmod(descriptor, status.st_mode & 07777) == 0;
        File file(allowed ? fdopen(descriptor, "wb") : nullptr);
        if (!file) {
            const int reason = errno;
            close(descriptor);
            fail("write", path, reason);
        }
        writeAll(std::move(file), path, bytes);
        if (rename(temporary.c_str(), target.c_str()) != 0) fail("write", path, errno);
    }
    catch (const COBIA::StringException&) {
        unlink(temporary.c_str());
        throw;
    }
}

}  // namespace orvane
