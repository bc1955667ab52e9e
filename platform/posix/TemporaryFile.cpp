#include "platform/TemporaryFile.h"

#include "cobia/Error.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

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

void TemporaryFile::remove(const std::string& path) noexcept { unlink(path.c_str()); }

}  // namespace orvane
