// The handle that holds a counted reference, to an interface of the other side or to an object of our own.
// Outside of it nobody writes addReference or release.
#pragma once

#include "cobia/Interfaces.h"

#include <concepts>
#include <cstddef>
#include <utility>

namespace COBIA {

/// An interface with the slots of ICapeInterface.
template <class T>
concept Interface = std::derived_from<T, ICapeInterface>;

template <Interface T> void retain(T* interface) noexcept {
    static_cast<const ICapeInterface::Table*>(interface->vTbl)->addReference(interface->me);
}
template <Interface T> void drop(T* interface) noexcept {
    static_cast<const ICapeInterface::Table*>(interface->vTbl)->release(interface->me);
}
inline void retain(ICapeError* error) noexcept {
    static_cast<const ICapeError::Table*>(error->vTbl)->addReference(error->me);
}
inline void drop(ICapeError* error) noexcept {
    static_cast<const ICapeError::Table*>(error->vTbl)->release(error->me);
}

/// An object of our own that counts its references.
template <class T>
concept Counted = requires(T& object) {
    object.addReference();
    object.release();
};
template <Counted T> void retain(T* object) noexcept { object->addReference(); }
template <Counted T> void drop(T* object) noexcept { object->release(); }

/// Owns one reference, or none.
template <class T> class Ref {
public:
    Ref() noexcept = default;
    Ref(std::nullptr_t) noexcept {}
    Ref(const Ref& other) noexcept : Ref(share(other.pointer_)) {}
    Ref(Ref&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    template <std::derived_from<T> U> Ref(Ref<U> other) noexcept : pointer_(other.detach()) {}
    ~Ref() {
        if (pointer_) drop(pointer_);
    }

    /// The old reference goes last, when *this is whole again: releasing may come back and look at us.
    Ref& operator=(Ref other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }

    /// Takes over a reference that was handed to us.
    static Ref adopt(T* handedOut) noexcept {
        Ref result;
        result.pointer_ = handedOut;
        return result;
    }
    /// Someone else's pointer, so takes a reference of our own.
    static Ref share(T* borrowed) noexcept {
        if (borrowed) retain(borrowed);
        return adopt(borrowed);
    }

    T* get() const noexcept { return pointer_; }
    T* operator->() const noexcept { return pointer_; }
    T& operator*() const noexcept { return *pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    /// Gives the reference away; *this is empty afterwards.
    T* detach() noexcept { return std::exchange(pointer_, nullptr); }

    /// Where a function that hands out a reference writes it. What was held is released first.
    T** receive() noexcept {
        *this = nullptr;
        return &pointer_;
    }

    friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.pointer_ == b.pointer_; }

private:
    T* pointer_ = nullptr;
};

}  // namespace COBIA
