#include "host/ModuleLoader.h"

#include "cobia/Error.h"
#include "host/Path.h"
#include "pythonlibrary/PythonLibrary.h"

#include <fmt/format.h>

namespace orvane::host {
namespace {

constexpr const char* entryPoint = "createOrvane";

struct Search {
    std::filesystem::path file;
    std::string where;  // for messages
};

Search whereToLook(const std::optional<std::filesystem::path>& named) {
    if (named) return {*named, "named by --module"};
    if (const auto variable = environmentVariable("ORVANE_MODULE"); variable && !variable->empty()) {
        return {pathOf(*variable), "named by the environment variable ORVANE_MODULE"};
    }
    return {executableFile().parent_path() / moduleFileName(),
            "looked for beside the orvane command; --module or the environment variable ORVANE_MODULE names "
            "another"};
}

}  // namespace

ModuleLoader::ModuleLoader(const std::optional<std::filesystem::path>& named) {
    const auto [file, where] = whereToLook(named);
    std::error_code error;
    file_ = std::filesystem::absolute(file, error);
    if (error) file_ = file;
    if (!std::filesystem::exists(file_, error)) {
        throw ModuleError(fmt::format("there is no module '{}' ({})", textOf(file_), where));
    }
    try {
        loadPythonLibrary(file_.parent_path());
        const DynamicLibrary library(file_);
        create_ = reinterpret_cast<Create>(library.symbol(entryPoint));
    }
    catch (const std::runtime_error& loader) {
        std::string message =
            fmt::format("the module '{}' ({}) could not be loaded: {}", textOf(file_), where, loader.what());
        if (saysPythonIsMissing(loader.what())) {
            message += fmt::format(". The Python library that it needs is missing. {}", pythonAdvice());
        }
        throw ModuleError(message);
    }
    if (!create_) {
        throw ModuleError(fmt::format("'{}' ({}) is no unit operation module: it does not export {}",
                                      textOf(file_), where, entryPoint));
    }
}

COBIA::Ref<COBIA::ICapeInterface> ModuleLoader::createUnit() const {
    COBIA::ICapeInterface* unit = nullptr;
    const COBIA::CapeResult code = create_(&unit);
    if (code != COBIA::noError || !unit) {
        throw ModuleError(fmt::format(
            "{} of the module '{}' gave no unit operation: {}", entryPoint, textOf(file_),
            code != COBIA::noError ? COBIA::errorDescription(code) : "it succeeded, but handed out nothing"));
    }
    return COBIA::Ref<COBIA::ICapeInterface>::adopt(unit);
}

}  // namespace orvane::host
