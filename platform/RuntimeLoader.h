// The COBIA runtime that is installed on this machine, as a table of its entry points. We do not link against
// it: where it is missing, everything but its own services works all the same.
// Not here: where it is registered (RuntimeRegistry).
#pragma once

#include "cobia/Interfaces.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace COBIA {
struct ICapeRegistryKey;
struct ICapeRegistryWriter;
struct ICapeLibraryEnumerator;
struct ICapePMCEnumerator;
struct ICobiaDataClassFactory;
}  // namespace COBIA

namespace orvane {

/// No entry point is null. Interfaces that are handed out carry a reference, which the receiver releases.
struct Runtime {
    using CapeResult = COBIA::CapeResult;
    using CapeCharacter = COBIA::CapeCharacter;
    using CapeUUID = COBIA::CapeUUID;
    using ICapeString = COBIA::ICapeString;
    using ICapeInterface = COBIA::ICapeInterface;

    CapeUUID (*capeGenUUID)();
    CapeResult (*capeUUIDFromString)(const CapeCharacter* text, CapeUUID* uuid);
    CapeResult (*capeStringFromUUID)(const CapeUUID* uuid, ICapeString* text);
    CapeResult (*getCobiaLanguage)(ICapeString* result);
    CapeResult (*getCobiaVersion)(ICapeString* result);
    CapeResult (*getCobiaDataFolder)(ICapeString* result);
    CapeResult (*getCobiaFolder)(ICapeString* result);
    CapeResult (*getCobiaUserDataFolder)(ICapeString* result);
    CapeResult (*getErrorDescription)(CapeResult code, ICapeString* text);
    CapeResult (*capeGetRegistryKey)(const CapeCharacter* keyName, COBIA::ICapeRegistryKey** key);
    CapeResult (*capeGetRegistryWriter)(bool allUsers, COBIA::ICapeRegistryWriter** writer);
    CapeResult (*capeGetLibraryEnumerator)(COBIA::ICapeLibraryEnumerator** enumerator);
    CapeResult (*capeGetPMCEnumerator)(COBIA::ICapePMCEnumerator** enumerator);
    CapeResult (*cobiaCreatePMCInstance)(const CapeUUID* uuid, std::int32_t flags, ICapeInterface** instance);
    COBIA::CapeBoolean (*cobiaDepersistFromTransitionFormat)(ICapeInterface* reader,
                                                             ICapeInterface** transitionFormat,
                                                             COBIA::CapeInteger major,
                                                             COBIA::CapeInteger minor);
    CapeResult (*cobiaDepersistPMCFromTransitionFormat)(ICapeInterface* pmc, ICapeInterface* reader,
                                                        COBIA::CapeInteger major, COBIA::CapeInteger minor);
    COBIA::ICobiaDataClassFactory* (*capeGetDataClassFactory)();

    /// What capeGetDataClassFactory gave when the runtime was loaded; the runtime's own.
    COBIA::ICobiaDataClassFactory* dataClassFactory;
};

/// The runtime of this process, null when there is none. The first call finds it, loads it and makes it the
/// source of COBIA::errorDescription; createOrvane calls it, so that this has happened before any other
/// thread has a unit. Nothing that goes wrong on the way is reported: there is then no runtime. Any thread;
/// waits for a first call that is under way.
const Runtime* runtime() noexcept;

/// The table of a library's entry points, from a function that gives the address for a name, or null. Nullopt
/// when one is missing, or when the runtime says that its version is below 1.2.1; one that cannot say it is
/// taken.
std::optional<Runtime> bindRuntime(const std::function<void*(const char*)>& find);

/// Loads the runtime library of a folder. Nullopt when there is none, or one that bindRuntime does not take.
std::optional<Runtime> loadRuntime(const std::string& folder);

}  // namespace orvane
