#include "unit/EditorLibrary.h"

#include "cobia/Error.h"
#include "platform/CommandLine.h"
#include "platform/DynamicLibrary.h"
#include "platform/ModuleLocation.h"

#include <atomic>
#include <string>

namespace orvane {
namespace {

constexpr const char* editorFunction = "orvaneEditor";

OrvaneEditor* loadEditor() {
    const std::string module = moduleFile(addressOf(&findEditor));
    const std::string name = DynamicLibrary::moduleName("OrvaneOperation");
    const std::string file = module.substr(0, module.find_last_of(pathSeparators) + 1) + name;
    std::string reason = "'" + file + "' does not export " + editorFunction;
    try {
        if (auto* editor = DynamicLibrary(file).find<OrvaneEditor>(editorFunction)) return editor;
    }
    catch (const COBIA::StringException& unloadable) {
        reason = unloadable.what();
    }
    throw COBIA::StringException() << "The script editor cannot be opened: " << reason
                                   << ". It is the library " << name << ", which belongs into the folder of "
                                   << module;
}

}  // namespace

OrvaneEditor* findEditor() {
    static std::atomic<OrvaneEditor*> found = nullptr;
    if (!found) found = loadEditor();
    return found;
}

}  // namespace orvane
