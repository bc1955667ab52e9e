#include "platform/PythonInstallation.h"

#include "platform/windows/SystemText.h"

#include <windows.h>

namespace orvane {
namespace {

bool isThere(const std::string& path) {
    return GetFileAttributesW(wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Up to and including the last separator.
std::string folderOf(const std::string& file) { return file.substr(0, file.find_last_of('\\') + 1); }

}  // namespace

std::vector<std::string> installationPath(const std::string& libraryFile) {
    const std::string folder = folderOf(libraryFile);
    if (folder.empty()) return {};
    std::vector<std::string> result;
    for (const std::string& candidate : {libraryFile.substr(0, libraryFile.find_last_of('.') + 1) + "zip",
                                         folder + "DLLs", folder + "lib", folder + "lib\\site-packages"})
        if (isThere(candidate)) result.push_back(candidate);
    return result;
}

std::string pythonProgram(const std::string& libraryFile) {
    const std::string python = folderOf(libraryFile) + "python.exe";
    return isThere(python) ? python : std::string();
}

}  // namespace orvane
