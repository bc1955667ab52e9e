#include "editor/UnitModule.h"

#include "cobia/Error.h"
#include "platform/CommandLine.h"
#include "platform/DynamicLibrary.h"
#include "platform/ModuleLocation.h"
#include "pythonlibrary/PythonLibrary.h"

#include <atomic>
#include <filesystem>

namespace orvane {
namespace {

using Create = COBIA::CapeResult(COBIA::ICapeInterface** result);

constexpr const char* entryPoint = "createOrvane";

[[noreturn]] void fail(const std::string& reason) {
    throw COBIA::StringException() << "The unit operation cannot be loaded: " << reason;
}

Create* loadModule() {
    const std::string library = moduleFile(addressOf(&createUnit));
    const std::string folder = library.substr(0, library.find_last_of(pathSeparators) + 1);
    const std::string file = folder + DynamicLibrary::moduleName("Orvane3.14");
    try {
        loadPythonLibrary(std::filesystem::path(std::u8string(folder.begin(), folder.end())));
    }
    catch (const std::runtime_error& error) {
        fail(std::string(error.what()) + ". Install Python 3.14 (64-bit)");
    }
    Create* create = nullptr;
    try {
        create = DynamicLibrary(file).find<Create>(entryPoint);
    }
    catch (const COBIA::StringException& error) {
        fail(std::string(error.what()) + ". It belongs beside '" + library +
             "', and needs the library of CPython 3.14");
    }
    if (!create) fail("'" + file + "' does not export " + entryPoint);
    return create;
}

}  // namespace

COBIA::Ref<COBIA::ICapeInterface> createUnit() {
    static std::atomic<Create*> loaded = nullptr;
    if (!loaded) loaded = loadModule();
    COBIA::ICapeInterface* unit = nullptr;
    if (const COBIA::CapeResult code = loaded.load()(&unit)) throw COBIA::cape_open_error(code);
    return COBIA::Ref<COBIA::ICapeInterface>::adopt(unit);
}

}  // namespace orvane
