// What a class needs to be an object on the binary interface: the count of references, the look-up of interfaces, the
// last error, and the slots that a template makes from member functions. A class that implements an interface holds no
// glue: it derives from CapeOpenObject with the adapters (Adapters.h) of what it offers, and has the members they name.
// Threads: references, look-ups and last errors from any thread; operations from one thread at a time.
#pragma once

#include "cobia/Error.h"
#include "cobia/Wire.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <mutex>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace COBIA {

/// The part that does not depend on the class. Starts without a reference; make one with makeObject.
class ObjectBase {
public:
    ObjectBase() = default;
    ObjectBase(const ObjectBase&) = delete;
    ObjectBase& operator=(const ObjectBase&) = delete;

    void addReference() noexcept { references_.fetch_add(1, std::memory_order_relaxed); }
    /// The last release destroys the object.
    void release() noexcept {
        if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
    }

    /// The interface with that identifier, not yet counted; null when the object does not offer it.
    virtual ICapeInterface* find(const CapeUUID& uuid) noexcept = 0;

    /// Keeps the error for getLastError, in place of the one before.
    void storeLastError(const cape_open_error& error, const char* scope);
    /// Hands the last error out and forgets it; null when there is none.
    Ref<ICapeError> takeLastError() noexcept;

protected:
    virtual ~ObjectBase() = default;

    /// Who failed, as the source of an error says it.
    virtual std::string errorSource() const = 0;

private:
    std::atomic<std::uint32_t> references_ = 0;
    std::mutex lastErrorMutex_;
    Ref<ICapeError> lastError_;
};

/// A new object, and the reference to it.
template <class Object, class... Arguments> Ref<Object> makeObject(Arguments&&... arguments) {
    return Ref<Object>::share(new Object(std::forward<Arguments>(arguments)...));
}

/// Runs what a slot stands for and turns every exception into a result code. Code 1 leaves a last error behind.
template <class Body> CapeResult operation(ObjectBase& self, const char* scope, Body&& body) noexcept {
    try {
        body();
        return noError;
    }
    catch (const cape_open_error& error) {
        if (error.code() == capeOpenError) self.storeLastError(error, scope);
        return error.code();
    }
    catch (const std::exception& error) {
        self.storeLastError(cape_open_error(error), scope);
        return capeOpenError;
    }
    catch (...) {
        return unknownFailure;
    }
}

template <std::size_t size> struct ScopeText {
    char text[size];
    consteval ScopeText(const char (&literal)[size]) { std::copy_n(literal, size, text); }
};

/// `const T&` is read as a T; `T&` is a result that the member writes.
template <class T>
using ReadAs = std::conditional_t<std::is_const_v<std::remove_reference_t<T>>, std::remove_cvref_t<T>, T>;

/// What a member function takes and gives.
template <class Member> struct MemberShape;
template <class Class, class Result_, class... Arguments_>
struct MemberShape<Result_ (Class::*)(Arguments_...)> {
    using Result = Result_;
    using Arguments = std::tuple<ReadAs<Arguments_>...>;
    static constexpr std::size_t count = sizeof...(Arguments_);
};
template <class Class, class Result, class... Arguments>
struct MemberShape<Result (Class::*)(Arguments...) const> : MemberShape<Result (Class::*)(Arguments...)> {};
template <class Class, class Result, class... Arguments>
struct MemberShape<Result (Class::*)(Arguments...) noexcept> : MemberShape<Result (Class::*)(Arguments...)> {
};
template <class Class, class Result, class... Arguments>
struct MemberShape<Result (Class::*)(Arguments...) const noexcept>
    : MemberShape<Result (Class::*)(Arguments...)> {};

