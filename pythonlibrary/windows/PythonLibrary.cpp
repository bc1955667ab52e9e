#include "pythonlibrary/PythonLibrary.h"

#include "cobia/Text.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <windows.h>

namespace orvane {
namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* fileName = L"python314.dll";
constexpr const wchar_t* installKey = L"Software\\Python\\PythonCore\\3.14\\InstallPath";

/// The default value of the key that installers write.
std::optional<fs::path> registeredFolder(HKEY root) {
    std::wstring text;
    DWORD size = 0;
    LSTATUS status = RegGetValueW(root, installKey, nullptr, RRF_RT_REG_SZ, nullptr, nullptr, &size);
    // Another process may make it longer meanwhile.
    for (bool more = status == ERROR_SUCCESS; more; more = status == ERROR_MORE_DATA) {
        text.resize(size / sizeof(wchar_t) + 1);
        size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        status = RegGetValueW(root, installKey, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    }
    if (status != ERROR_SUCCESS) return std::nullopt;
    return text.substr(0, text.find(L'\0'));
}

/// Keeps account of where it looked.
class Search {
public:
    bool load(const std::string& place, const fs::path& file) {
        // With what stands beside it: installations bring the C runtime's libraries along.
        const DWORD flags = file.is_absolute() ? LOAD_WITH_ALTERED_SEARCH_PATH : 0;
        if (LoadLibraryExW(file.c_str(), nullptr, flags)) return true;
        const DWORD error = GetLastError();
        std::error_code unknown;
        note(place, error == ERROR_BAD_EXE_FORMAT ? "is no 64-bit library"
                    : !file.is_absolute()         ? "does not have it"
                    : fs::exists(file, unknown)   ? "cannot be loaded, error " + std::to_string(error)
                                                  : "is not there");
        return false;
    }

    bool loadRegistered(const std::string& rootName, HKEY root) {
        const std::string key = rootName + "\\" + COBIA::toUtf8(installKey);
        const auto folder = registeredFolder(root);
        if (!folder) {
            note(key, "is not there");
            return false;
        }
        const fs::path file = *folder / fileName;
        return load("'" + COBIA::toUtf8(file.native()) + "', named by " + key + ",", file);
    }

    const std::string& account() const { return account_; }

private:
    void note(const std::string& place, const std::string& finding) {
        account_ += (account_.empty() ? "" : "; ") + place + " " + finding;
    }

    std::string account_;
};

}  // namespace

void loadPythonLibrary(const fs::path& beside) {
    if (GetModuleHandleW(fileName)) return;
    Search search;
    const fs::path neighbour = fs::path(beside / fileName).make_preferred();
    if (search.loadRegistered("HKEY_CURRENT_USER", HKEY_CURRENT_USER) ||
        search.loadRegistered("HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE) ||
        search.load("'" + COBIA::toUtf8(neighbour.native()) + "'", neighbour) ||
        search.load("PATH", fileName))
        return;
    throw std::runtime_error("the library of CPython 3.14, python314.dll, was not found: " +
                             search.account());
}

}  // namespace orvane
