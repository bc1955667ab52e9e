#include "cobia/Object.h"

namespace COBIA {

void ObjectBase::storeLastError(const cape_open_error& error, const char* scope) {
    const bool chained = error.errorObject() != nullptr;
    Ref<ICapeError> stored = makeError(chained ? "CAPE-OPEN error" : error.directText(), scope, errorSource(),
                                       Ref<ICapeError>::share(error.errorObject()));
    const std::lock_guard lock(lastErrorMutex_);
    std::swap(lastError_, stored);
}

Ref<ICapeError> ObjectBase::takeLastError() noexcept {
    const std::lock_guard lock(lastErrorMutex_);
    return std::exchange(lastError_, nullptr);
}

}  // namespace COBIA
