#include "engine/SearchPath.h"

#include "platform/Environment.h"
#include "platform/ModuleLocation.h"

#include <Python.h>

#include <filesystem>
#include <fstream>

namespace orvane {
namespace {

namespace fs = std::filesystem;

fs::path pathOf(const std::string& utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string textOf(const fs::path& path) {
    const std::u8string utf8 = path.u8string();
    return std::string(utf8.begin(), utf8.end());
}

bool isThere(const fs::path& path) {
    std::error_code failed;
    return fs::exists(path, failed);
}

}  // namespace

std::vector<std::string> installationPath(const std::string& libraryFile) {
    const fs::path folder = pathOf(libraryFile).parent_path();
    // The library stands beside the standard library's folder or, where folders carry the machine's name, below it.
    const fs::path above = folder.parent_path();
    const fs::path root = isThere(folder / "python3.14") || !isThere(above / "python3.14") ? folder : above;
    const fs::path standard = root / "python3.14";
    std::vector<std::string> result;
    for (const fs::path& candidate :
         {root / "python314.zip", standard, standard / "lib-dynload", standard / "site-packages",
          standard / "dist-packages", root / "python3" / "dist-packages"})
        if (isThere(candidate)) result.push_back(textOf(candidate));
    return result;
}

std::vector<std::string> splitPath(std::string_view value, char separator) {
    std::vector<std::string> result;
    while (!value.empty()) {
        const std::size_t end = value.find(separator);
        result.emplace_back(value.substr(0, end));
        if (end == std::string_view::npos) break;
        value.remove_prefix(end + 1);
    }
    return result;
}

std::optional<std::string> virtualEnvironmentPath(const std::string& folder) {
    const fs::path root = pathOf(folder);
    std::ifstream settings(root / "pyvenv.cfg");
    bool fits = false;
    for (std::string line; std::getline(settings, line);) {
        // "version = 3.14.7", or "version_info = 3.14.7.final.0" by another tool.
        std::erase_if(line, [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
        for (const char* setting : {"version=3.14.", "version_info=3.14."})
            fits = fits || line.starts_with(setting);
    }
    if (!fits) return std::nullopt;
    for (const fs::path& modules :
         {root / "lib" / "python3.14" / "site-packages", root / "Lib" / "site-packages"})
        if (isThere(modules)) return textOf(modules);
    return std::nullopt;
}

std::optional<std::vector<std::string>> searchPath() {
    std::vector<std::string> result;
    try {
        result = installationPath(moduleFile(addressOf(&Py_Initialize)));
    }
    catch (const std::exception&) {
        return std::nullopt;  // the interpreter then finds its own way
    }
    if (const auto added = environmentVariable("PYTHONPATH"))
        for (std::string& piece : splitPath(*added, pathListSeparator)) result.push_back(std::move(piece));
    return result;
}

}  // namespace orvane
