#include "platform/posix/RuntimeRegistry.h"

#include "cobia/Error.h"
#include "platform/Files.h"
#include "platform/posix/RegistryFile.h"

namespace orvane {

std::vector<RuntimeRegistration> registeredRuntimes() {
    return runtimesIn(registryFiles(RegistryUser::current()));
}

std::vector<RuntimeRegistration> runtimesIn(const std::vector<std::string>& files) {
    std::vector<RuntimeRegistration> found;
    for (const std::string& file : files) {
        std::string text;
        try {
            text = readFile(file);
        }
        catch (const COBIA::StringException&) {
            continue;  // most machines have no registry, and one that cannot be read is none
        }
        const auto folder = registryValue(text, runtimeKey, "default");
        if (!folder || folder->empty()) continue;
        found.push_back({*folder, parseVersion(registryValue(text, runtimeKey, "version").value_or(""))});
    }
    return found;
}

}  // namespace orvane
