#include "host/PersistStore.h"

#include <algorithm>

namespace orvane::host {
namespace {

template <class Element> std::vector<Element> copy(std::span<const Element> values) {
    return {values.begin(), values.end()};
}

template <class Pairs> auto entry(Pairs& pairs, const std::string& name) {
    return std::ranges::find(pairs, name, [](const auto& pair) -> const std::string& { return pair.first; });
}

template <class Pairs> std::vector<std::string> names(const Pairs& pairs) {
    std::vector<std::string> result;
    for (const auto& pair : pairs) result.push_back(pair.first);
    return result;
}

}  // namespace

void PersistStore::addEnumeration(std::string name, COBIA::CapeEnumeration value) {
    add<Kind::enumeration>(std::move(name), value);
}
void PersistStore::addReals(std::string name, Span<double> values) {
    add<Kind::arrayReal>(std::move(name), copy(values));
}
void PersistStore::addIntegers(std::string name, Span<COBIA::CapeInteger> values) {
    add<Kind::arrayInteger>(std::move(name), copy(values));
}
void PersistStore::addBooleans(std::string name, Span<COBIA::CapeBoolean> values) {
    add<Kind::arrayBoolean>(std::move(name), copy(values));
}
void PersistStore::addEnumerations(std::string name, Span<COBIA::CapeEnumeration> values) {
    add<Kind::arrayEnumeration>(std::move(name), copy(values));
}
void PersistStore::addBytes(std::string name, Span<COBIA::CapeByte> values) {
    add<Kind::arrayByte>(std::move(name), copy(values));
}

void PersistStore::addStrings(std::string name, COBIA::TextsView values) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < values.size(); ++i) texts.push_back(COBIA::toUtf8(values[i]));
    addTexts(std::move(name), std::move(texts));
}

void PersistStore::addTexts(std::string name, std::vector<std::string> texts) {
    add<Kind::arrayString>(std::move(name), std::move(texts));
}

void PersistStore::addValues(std::string name, COBIA::ValuesView values) {
    std::vector<Value> content;
    for (std::size_t i = 0; i < values.size(); ++i) content.push_back(values[i]);
    add<Kind::arrayValue>(std::move(name), std::move(content));
}

COBIA::Ref<COBIA::ICapePersistWriter> PersistStore::addNode(std::string name) {
    auto node = COBIA::makeObject<PersistStore>();
    const auto result = COBIA::Ref<COBIA::ICapePersistWriter>::share(node->as<COBIA::ICapePersistWriter>());
    if (const auto old = entry(nodes_, name); old != nodes_.end())
        old->second = std::move(node);
    else
        nodes_.emplace_back(std::move(name), std::move(node));
    return result;
}

void PersistStore::put(std::string name, Stored content) {
    if (const auto old = entry(items_, name); old != items_.end())
        old->second = std::move(content);
    else
        items_.emplace_back(std::move(name), std::move(content));
}

const PersistStore::Stored& PersistStore::stored(const std::string& name) const {
    const auto found = entry(items_, name);
    if (found == items_.end()) fail(name, COBIA::noSuchItem);
    return found->second;
}

std::vector<std::string> PersistStore::valueNames() const { return names(items_); }

COBIA::CapePersistedDataType PersistStore::valueType(std::string name) const {
    return static_cast<Kind>(stored(name).index());
}

std::vector<COBIA::CapeEnumeration> PersistStore::enumerations(std::string name) const {
    return get<Kind::arrayEnumeration>(name);
}

std::vector<std::string> PersistStore::nodeNames() const { return names(nodes_); }

COBIA::Ref<COBIA::ICapePersistReader> PersistStore::node(std::string name) const {
    const auto found = entry(nodes_, name);
    if (found == nodes_.end()) throw COBIA::cape_open_error(COBIA::noSuchItem);
    return COBIA::Ref<COBIA::ICapePersistReader>::share(found->second->as<COBIA::ICapePersistReader>());
}

void PersistStore::fail(const std::string& name, COBIA::CapeResult code) const {
    failedItem_ = name;
    throw COBIA::cape_open_error(code);
}

}  // namespace orvane::host
