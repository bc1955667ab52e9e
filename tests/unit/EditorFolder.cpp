#include "tests/unit/EditorFolder.h"

#include <cstdlib>
#include <stdexcept>

namespace orvane::test {

namespace fs = std::filesystem;

namespace {

std::function<bool(void*, EditingUnit*)> currentUser;

fs::path libraryIn(const fs::path& folder) { return folder / fs::path(ORVANE_EDITOR_FIXTURE).filename(); }

}  // namespace

fs::path newTemporaryFolder() {
    std::string name = (fs::temp_directory_path() / "orvane-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    return name;
}

EditorFolder::EditorFolder(const fs::path& library) : path_(newTemporaryFolder()) {
    const fs::path module = path_ / host::moduleFileName();
    fs::copy_file(fs::path(ORVANE_BIN) / module.filename(), module);
    if (!library.empty()) addLibrary(library);
    module_ = std::make_unique<host::ModuleLoader>(module);
}

EditorFolder::~EditorFolder() {
    currentUser = nullptr;
    fs::remove_all(path_);
}

void EditorFolder::addLibrary(const fs::path& library) { fs::copy_file(library, libraryIn(path_)); }

void EditorFolder::edit(std::function<bool(void*, EditingUnit*)> user) {
    currentUser = std::move(user);
    // The module loads the same file, and so the same library.
    const host::DynamicLibrary editor(libraryIn(path_));
    auto* const editWith = reinterpret_cast<void (*)(OrvaneEditor*)>(editor.symbol("editWith"));
    editWith([](void* parentWindow, EditingUnit* unit) { return currentUser(parentWindow, unit); });
}

}  // namespace orvane::test
