#include "platform/RuntimeRegistry.h"

#include "platform/windows/Registry.h"
#include "platform/windows/SystemText.h"

namespace orvane {

std::vector<RuntimeRegistration> registeredRuntimes() {
    std::vector<RuntimeRegistration> found;
    for (const HKEY root : registryRoots(tokenElevation())) {
        const auto folder = registryText(root, wide(runtimeKey), L"");
        if (!folder || folder->empty()) continue;
        found.push_back(
            {*folder, parseVersion(registryText(root, wide(runtimeKey), L"version").value_or(""))});
    }
    return found;
}

}  // namespace orvane
