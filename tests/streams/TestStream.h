// What a host connects to energy and information ports: a collection of parameters, with switches to hide interfaces and
// to fail.
#pragma once

#include "cobia/Adapters.h"

#include <algorithm>
#include <string>
#include <vector>

namespace orvane::test {

/// How many objects of the host are alive.
inline int liveObjects = 0;

/// Interfaces that an object does not admit to, besides its own.
class Hiding {
public:
    template <class I> void hide() { hidden_.push_back(I::uuid); }

protected:
    Hiding() { ++liveObjects; }
    ~Hiding() { --liveObjects; }
    bool hides(const COBIA::CapeUUID& uuid) const noexcept {
        return std::ranges::find(hidden_, uuid) != hidden_.end();
    }

private:
    std::vector<COBIA::CapeUUID> hidden_;
};

class TestParameter final
    : public Hiding,
      public COBIA::CapeOpenObject<TestParameter, COBIA::ParameterAdapter, COBIA::RealParameterAdapter,
                                   COBIA::IdentificationAdapter> {
public:
    TestParameter(std::string name, double value, std::vector<double> dimensionality)
        : name_(std::move(name)), value_(value), dimensionality_(std::move(dimensionality)) {}

    COBIA::ICapeInterface* find(const COBIA::CapeUUID& uuid) noexcept override {
        return hides(uuid) ? nullptr : Offering::find(uuid);
    }

    /// From now on setting a value above this one fails.
    double bound = 1e9;
    bool failing = false;
    COBIA::CapeParamType kind = COBIA::CapeParamType::real;

    double value() const {
        if (failing) throw COBIA::StringException("the stream is gone");
        return value_;
    }
    void setValue(double value) {
        if (value > bound) throw COBIA::StringException() << "above " << bound;
        value_ = value;
    }

    COBIA::CapeValidationStatus validationStatus() const { return COBIA::CapeValidationStatus::valid; }
    COBIA::CapeParamMode mode() const { return COBIA::CapeParamMode::inputOutput; }
    COBIA::CapeParamType type() const { return kind; }
    COBIA::Verdict validate() { return {true, {}}; }
    void reset() {}
    double defaultValue() const { return 0; }
    double lowerBound() const { return 0; }
    double upperBound() const { return bound; }
    std::vector<double> dimensionality() const { return dimensionality_; }
    COBIA::Verdict validateValue(double) const { return {true, {}}; }

    std::string name() const { return name_; }
    void setName(const std::string&) {}
    std::string description() const { return {}; }
    void setDescription(const std::string&) {}

protected:
    std::string errorSource() const override { return "parameter " + name_; }

private:
    std::string name_;
    double value_;
    std::vector<double> dimensionality_;
};

class TestStream final
    : public Hiding,
      public COBIA::CapeOpenObject<TestStream, COBIA::CollectionAdapter, COBIA::IdentificationAdapter> {
public:
    COBIA::ICapeInterface* find(const COBIA::CapeUUID& uuid) noexcept override {
        return hides(uuid) ? nullptr : Offering::find(uuid);
    }

    TestParameter& add(const std::string& name, double value, std::vector<double> dimensionality = {}) {
        items_.push_back(COBIA::makeObject<TestParameter>(name, value, std::move(dimensionality)));
        return *items_.back();
    }
    TestParameter& operator[](std::size_t i) { return *items_[i]; }
    void clear() { items_.clear(); }

    /// The collection loses its last item when it is asked for its first one.
    bool shrinks = false;
    /// Every look-up by name fails.
    bool failing = false;

    COBIA::Ref<COBIA::ICapeInterface> itemByIndex(COBIA::CapeInteger index) {
        if (index < 0 || index >= count()) throw COBIA::cape_open_error(COBIA::noSuchItem);
        auto item = interfaceOf(items_[static_cast<std::size_t>(index)]);
        if (std::exchange(shrinks, false)) items_.pop_back();
        return item;
    }
    COBIA::Ref<COBIA::ICapeInterface> itemByName(const std::string& name) const {
        if (failing) throw COBIA::StringException("no licence");
        for (const auto& item : items_)
            if (COBIA::equalIgnoringCase(item->name(), name)) return interfaceOf(item);
        throw COBIA::cape_open_error(COBIA::noSuchItem);
    }
    COBIA::CapeInteger count() const { return static_cast<COBIA::CapeInteger>(items_.size()); }

    std::string name() const { return "S-1"; }
    void setName(const std::string&) {}
    std::string description() const { return {}; }
    void setDescription(const std::string&) {}

protected:
    std::string errorSource() const override { return "stream S-1"; }

private:
    static COBIA::Ref<COBIA::ICapeInterface> interfaceOf(const COBIA::Ref<TestParameter>& item) {
        return COBIA::Ref<COBIA::ICapeInterface>::share(item->as<COBIA::ICapeInterface>());
    }

    std::vector<COBIA::Ref<TestParameter>> items_;
};

}  // namespace orvane::test
