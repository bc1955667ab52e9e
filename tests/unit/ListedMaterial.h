// A material object that tells which compounds it has, as a test wants them told, and nothing else: for what the unit does
// before any script asks for properties.
#pragma once

#include "cobia/HostAdapters.h"
#include "tests/cobia/FakeHost.h"

#include <string>
#include <vector>

namespace orvane::test {

/// Lives on the test's stack; `references` is 0 when all who took it have released it.
class ListedMaterial {
public:
    explicit ListedMaterial(std::vector<std::string> compounds)
        : identifiers(std::move(compounds)), others(identifiers.size()) {}
    ListedMaterial(const ListedMaterial&) = delete;
    ListedMaterial& operator=(const ListedMaterial&) = delete;

    std::vector<std::string> identifiers;
    std::size_t others;                       // how long each of the other lists is, but for the odd one
    int oddList = -1;                         // which of the other five has one entry more
    COBIA::CapeResult code = COBIA::noError;  // of the list of compounds
    HostError* error = nullptr;               // with code 1
    int references = 0;
    int asked = 0;

    COBIA::ICapeThermoMaterial* material() noexcept { return &material_; }

private:
    static ListedMaterial& self(void* me) { return *static_cast<ListedMaterial*>(me); }

    static void retain(void* me) { ++self(me).references; }
    static void drop(void* me) { --self(me).references; }
    static COBIA::CapeResult query(void* me, const COBIA::CapeUUID* uuid, COBIA::ICapeInterface** found) {
        const bool compounds = *uuid == COBIA::ICapeThermoCompounds::uuid;
        if (!compounds && *uuid != COBIA::ICapeThermoMaterial::uuid && *uuid != COBIA::ICapeInterface::uuid)
            return COBIA::noSuchInterface;
        if (compounds)
            *found = &self(me).compounds_;
        else
            *found = &self(me).material_;
        ++self(me).references;
        return COBIA::noError;
    }
    static COBIA::CapeResult lastError(void* me, COBIA::ICapeError** out) {
        if (!self(me).error) return COBIA::noSuchItem;
        ++self(me).error->references;
        *out = self(me).error;
        return COBIA::noError;
    }
    static COBIA::CapeResult list(void* me, COBIA::ICapeArrayString* ids, COBIA::ICapeArrayString* formulae,
                                  COBIA::ICapeArrayString* names, COBIA::ICapeArrayReal* boiling,
                                  COBIA::ICapeArrayReal* weights, COBIA::ICapeArrayString* cas) {
        ListedMaterial& material = self(me);
        ++material.asked;
        if (material.code != COBIA::noError) return material.code;
        const auto count = [&](int list) { return material.others + (material.oddList == list ? 1 : 0); };
        COBIA::write(ids, material.identifiers);
        COBIA::write(formulae, std::vector<std::string>(count(0)));
        COBIA::write(names, std::vector<std::string>(count(1)));
        COBIA::resize(boiling, count(2));
        COBIA::resize(weights, count(3));
        COBIA::write(cas, std::vector<std::string>(count(4)));
        return COBIA::noError;
    }

    static const COBIA::ICapeThermoMaterial::Table materialTable;
    static const COBIA::ICapeThermoCompounds::Table compoundsTable;

    COBIA::ICapeThermoMaterial material_{{{this, &materialTable}}};
    COBIA::ICapeThermoCompounds compounds_{{{this, &compoundsTable}}};
};

// What is left out would crash: nobody may ask for it.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
inline const COBIA::ICapeThermoMaterial::Table ListedMaterial::materialTable = {
    .base = {retain, drop, query, lastError}};
inline const COBIA::ICapeThermoCompounds::Table ListedMaterial::compoundsTable = {
    .base = {retain, drop, query, lastError}, .GetCompoundList = list};
#pragma GCC diagnostic pop

}  // namespace orvane::test
