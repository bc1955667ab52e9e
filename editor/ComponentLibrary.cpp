// The entry points by which a COBIA host registers this library's component, takes it back, and creates it. They have no
// place for a text, so what goes wrong is told by code, and in words to whoever looks into it.
#include "cobia/Error.h"
#include "editor/Component.h"
#include "editor/UnitModule.h"
#include "platform/DebugOutput.h"
#include "platform/ModuleLocation.h"

#include <exception>

#ifdef _WIN32
#define ORVANE_EXPORT __declspec(dllexport)
#else
#define ORVANE_EXPORT __attribute__((visibility("default")))
#endif

using COBIA::CapeResult;

extern "C" {
/// For the current user.
ORVANE_EXPORT CapeResult capeRegisterObjects();
ORVANE_EXPORT CapeResult capeUnregisterObjects();
/// Hands out a new object with one reference; 107 when this library has none of that identifier.
ORVANE_EXPORT CapeResult capeCreateObject(const COBIA::CapeUUID* uuid, COBIA::ICapeInterface** object);
}

namespace {

template <class Body> CapeResult entry(Body&& body) noexcept {
    try {
        body();
        return COBIA::noError;
    }
    catch (const COBIA::cape_open_error& error) {
        return error.code();
    }
    catch (const std::bad_alloc&) {
        return COBIA::outOfMemory;
    }
    catch (const std::exception& error) {
        orvane::debugOutput(std::string("Orvane: ") + error.what());
        return COBIA::noService;
    }
    catch (...) {
        return COBIA::unknownFailure;
    }
}

}  // namespace

CapeResult capeRegisterObjects() {
    return entry(
        [] { orvane::registerComponent(orvane::moduleFile(orvane::addressOf(&capeRegisterObjects))); });
}

CapeResult capeUnregisterObjects() {
    return entry([] { orvane::unregisterComponent(); });
}

CapeResult capeCreateObject(const COBIA::CapeUUID* uuid, COBIA::ICapeInterface** object) {
    if (!uuid || !object) return COBIA::nullPointer;
    *object = nullptr;
    if (*uuid != orvane::componentId) return COBIA::noSuchItem;
    return entry([&] { *object = orvane::createUnit().detach(); });
}
