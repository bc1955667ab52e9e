#include "host/System.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvane::host {
namespace {

[[noreturn]] void fail(const std::string& what, int error) {
    throw std::runtime_error(what + ": " + std::strerror(error));
}

/// Writes all of the text; gives the error number, or 0.
int writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

}  // namespace

bool errorIsTerminal() { return isatty(STDERR_FILENO) == 1; }

ReservedOutput::ReservedOutput() : reserved_(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3)) {
    if (reserved_ < 0) fail("standard output cannot be reserved", errno);
    std::fflush(stdout);
    if (dup2(STDERR_FILENO, STDOUT_FILENO) < 0) {
        const int error = errno;
        close(static_cast<int>(reserved_));
        fail("standard output cannot be pointed at standard error", error);
    }
}

ReservedOutput::~ReservedOutput() { close(static_cast<int>(reserved_)); }

void ReservedOutput::write(std::string_view text) {
    if (const int error = writeAll(static_cast<int>(reserved_), text))
        fail("the result cannot be written to standard output", error);
}

void writeWhole(const std::filesystem::path& file, std::string_view text) {
    const std::string what = "'" + file.string() + "' cannot be written";
    struct stat status {};
    const bool exists = stat(file.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        const int descriptor = open(file.c_str(), O_WRONLY | O_CLOEXEC);
        if (descriptor < 0) fail(what, errno);
        const int error = writeAll(descriptor, text);
        close(descriptor);
        if (error) fail(what, error);
        return;
    }

    // Where a link leads, so that the link itself survives the renaming.
    const std::filesystem::path target = exists ? std::filesystem::canonical(file) : file;
    std::string temporary = target.string() + ".XXXXXX";
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0) fail(what, errno);
    const mode_t mask = umask(0);
    umask(mask);
    int error = writeAll(descriptor, text);
    if (!error && fchmod(descriptor, exists ? status.st_mode & 07777 : 0666 & ~mask) != 0) error = errno;
    if (close(descriptor) != 0 && !error) error = errno;
    if (!error && rename(temporary.c_str(), target.c_str()) != 0) error = errno;
    if (error) {
        unlink(temporary.c_str());
        fail(what, error);
    }
}

void endProcess(int exitCode) noexcept {
    std::fflush(nullptr);
    _exit(exitCode);
}

}  // namespace orvane::host
