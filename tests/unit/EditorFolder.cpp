#include "tests/unit/EditorFolder.h"

namespace orvane::test {

namespace fs = std::filesystem;

namespace {

std::function<bool(void*, EditingUnit*)> currentUser;

fs::path libraryIn(const fs::path& folder) { return folder / fs::path(ORVANE_EDITOR_FIXTURE).filename(); }

}  // namespace

EditorFolder::EditorFolder(const fs::path& library) {
    const fs::path module = path() / host::moduleFileName();
    fs::copy_file(fs::path(ORVANE_BIN) / module.filename(), module);
    if (!library.empty()) addLibrary(library);
    module_ = std::make_unique<host::ModuleLoader>(module);
}

EditorFolder::~EditorFolder() { currentUser = nullptr; }

void EditorFolder::addLibrary(const fs::path& library) { fs::copy_file(library, libraryIn(path())); }

void EditorFolder::edit(std::function<bool(void*, EditingUnit*)> user) {
    currentUser = std::move(user);
    // The module loads the same file, and so the same library.
    const host::DynamicLibrary editor(libraryIn(path()));
    auto* const editWith = reinterpret_cast<void (*)(OrvaneEditor*)>(editor.symbol("editWith"));
    editWith([](void* parentWindow, EditingUnit* unit) { return currentUser(parentWindow, unit); });
}

}  // namespace orvane::test
