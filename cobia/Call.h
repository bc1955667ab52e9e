// Calling the interfaces of the other side: a result code that is not success becomes an exception at once.
#pragma once

#include "cobia/Data.h"
#include "cobia/Error.h"

#include <type_traits>

namespace COBIA {

/// Calls a slot: `call<&ICapeUnit::Table::Calculate>(unit)`. A null interface throws cape_open_error with code 103, any
/// other failure one with the code and the interface's own error object.
template <auto slot, Interface I, class... Arguments> void call(I* object, Arguments... arguments) {
    if (!object) throw cape_open_error(nullPointer);
    const auto* table = static_cast<const typename I::Table*>(object->vTbl);
    if (const CapeResult code = (table->*slot)(object->me, arguments...)) throw cape_open_error(code, object);
}

template <auto slot, Interface I, class... Arguments>
void call(const Ref<I>& object, Arguments... arguments) {
    call<slot>(object.get(), arguments...);
}

/// Calls a slot that hands out a reference.
template <class Given, auto slot, Interface I, class... Arguments>
Ref<Given> obtain(I* object, Arguments... arguments) {
    Given* handedOut = nullptr;
    call<slot>(object, arguments..., &handedOut);
    return Ref<Given>::adopt(handedOut);
}

/// Asks an object for another of its interfaces; empty when it has none.
template <Interface Wanted> Ref<Wanted> query(ICapeInterface* object) noexcept {
    if (!object) return nullptr;
    ICapeInterface* found = nullptr;
    const auto* table = static_cast<const ICapeInterface::Table*>(object->vTbl);
    if (table->queryInterface(object->me, &Wanted::uuid, &found) != noError) return nullptr;
    return Ref<Wanted>::adopt(static_cast<Wanted*>(found));
}

template <Interface Wanted, Interface I> Ref<Wanted> query(const Ref<I>& object) noexcept {
    return query<Wanted>(object.get());
}

/// A slot that gives a text, as UTF-8.
template <auto slot, Interface I, class... Arguments> std::string text(I* object, Arguments... arguments) {
    StringObject result;
    call<slot>(object, arguments..., result.out());
    return result.utf8();
}

}  // namespace COBIA
