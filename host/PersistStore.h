// What a unit saves and loads: named values and sub-nodes in memory, in the order in which they came.
// Not here: the form on a disk.
// Threads: one at a time.
#pragma once

#include "cobia/HostAdapters.h"

#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace orvane::host {

/// Both sides of persistence over one store. Names are exact, letter case included. A name that is added
/// again takes the new value in the old place. Asking for a name that is not there answers 107, for a value
/// as another type than it was stored as 111.
class PersistStore
    : public COBIA::CapeOpenObject<PersistStore, COBIA::PersistWriterAdapter, COBIA::PersistReaderAdapter> {
public:
    using Value = COBIA::ValueObject::Content;
    template <class Element> using Span = std::span<const Element>;
    using Kind = COBIA::CapePersistedDataType;

    // ICapePersistWriter
    void addReal(std::string name, double value) { add<Kind::real>(std::move(name), value); }
    void addInteger(std::string name, COBIA::CapeInteger value) {
        add<Kind::integer>(std::move(name), value);
    }
    void addBoolean(std::string name, bool value) { add<Kind::boolean>(std::move(name), value); }
    void addString(std::string name, std::string value) {
        add<Kind::string>(std::move(name), std::move(value));
    }
    void addEnumeration(std::string name, COBIA::CapeEnumeration value);
    void addValue(std::string name, Value value) { add<Kind::value>(std::move(name), std::move(value)); }
    void addReals(std::string name, Span<double> values);
    void addIntegers(std::string name, Span<COBIA::CapeInteger> values);
    void addBooleans(std::string name, Span<COBIA::CapeBoolean> values);
    void addStrings(std::string name, COBIA::TextsView values);
    void addEnumerations(std::string name, Span<COBIA::CapeEnumeration> values);
    void addValues(std::string name, COBIA::ValuesView values);
    void addBytes(std::string name, Span<COBIA::CapeByte> values);
    COBIA::Ref<COBIA::ICapePersistWriter> addNode(std::string name);

    /// The item whose reading failed last; empty when none did.
    const std::string& failedItem() const { return failedItem_; }

    /// The host's own way to add texts.
    void addTexts(std::string name, std::vector<std::string> texts);

    // ICapePersistReader
    std::vector<std::string> valueNames() const;
    COBIA::CapePersistedDataType valueType(std::string name) const;
    double real(std::string name) const { return get<Kind::real>(name); }
    COBIA::CapeInteger integer(std::string name) const { return get<Kind::integer>(name); }
    bool boolean(std::string name) const { return get<Kind::boolean>(name); }
    std::string string(std::string name) const { return get<Kind::string>(name); }
    COBIA::CapeEnumeration enumeration(std::string name) const { return get<Kind::enumeration>(name); }
    Value value(std::string name) const { return get<Kind::value>(name); }
    std::vector<double> reals(std::string name) const { return get<Kind::arrayReal>(name); }
    std::vector<COBIA::CapeInteger> integers(std::string name) const { return get<Kind::arrayInteger>(name); }
    std::vector<COBIA::CapeBoolean> booleans(std::string name) const { return get<Kind::arrayBoolean>(name); }
    std::vector<std::string> strings(std::string name) const { return get<Kind::arrayString>(name); }
    std::vector<COBIA::CapeEnumeration> enumerations(std::string name) const;
    std::vector<Value> values(std::string name) const { return get<Kind::arrayValue>(name); }
    std::vector<COBIA::CapeByte> bytes(std::string name) const { return get<Kind::arrayByte>(name); }
    std::vector<std::string> nodeNames() const;
    COBIA::Ref<COBIA::ICapePersistReader> node(std::string name) const;

protected:
    std::string errorSource() const override { return "saved state"; }

private:
    // The alternatives stand in the order of CapePersistedDataType, so that its codes are their indices.
    using Stored =
        std::variant<double, COBIA::CapeInteger, bool, std::string, COBIA::CapeEnumeration, Value,
                     std::vector<double>, std::vector<COBIA::CapeInteger>, std::vector<COBIA::CapeBoolean>,
                     std::vector<std::string>, std::vector<COBIA::CapeEnumeration>, std::vector<Value>,
                     std::vector<COBIA::CapeByte>>;

    template <Kind kind, class Given> void add(std::string name, Given&& content) {
        put(std::move(name),
            Stored(std::in_place_index<static_cast<std::size_t>(kind)>, std::forward<Given>(content)));
    }
    template <Kind kind> using Content = std::variant_alternative_t<static_cast<std::size_t>(kind), Stored>;
    template <Kind kind> const Content<kind>& get(const std::string& name) const {
        const auto* content = std::get_if<static_cast<std::size_t>(kind)>(&stored(name));
        if (!content) fail(name, wrongType);
        return *content;
    }
    void put(std::string name, Stored content);
    const Stored& stored(const std::string& name) const;
    [[noreturn]] void fail(const std::string& name, COBIA::CapeResult code) const;

    static constexpr COBIA::CapeResult wrongType = 111;

    std::vector<std::pair<std::string, Stored>> items_;
    std::vector<std::pair<std::string, COBIA::Ref<PersistStore>>> nodes_;
    mutable std::string failedItem_;
};

}  // namespace orvane::host
