#include "platform/TemporaryFile.h"

#include <utility>

namespace orvane {

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept : path_(other.release()) {}

TemporaryFile& TemporaryFile::operator=(TemporaryFile&& other) noexcept {
    // Through a third object, so that the old file goes last and moving a file onto itself keeps it.
    TemporaryFile incoming(std::move(other));
    std::swap(path_, incoming.path_);
    return *this;
}

TemporaryFile::~TemporaryFile() {
    if (!path_.empty()) remove(path_);
}

std::string TemporaryFile::release() noexcept { return std::exchange(path_, {}); }

}  // namespace orvane
