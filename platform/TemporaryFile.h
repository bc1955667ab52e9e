// A file in the temporary directory that lives as long as its owner.
// Not here: reading and writing it (Files.h).
#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// Owns one file, or none after it was moved from or released.
class TemporaryFile {
public:
    /// Creates an empty file of a name that no other file has: ORV, something random, then the suffix
    /// (".png"). Only this user may read it. Throws COBIA::StringException with the directory and the
    /// system's reason.
    explicit TemporaryFile(std::string_view suffix = {});
    TemporaryFile(TemporaryFile&& other) noexcept;
    /// The file owned until now goes away.
    TemporaryFile& operator=(TemporaryFile&& other) noexcept;
    /// Deletes the file. One that is gone already, or cannot be deleted, is left at that.
    ~TemporaryFile();

    /// UTF-8, absolute; empty when no file is owned.
    const std::string& path() const noexcept { return path_; }

    /// Gives the file away: it stays, and its path is returned.
    std::string release() noexcept;

private:
    static void remove(const std::string& path) noexcept;

    std::string path_;
};

}  // namespace orvane
