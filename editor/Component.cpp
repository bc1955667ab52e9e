#include "editor/Component.h"

#include "cobia/Error.h"
#include "cobia/Registration.h"
#include "cobia/Text.h"
#include "platform/DebugOutput.h"
#include "platform/RuntimeLoader.h"
#include "platform/RuntimeRegistry.h"

namespace orvane {
namespace {

using namespace COBIA;

constexpr CapeUUID categories[] = {
    "678c09a5-7d66-11d2-a67d-00105a42887f"_uuid,  // unit operation
    "37e03033-63b9-4f55-b5c4-807bede03deb"_uuid,  // CAPE-OPEN 1.2
};

void check(CapeResult code, const char* step) {
    if (code == noError) return;
    debugOutput("Orvane: the COBIA runtime refused to " + std::string(step) + ": " + errorDescription(code) +
                " (code " + std::to_string(code) + ")");
    throw cape_open_error(code);
}

/// A slot of an object of the runtime, as a step that either succeeds or throws.
template <auto slot, class Object, class... Arguments>
void ask(const Ref<Object>& object, const char* step, Arguments... arguments) {
    const auto* table = static_cast<const typename Object::Table*>(object->vTbl);
    check((table->*slot)(object->me, arguments...), step);
}

template <auto slot>
void put(const Ref<ICapePMCRegistrar>& registrar, const char* step, std::string_view text) {
    ask<slot>(registrar, step, toCape(text).c_str());
}

Ref<ICapeRegistryWriter> userRegistry() {
    const Runtime* installed = runtime();
    if (!installed) {
        debugOutput(
            "Orvane: no COBIA runtime is installed, or none of version 1.2.1 or later, looked for under the "
            "registry key " +
            std::string(runtimeKey) + ". Install the runtime, then register again.");
        throw cape_open_error(noService);
    }
    ICapeRegistryWriter* writer = nullptr;
    check(installed->capeGetRegistryWriter(false, &writer), "open the user's registry");
    if (!writer) throw cape_open_error(nullPointer);
    return Ref<ICapeRegistryWriter>::adopt(writer);
}

using Writer = ICapeRegistryWriter::Table;
using Registrar = ICapePMCRegistrar::Table;

void describe(const Ref<ICapePMCRegistrar>& registrar, const std::string& libraryFile) {
    put<&Registrar::putName>(registrar, "take the name", "Orvane Operation");
    put<&Registrar::putDescription>(registrar, "take the description",
                                    "CAPE-OPEN Unit Operation using python script for calculations");
    put<&Registrar::putCapeVersion>(registrar, "take the CAPE-OPEN version", "1.2");
    put<&Registrar::putComponentVersion>(registrar, "take the component's version", ORVANE_VERSION);
    put<&Registrar::putAbout>(registrar, "take the about text",
                              "Orvane " ORVANE_VERSION ": a unit operation that runs a Python script");
    ask<&Registrar::putUUID>(registrar, "take the identifier", &componentId);
    put<&Registrar::putProgId>(registrar, "take the program identifier", "Orvane.Operation.1");
    put<&Registrar::putVersionIndependentProgId>(registrar, "take the general program identifier",
                                                 "Orvane.Operation");
    for (const CapeUUID& category : categories)
        ask<&Registrar::addCatID>(registrar, "take a category", &category);
    ask<&Registrar::addLocation>(registrar, "take the location", CapePMCServiceType::inProcess64,
                                 toCape(libraryFile).c_str());
    ask<&Registrar::commit>(registrar, "register the component");
}

}  // namespace

void registerComponent(const std::string& libraryFile) {
    const auto writer = userRegistry();
    ICapePMCRegistrar* handedOut = nullptr;
    ask<&Writer::getPMCRegistrar>(writer, "make a registrar", &handedOut);
    if (!handedOut) throw cape_open_error(nullPointer);
    describe(Ref<ICapePMCRegistrar>::adopt(handedOut), libraryFile);
    ask<&Writer::commit>(writer, "keep the registration");
}

void unregisterComponent() {
    const auto writer = userRegistry();
    ask<&Writer::unregisterPMC>(writer, "unregister the component", &componentId);
    ask<&Writer::commit>(writer, "keep the change");
}

}  // namespace orvane
