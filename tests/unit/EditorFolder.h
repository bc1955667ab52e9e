// A folder with a copy of the module and, beside it, whatever stands for the editor's library: the module looks for its
// editor there and nowhere else. With the editor of tests/fixtures, a test says what the user does.
#pragma once

#include "unit/EditingUnit.h"

#include "host/ModuleLoader.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace orvane::test {

/// A new, empty folder, which is the caller's to remove.
std::filesystem::path newTemporaryFolder();

class EditorFolder {
public:
    /// library: the file that becomes the editor's library, none when empty.
    explicit EditorFolder(const std::filesystem::path& library = ORVANE_EDITOR_FIXTURE);
    EditorFolder(const EditorFolder&) = delete;
    EditorFolder& operator=(const EditorFolder&) = delete;
    ~EditorFolder();

    const std::filesystem::path& path() const { return path_; }
    /// Puts an editor's library there later.
    void addLibrary(const std::filesystem::path& library);
    /// What the user does from now on whenever an editor is shown, and the editor's answer.
    void edit(std::function<bool(void* parentWindow, EditingUnit* unit)> user);

    const host::ModuleLoader& module() const { return *module_; }

private:
    std::filesystem::path path_;
    std::unique_ptr<host::ModuleLoader> module_;
};

}  // namespace orvane::test
