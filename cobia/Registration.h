// The interfaces by which a component library registers its components with the COBIA runtime, slot by slot.
// Not here: the interfaces that components and hosts offer each other (Interfaces.h).
#pragma once

#include "cobia/Interfaces.h"
#include "cobia/Ref.h"

#include <concepts>

namespace COBIA {

/// Counts references, and can do nothing else.
struct ICobiaBase : Record {
    struct Table {
        void (*addReference)(void* me);
        void (*release)(void* me);
    };
};

template <std::derived_from<ICobiaBase> T> void retain(T* object) noexcept {
    static_cast<const ICobiaBase::Table*>(object->vTbl)->addReference(object->me);
}
template <std::derived_from<ICobiaBase> T> void drop(T* object) noexcept {
    static_cast<const ICobiaBase::Table*>(object->vTbl)->release(object->me);
}

enum class CapePMCServiceType : CapeEnumeration {
    inProcess32 = 0,
    inProcess64 = 1,
    com32 = 2,
    com64 = 3,
    remote = 4,
    local = 5,
};

/// Takes what there is to say of one component; nothing of it counts before commit.
struct ICapePMCRegistrar : ICobiaBase {
    struct Table {
        ICobiaBase::Table base;
        Slot<const CapeCharacter*> putName;
        Slot<const CapeCharacter*> putDescription;
        Slot<const CapeCharacter*> putCapeVersion;
        Slot<const CapeCharacter*> putComponentVersion;
        Slot<const CapeCharacter*> putVendorURL;
        Slot<const CapeCharacter*> putHelpURL;
        Slot<const CapeCharacter*> putAbout;
        Slot<const CapeUUID*> putUUID;
        Slot<const CapeCharacter*> putProgId;
        Slot<const CapeUUID*> addCatID;
        Slot<CapeInteger> putFlags;
        Slot<CapePMCServiceType, const CapeCharacter*> addLocation;  // (serviceType, location)
        Slot<> commit;
        Slot<const CapeCharacter*> putVersionIndependentProgId;
    };
};

struct ICapeRegistryKey;
struct ICapeRegistryKeyWriter;

/// Changes the registry; nothing of it counts before commit.
struct ICapeRegistryWriter : ICobiaBase {
    struct Table {
        ICobiaBase::Table base;
        Slot<const CapeCharacter*, ICapeRegistryKeyWriter**> createKey;  // (keyName, key)
        Slot<const CapeCharacter*, ICapeRegistryKey**> getKey;           // (keyName, key)
        Slot<const CapeCharacter*> deleteKey;
        Slot<const CapeCharacter*, const CapeCharacter*> deleteValue;  // (keyName, valueName)
        Slot<ICapePMCRegistrar**> getPMCRegistrar;
        Slot<const CapeUUID*> unregisterPMC;
        Slot<const CapeUUID*, CapePMCServiceType> unregisterPMCService;  // (uuid, service)
        Slot<> revert;
        Slot<> commit;
        Slot<ICapeArrayString*> registerTypesFromIDL;
        Slot<const CapeUUID*> unregisterTypes;
        // (libraryID, serviceType, location)
        Slot<const CapeUUID*, CapePMCServiceType, const CapeCharacter*> registerProxyInterfaceProvider;
        // (libraryID, serviceType)
        Slot<const CapeUUID*, CapePMCServiceType> unregisterProxyInterfaceProvider;
    };
};

}  // namespace COBIA