/// The C function for one slot of a table: `.getCount = slot<CollectionAdapter, "ICapeCollection::Count", &Object::count>`.
/// The slot's own type says what it carries; the first arguments go to the member, the rest take its result.
/// A member of the wrong shape does not compile.
template <class Adapter, ScopeText scope, auto member> struct SlotOf {
    using Shape = MemberShape<decltype(member)>;

    template <class... Carried> constexpr operator Slot<Carried...>() const noexcept {
        return &enter<Carried...>;
    }

private:
    template <class... Carried> static CapeResult enter(void* me, Carried... carried) noexcept {
        if ((isMissing(carried) || ...)) return nullPointer;
        auto& self = Adapter::object(me);
        return operation(self, scope.text, [&] {
            const std::tuple<Carried...> all(carried...);
            run(self, all, std::make_index_sequence<Shape::count>(),
                std::make_index_sequence<sizeof...(Carried) - Shape::count>());
        });
    }

    template <class Object, class... Carried, std::size_t... in, std::size_t... out>
    static void run(Object& self, const std::tuple<Carried...>& all, std::index_sequence<in...>,
                    std::index_sequence<out...>) {
        const auto result = [&]() -> decltype(auto) {
            return (self.*
                    member)(In<std::tuple_element_t<in, typename Shape::Arguments>,
                               std::tuple_element_t<in, std::tuple<Carried...>>>::read(std::get<in>(all))...);
        };
        if constexpr (std::is_void_v<typename Shape::Result>)
            result();
        else
            Out<typename Shape::Result>::write(result(), std::get<Shape::count + out>(all)...);
    }
};

template <class Adapter, ScopeText scope, auto member> inline constexpr SlotOf<Adapter, scope, member> slot{};

/// The four slots that every interface begins with.
template <class Adapter>
constexpr ICapeInterface::Table interfaceTable = {
    .addReference = [](void* me) { Adapter::object(me).addReference(); },
    .release = [](void* me) { Adapter::object(me).release(); },
    .queryInterface =
        [](void* me, const CapeUUID* uuid, ICapeInterface** found) {
            if (!uuid || !found) return CapeResult{nullPointer};
            *found = Ref<ICapeInterface>::share(Adapter::object(me).find(*uuid)).detach();
            return CapeResult{*found ? noError : noSuchInterface};
        },
    .getLastError =
        [](void* me, ICapeError** error) {
            if (!error) return CapeResult{nullPointer};
            *error = Adapter::object(me).takeLastError().detach();
            return CapeResult{*error ? noError : noSuchItem};
        },
};

/// A class that offers the adapters' interfaces, besides those of Base.
template <class Object, class Base, template <class> class... Adapters>
class Offering : public Base, public Adapters<Object>... {
public:
    ICapeInterface* find(const CapeUUID& uuid) noexcept override {
        ICapeInterface* found = nullptr;
        // The first interface is also the one that answers for ICapeInterface itself.
        ((found = found ? found : findIn<Adapters<Object>>(uuid)), ...);
        return found ? found : findInBase(uuid);
    }

    /// One of the interfaces, borrowed: `as<ICapeUnit>()`.
    template <class I> I* as() noexcept { return static_cast<I*>(find(I::uuid)); }

protected:
    template <class... Arguments>
    explicit Offering(Arguments&&... arguments) : Base(std::forward<Arguments>(arguments)...) {}

private:
    template <class Adapter> ICapeInterface* findIn(const CapeUUID& uuid) noexcept {
        constexpr bool itself = std::is_same_v<Base, ObjectBase>;
        const bool wanted = uuid == Adapter::Offered::uuid || (itself && uuid == ICapeInterface::uuid);
        return wanted ? &static_cast<Adapter*>(this)->offered : nullptr;
    }
    ICapeInterface* findInBase(const CapeUUID& uuid) noexcept {
        if constexpr (std::is_same_v<Base, ObjectBase>)
            return nullptr;
        else
            return Base::find(uuid);
    }
};

template <class Object, template <class> class... Adapters>
using CapeOpenObject = Offering<Object, ObjectBase, Adapters...>;

}  // namespace COBIA
