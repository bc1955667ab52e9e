// A COBIA runtime that this process finds installed, in place of the machine's.
#pragma once

#include <memory>
#include <string>

namespace orvane::test {

class InstalledRuntime {
public:
    /// In that folder (UTF-8), as a version that none has; or none at all when the folder is empty.
    explicit InstalledRuntime(const std::string& folder);
    InstalledRuntime(const InstalledRuntime&) = delete;
    InstalledRuntime& operator=(const InstalledRuntime&) = delete;
    ~InstalledRuntime();

private:
    struct System;
    std::unique_ptr<System> system_;
};

}  // namespace orvane::test
