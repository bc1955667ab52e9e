// The one export of the library: how a simulator gets a unit operation.
#include "platform/RuntimeLoader.h"
#include "unit/OrvaneOperation.h"

#ifdef _WIN32
#define ORVANE_EXPORT __declspec(dllexport)
#else
#define ORVANE_EXPORT __attribute__((visibility("default")))
#endif

/// Hands out a new unit operation with one reference; never fails by code, but for a null pointer or want of memory.
extern "C" ORVANE_EXPORT COBIA::CapeResult createOrvane(COBIA::ICapeInterface** result);

COBIA::CapeResult createOrvane(COBIA::ICapeInterface** result) {
    if (!result) return COBIA::nullPointer;
    *result = nullptr;
    try {
        orvane::runtime();
        auto unit = COBIA::makeObject<orvane::OrvaneOperation>();
        *result = unit->as<COBIA::ICapeInterface>();
        unit.detach();
        return COBIA::noError;
    }
    catch (const std::bad_alloc&) {
        return COBIA::outOfMemory;
    }
    catch (...) {
        return COBIA::unknownFailure;
    }
}
