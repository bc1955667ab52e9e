#include "platform/PythonInstallation.h"

#include <filesystem>

namespace orvane {
namespace {

namespace fs = std::filesystem;

bool isThere(const fs::path& path) {
    std::error_code failed;
    return fs::exists(path, failed);
}

}  // namespace

std::vector<std::string> installationPath(const std::string& libraryFile) {
    const fs::path folder = fs::path(libraryFile).parent_path();
    // The library stands beside the standard library's folder or, where folders carry the machine's name, below it.
    const fs::path above = folder.parent_path();
    const fs::path root = isThere(folder / "python3.14") || !isThere(above / "python3.14") ? folder : above;
    const fs::path standard = root / "python3.14";
    std::vector<std::string> result;
    for (const fs::path& candidate :
         {root / "python314.zip", standard, standard / "lib-dynload", standard / "site-packages",
          standard / "dist-packages", root / "python3" / "dist-packages"})
        if (isThere(candidate)) result.push_back(candidate.string());
    return result;
}

std::string pythonProgram(const std::string& libraryFile) {
    const fs::path folder = fs::path(libraryFile).parent_path();
    for (const fs::path& candidate :
         {folder.parent_path() / "bin", folder, folder.parent_path().parent_path() / "bin"}) {
        const fs::path python = candidate / "python3.14";
        if (isThere(python)) return python.string();
    }
    return {};
}

}  // namespace orvane
