#include "platform/Files.h"

#include "cobia/Error.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

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
    File file = open(path, "wbe", "write");
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) fail("write", path, errno);
    // A full disk may show no earlier than here.
    if (std::fclose(file.release()) != 0) fail("write", path, errno);
}

}  // namespace orvane
