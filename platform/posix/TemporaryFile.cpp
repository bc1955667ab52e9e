#include "platform/TemporaryFile.h"

#include "cobia/Error.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace orvane {

TemporaryFile::TemporaryFile(std::string_view suffix) {
    std::error_code error;
    const std::filesystem::path named = std::filesystem::temp_directory_path(error);
    if (error) throw COBIA::StringException() << "No temporary directory, check TMPDIR: " << error.message();
    const std::string directory = std::filesystem::absolute(named).lexically_normal().string();

    std::string path = (std::filesystem::path(directory) / "ORVXXXXXX").string();
    path += suffix;
    const int file = mkostemps(path.data(), static_cast<int>(suffix.size()), O_CLOEXEC);
    if (file < 0)
        throw COBIA::StringException() << "Cannot create a file in '" << directory
                                       << "', check TMPDIR: " << std::generic_category().message(errno);
    close(file);
    path_ = std::move(path);
}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept : path_(other.release()) {}

TemporaryFile& TemporaryFile::operator=(TemporaryFile&& other) noexcept {
    // Through a third object, so that the old file goes last and moving a file onto itself keeps it.
    TemporaryFile incoming(std::move(other));
    std::swap(path_, incoming.path_);
    return *this;
}

TemporaryFile::~TemporaryFile() {
    if (!path_.empty()) unlink(path_.c_str());
}

std::string TemporaryFile::release() noexcept { return std::exchange(path_, {}); }

}  // namespace orvane
