#include "platform/RuntimeLoader.h"

#include "cobia/Data.h"
#include "cobia/Error.h"
#include "platform/DynamicLibrary.h"
#include "platform/RuntimeRegistry.h"

#include <exception>
#include <type_traits>

namespace orvane {
namespace {

constexpr RuntimeVersion oldestAccepted{{1, 2, 1, 0}};

bool hasAcceptedVersion(const Runtime& runtime) {
    COBIA::StringObject version;
    if (runtime.getCobiaVersion(version.out()) != COBIA::noError) return true;
    return parseVersion(version.utf8()) >= oldestAccepted;
}

std::optional<Runtime> findRuntime() noexcept {
    try {
        const auto registration = chooseRuntime(registeredRuntimes());
        return registration ? loadRuntime(registration->folder) : std::nullopt;
    }
    catch (const std::exception&) {
        return std::nullopt;  // the unit works without a runtime, so nothing here may keep it from being made
    }
}

/// Empty when the runtime does not know the code. Called once there is a runtime.
std::string describe(COBIA::CapeResult code) {
    COBIA::StringObject text;
    return runtime()->getErrorDescription(code, text.out()) == COBIA::noError ? text.utf8() : std::string();
}

}  // namespace

std::optional<Runtime> bindRuntime(const std::function<void*(const char*)>& find) {
    Runtime table{};
    bool complete = true;
    const auto bind = [&](auto& entry, const char* name) {
        entry = reinterpret_cast<std::remove_reference_t<decltype(entry)>>(find(name));
        complete = complete && entry;
    };
    bind(table.capeGenUUID, "capeGenUUID");
    bind(table.capeUUIDFromString, "capeUUIDFromString");
    bind(table.capeStringFromUUID, "capeStringFromUUID");
    bind(table.getCobiaLanguage, "getCobiaLanguage");
    bind(table.getCobiaVersion, "getCobiaVersion");
    bind(table.getCobiaDataFolder, "getCobiaDataFolder");
    bind(table.getCobiaFolder, "getCobiaFolder");
    bind(table.getCobiaUserDataFolder, "getCobiaUserDataFolder");
    bind(table.getErrorDescription, "getErrorDescription");
    bind(table.capeGetRegistryKey, "capeGetRegistryKey");
    bind(table.capeGetRegistryWriter, "capeGetRegistryWriter");
    bind(table.capeGetLibraryEnumerator, "capeGetLibraryEnumerator");
    bind(table.capeGetPMCEnumerator, "capeGetPMCEnumerator");
    bind(table.cobiaCreatePMCInstance, "cobiaCreatePMCInstance");
    bind(table.cobiaDepersistFromTransitionFormat, "cobiaDepersistFromTransitionFormat");
    bind(table.cobiaDepersistPMCFromTransitionFormat, "cobiaDepersistPMCFromTransitionFormat");
    bind(table.capeGetDataClassFactory, "capeGetDataClassFactory");
    if (!complete || !hasAcceptedVersion(table)) return std::nullopt;

    table.dataClassFactory = table.capeGetDataClassFactory();
    return table;
}

std::optional<Runtime> loadRuntime(const std::string& folder) {
    try {
        const DynamicLibrary library(folder + "/" + DynamicLibrary::fileName("COBIA"));
        return bindRuntime([&](const char* name) { return library.find(name); });
    }
    catch (const COBIA::StringException&) {
        return std::nullopt;  // registered, but gone or broken: as if it were not installed
    }
}

const Runtime* runtime() noexcept {
    static const std::optional<Runtime> loaded = [] {
        std::optional<Runtime> found = findRuntime();
        if (found) COBIA::setErrorDescriptions(describe);
        return found;
    }();
    return loaded ? &*loaded : nullptr;
}

}  // namespace orvane
