// What a host is given when it asks for the unit's ports or parameters: a CAPE-OPEN collection, by index and by name
// without regard to case.
#pragma once

#include "cobia/Adapters.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace orvane {

/// Item: Port or Parameter. The collection holds a reference to each.
template <class Item>
class Collection
    : public COBIA::CapeOpenObject<Collection<Item>, COBIA::CollectionAdapter, COBIA::IdentificationAdapter> {
public:
    /// kind: what is collected, "Port" or "Parameter".
    explicit Collection(const std::string& kind) : name_(kind + " collection") {}

    // ICapeCollection. What is not there: code 107.

    COBIA::Ref<COBIA::ICapeInterface> itemByIndex(COBIA::CapeInteger index) const {
        if (index < 0 || index >= count()) throw COBIA::cape_open_error(COBIA::noSuchItem);
        return interfaceOf(items_[static_cast<std::size_t>(index)]);
    }
    COBIA::Ref<COBIA::ICapeInterface> itemByName(const std::string& name) const {
        const auto found = index_.find(COBIA::lowerCase(name));
        if (found == index_.end()) throw COBIA::cape_open_error(COBIA::noSuchItem);
        return interfaceOf(items_[found->second]);
    }
    COBIA::CapeInteger count() const { return static_cast<COBIA::CapeInteger>(items_.size()); }

    // ICapeIdentification. The host may not change what a collection is called: code 106.

    std::string name() const { return name_; }
    void setName(const std::string&) { throw COBIA::cape_open_error(COBIA::denied); }
    std::string description() const { return name_; }
    void setDescription(const std::string&) { throw COBIA::cape_open_error(COBIA::denied); }

    const std::vector<COBIA::Ref<Item>>& items() const noexcept { return items_; }

    void replace(std::vector<COBIA::Ref<Item>> items) {
        items_ = std::move(items);
        index_.clear();
        for (std::size_t i = 0; i < items_.size(); ++i)
            index_.emplace(COBIA::lowerCase(items_[i]->name()), i);
    }

protected:
    std::string errorSource() const override { return name_; }

private:
    static COBIA::Ref<COBIA::ICapeInterface> interfaceOf(const COBIA::Ref<Item>& item) {
        return COBIA::Ref<COBIA::ICapeInterface>::share(item->template as<COBIA::ICapeInterface>());
    }

    std::string name_;
    std::vector<COBIA::Ref<Item>> items_;
    std::unordered_map<std::string, std::size_t> index_;  // by the lower-cased name
};

}  // namespace orvane
