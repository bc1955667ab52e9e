// Null pointers, systematically: every slot of every interface that we implement, with each of its pointers null in turn,
// as a careless host may call it. Each must answer "null pointer" before anything runs and anything is stored.
// Left out: interfaces that are passed in, since a null one has a meaning of its own to some slots.
#pragma once

#include "cobia/Call.h"
#include "cobia/HostAdapters.h"

#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace orvane::test {

/// The slots of an interface, in their order. One that is left out does not compile.
template <class I> struct SlotsOf;

#define ORVANE_SLOTS(INTERFACE, ...)                                                                         \
    template <> struct SlotsOf<COBIA::INTERFACE> {                                                           \
        using T = COBIA::INTERFACE::Table;                                                                   \
        static constexpr std::tuple all{__VA_ARGS__};                                                        \
        static_assert(sizeof(T) == sizeof(COBIA::ICapeInterface::Table) +                                    \
                                       std::tuple_size_v<decltype(all)> * sizeof(void (*)()));               \
    };

ORVANE_SLOTS(ICapeIdentification, &T::getComponentName, &T::putComponentName, &T::getComponentDescription,
             &T::putComponentDescription)
ORVANE_SLOTS(ICapeCollection, &T::ItemByIndex, &T::ItemByName, &T::getCount)
ORVANE_SLOTS(ICapeParameter, &T::getValStatus, &T::getMode, &T::getType, &T::Validate, &T::Reset)
ORVANE_SLOTS(ICapeParameterSpecification, &T::getType)
ORVANE_SLOTS(ICapeRealParameter, &T::getValue, &T::putValue, &T::getDefaultValue, &T::getLowerBound,
             &T::getUpperBound, &T::getDimensionality, &T::Validate)
ORVANE_SLOTS(ICapeRealParameterSpecification, &T::getDefaultValue, &T::getLowerBound, &T::getUpperBound,
             &T::getDimensionality, &T::Validate)
ORVANE_SLOTS(ICapeIntegerParameter, &T::getValue, &T::putValue, &T::getDefaultValue, &T::getLowerBound,
             &T::getUpperBound, &T::Validate)
ORVANE_SLOTS(ICapeIntegerParameterSpecification, &T::getDefaultValue, &T::getLowerBound, &T::getUpperBound,
             &T::Validate)
ORVANE_SLOTS(ICapeStringParameter, &T::getValue, &T::putValue, &T::getDefaultValue, &T::getOptionList,
             &T::getRestrictedToList, &T::Validate)
ORVANE_SLOTS(ICapeStringParameterSpecification, &T::getDefaultValue, &T::getOptionList,
             &T::getRestrictedToList, &T::Validate)
ORVANE_SLOTS(ICapeBooleanParameter, &T::getValue, &T::putValue, &T::getDefaultValue, &T::Validate)
ORVANE_SLOTS(ICapeBooleanParameterSpecification, &T::getDefaultValue, &T::Validate)
ORVANE_SLOTS(ICapeArrayParameter, &T::getNumDimensions, &T::getSize)
ORVANE_SLOTS(ICapeArrayParameterSpecification, &T::getNumDimensions, &T::getSize)
ORVANE_SLOTS(ICapeArrayRealParameter, &T::getValue, &T::putValue, &T::GetElementValue, &T::SetElementValue,
             &T::getDefaultValue, &T::getLowerBound, &T::getUpperBound, &T::getDimensionality,
             &T::ValidateElement, &T::Validate)
ORVANE_SLOTS(ICapeArrayRealParameterSpecification, &T::getDefaultValue, &T::getLowerBound, &T::getUpperBound,
             &T::getDimensionality, &T::ValidateElement, &T::Validate)
ORVANE_SLOTS(ICapeUnit, &T::ports, &T::getValStatus, &T::Calculate, &T::Validate)
ORVANE_SLOTS(ICapeUtilities, &T::getParameters, &T::putSimulationContext, &T::Initialize, &T::Terminate,
             &T::Edit)
ORVANE_SLOTS(ICapeUnitPort, &T::getPortType, &T::getDirection, &T::getConnectedObject, &T::Connect,
             &T::Disconnect)
ORVANE_SLOTS(ICapePersist, &T::Save, &T::Load, &T::getIsDirty)
ORVANE_SLOTS(ICapeReport, &T::getReportNames, &T::ReportTypes, &T::ReportLocales, &T::CheckReportSpec,
             &T::GenerateReport, &T::GenerateReportFile)

#undef ORVANE_SLOTS

/// Something to pass where it is not a null's turn: numbers, and null for interfaces and windows that are passed in.
template <class T> struct Given {
    T get() { return T{}; }
};
template <class T>
requires(!std::is_class_v<T> && !std::is_void_v<T>) struct Given<T*> {
    T value{};
    T* get() { return &value; }
};
template <> struct Given<COBIA::ICapeString*> {
    COBIA::StringObject text;
    COBIA::ICapeString* get() { return text.out(); }
};
template <> struct Given<COBIA::ICapeArrayString*> {
    COBIA::StringArray texts;
    COBIA::ICapeArrayString* get() { return texts.out(); }
};
template <class T>
requires std::is_arithmetic_v<typename T::Element>
struct Given<T*> {
    COBIA::ArrayObject<T> values;
    T* get() { return values.out(); }
};

