// A unit operation as the benchmarks drive it.
#pragma once

#include "cobia/Call.h"
#include "host/ModuleLoader.h"
#include "host/PersistStore.h"

#include <filesystem>

namespace orvane::bench {

using namespace COBIA;

inline constexpr const char* feedAndProduct =
    "def Configure(unit):\n"
    "    unit.add_port('Feed', unit.PortType.MATERIAL, unit.PortDirection.FEED)\n"
    "    unit.add_port('Product', unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)\n"
    "    unit.add_parameter('N', unit.ParameterType.INTEGER, unit.ParameterMode.INPUT, default=1)\n";

/// A unit as a host holds it.
class Unit {
public:
    /// Without a script: the default one.
    explicit Unit(const char* script = nullptr) {
        static const host::ModuleLoader module(std::filesystem::path(ORVANE_BIN) / "Orvane3.14.so");
        object_ = module.createUnit();
        if (script) load(script);
    }
    /// With a feed and a product connected, ready to calculate.
    Unit(const char* script, ICapeInterface* feed, ICapeInterface* product) : Unit(script) {
        connect("Feed", feed);
        connect("Product", product);
    }

    /// The host's first request after loading: the script is run, and its Configure.
    void configure() { ports(); }

    void calculate() { call<&ICapeUnit::Table::Calculate>(unit()); }

    template <class I> Ref<I> parameter(const char* name) {
        const auto all = obtain<ICapeCollection, &ICapeUtilities::Table::getParameters>(
            query<ICapeUtilities>(object_).get());
        return query<I>(
            obtain<ICapeInterface, &ICapeCollection::Table::ItemByName>(all.get(), StringObject(name).in()));
    }

private:
    Ref<ICapeCollection> ports() const {
        return obtain<ICapeCollection, &ICapeUnit::Table::ports>(unit().get());
    }
    Ref<ICapeUnit> unit() const { return query<ICapeUnit>(object_); }

    void load(const char* script) {
        const auto store = makeObject<host::PersistStore>();
        store->addString("python", script);
        for (const char* item : {"lastOutput", "runReportHeader", "runReportFooter"})
            store->addString(item, "");
        store->addTexts("parameterNames", {});
        store->addIntegers("parameterTypes", {});
        call<&ICapePersist::Table::Load>(query<ICapePersist>(object_), store->as<ICapePersistReader>());
    }

    void connect(const char* name, ICapeInterface* object) {
        const auto port = obtain<ICapeInterface, &ICapeCollection::Table::ItemByName>(
            ports().get(), StringObject(name).in());
        call<&ICapeUnitPort::Table::Connect>(query<ICapeUnitPort>(port), object);
    }

    Ref<ICapeInterface> object_;
};

}  // namespace orvane::bench
