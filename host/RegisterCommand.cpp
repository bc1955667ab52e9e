#include "host/RegisterCommand.h"

#include "cobia/Error.h"
#include "host/ExitCode.h"
#include "host/Path.h"
#include "host/System.h"

#include <fmt/format.h>

namespace orvane::host {
namespace {

using Entry = COBIA::CapeResult (*)();

[[noreturn]] void fail(const std::string& message) { throw std::runtime_error(message); }

void carryOut(const RegisterOptions& options) {
    const std::filesystem::path file = std::filesystem::absolute(
        options.library.value_or(executableFile().parent_path() / companionFileName()));
    if (!std::filesystem::exists(file))
        fail(fmt::format("there is no library '{}'; it belongs beside the orvane command", textOf(file)));
    const DynamicLibrary library(file);
    const char* const name = options.undo ? "capeUnregisterObjects" : "capeRegisterObjects";
    const auto entry = reinterpret_cast<Entry>(library.symbol(name));
    if (!entry) fail(fmt::format("'{}' is no component library: it does not export {}", textOf(file), name));
    if (const COBIA::CapeResult code = entry())
        fail(fmt::format("{} of '{}' failed: {} (code {}){}", name, textOf(file),
                         COBIA::errorDescription(code), code,
                         code == COBIA::noService ? ". Install the COBIA runtime first" : ""));
    fmt::print("The unit operation is {} for COBIA hosts that you run: {}\n",
               options.undo ? "no longer registered" : "registered", textOf(file));
}

}  // namespace

int registerCommand(const RegisterOptions& options) {
    try {
        carryOut(options);
        return exitSuccess;
    }
    catch (const std::exception& error) {
        fmt::print(stderr, "error: {}\n", error.what());
        return exitNotLoaded;
    }
}

}  // namespace orvane::host