/// Pointers of ours that must not be null: every one but interfaces and windows that are passed in.
template <class T>
constexpr bool mustNotBeNull = std::is_pointer_v<T> && !std::is_void_v<std::remove_pointer_t<T>> &&
                               !std::is_base_of_v<COBIA::ICapeInterface, std::remove_pointer_t<T>>;

/// What went wrong in a sweep, and how much was swept.
struct NullSweep {
    std::vector<std::string> faults;  // "ICapeUnit slot 3, argument 1: code 0"
    int interfaces = 0;
    int calls = 0;
};

template <class T> T orNull(T argument, bool null) {
    if constexpr (std::is_pointer_v<T>)
        return null ? nullptr : argument;
    else
        return argument;
}

template <class Table, class... Arguments, std::size_t... at>
void sweepSlot(COBIA::ICapeInterface* object, COBIA::Slot<Arguments...> Table::*slot, const std::string& name,
               NullSweep& sweep, std::index_sequence<at...>) {
    constexpr bool guarded[] = {mustNotBeNull<Arguments>..., false};
    for (std::size_t null = 0; null < sizeof...(Arguments); ++null) {
        if (!guarded[null]) continue;
        std::tuple<Given<Arguments>...> given;
        const auto* table = static_cast<const Table*>(object->vTbl);
        const COBIA::CapeResult code =
            (table->*slot)(object->me, orNull<Arguments>(std::get<at>(given).get(), at == null)...);
        ++sweep.calls;
        if (code != COBIA::nullPointer)
            sweep.faults.push_back(name + ", argument " + std::to_string(null) + ": code " +
                                   std::to_string(code));
    }
}

/// The slots of one interface, the first four included, where the object offers it.
template <class I> void sweepInterface(COBIA::ICapeInterface* object, const char* name, NullSweep& sweep) {
    const auto offered = COBIA::query<I>(object);
    if (!offered) return;
    ++sweep.interfaces;
    const auto* base = static_cast<const COBIA::ICapeInterface::Table*>(offered->vTbl);
    COBIA::ICapeInterface* found = nullptr;
    for (const COBIA::CapeResult code :
         {base->queryInterface(offered->me, nullptr, &found),
          base->queryInterface(offered->me, &I::uuid, nullptr), base->getLastError(offered->me, nullptr)}) {
        ++sweep.calls;
        if (code != COBIA::nullPointer) sweep.faults.push_back(std::string(name) + ", the first slots");
    }
    std::apply(
        [&](auto... slots) {
            int number = 0;
            const auto each = [&]<class... A>(COBIA::Slot<A...> I::Table::*slot) {
                sweepSlot(offered.get(), slot, std::string(name) + " slot " + std::to_string(number++), sweep,
                          std::index_sequence_for<A...>());
            };
            (each(slots), ...);
        },
        SlotsOf<I>::all);
}

/// All interfaces of an object.
inline void sweepObject(COBIA::ICapeInterface* object, NullSweep& sweep) {
#define ORVANE_SWEEP(INTERFACE) sweepInterface<COBIA::INTERFACE>(object, #INTERFACE, sweep)
    ORVANE_SWEEP(ICapeIdentification);
    ORVANE_SWEEP(ICapeCollection);
    ORVANE_SWEEP(ICapeParameter);
    ORVANE_SWEEP(ICapeParameterSpecification);
    ORVANE_SWEEP(ICapeRealParameter);
    ORVANE_SWEEP(ICapeRealParameterSpecification);
    ORVANE_SWEEP(ICapeIntegerParameter);
    ORVANE_SWEEP(ICapeIntegerParameterSpecification);
    ORVANE_SWEEP(ICapeStringParameter);
    ORVANE_SWEEP(ICapeStringParameterSpecification);
    ORVANE_SWEEP(ICapeBooleanParameter);
    ORVANE_SWEEP(ICapeBooleanParameterSpecification);
    ORVANE_SWEEP(ICapeArrayParameter);
    ORVANE_SWEEP(ICapeArrayParameterSpecification);
    ORVANE_SWEEP(ICapeArrayRealParameter);
    ORVANE_SWEEP(ICapeArrayRealParameterSpecification);
    ORVANE_SWEEP(ICapeUnit);
    ORVANE_SWEEP(ICapeUtilities);
    ORVANE_SWEEP(ICapeUnitPort);
    ORVANE_SWEEP(ICapePersist);
    ORVANE_SWEEP(ICapeReport);
#undef ORVANE_SWEEP
}

/// An object and, where it is a collection, its items with theirs.
inline void sweepTree(COBIA::ICapeInterface* object, NullSweep& sweep) {
    sweepObject(object, sweep);
    const auto collection = COBIA::query<COBIA::ICapeCollection>(object);
    if (!collection) return;
    COBIA::CapeInteger count = 0;
    COBIA::call<&COBIA::ICapeCollection::Table::getCount>(collection, &count);
    for (COBIA::CapeInteger i = 0; i < count; ++i)
        sweepTree(COBIA::obtain<COBIA::ICapeInterface, &COBIA::ICapeCollection::Table::ItemByIndex>(
                      collection.get(), i)
                      .get(),
                  sweep);
}

}  // namespace orvane::test
