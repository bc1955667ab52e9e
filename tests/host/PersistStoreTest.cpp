// What a unit writes into the store comes back from it.
#include "host/PersistStore.h"
#include "cobia/Call.h"

#include <doctest/doctest.h>

using namespace COBIA;
using orvane::host::PersistStore;
using Writer = ICapePersistWriter::Table;
using Reader = ICapePersistReader::Table;

namespace {

template <auto slot, class Value> Value get(ICapePersistReader* reader, const char* name) {
    Value value{};
    call<slot>(reader, StringObject(name).in(), &value);
    return value;
}

template <auto slot, class Array>
std::vector<typename Array::Element> getArray(ICapePersistReader* reader, const char* name) {
    Array values;
    call<slot>(reader, StringObject(name).in(), values.out());
    return {values.view().begin(), values.view().end()};
}

CapeResult codeOf(auto&& body) {
    try {
        body();
        return noError;
    }
    catch (const cape_open_error& error) {
        return error.code();
    }
}

}  // namespace

TEST_CASE("Each kind of value comes back as it was written, under its name") {
    const auto store = makeObject<PersistStore>();
    auto* writer = store->as<ICapePersistWriter>();
    auto* reader = store->as<ICapePersistReader>();
    const auto name = [](const char* text) { return StringObject(text); };

    call<&Writer::AddReal>(writer, name("real").in(), 1.5);
    call<&Writer::AddInteger>(writer, name("integer").in(), 7);
    call<&Writer::AddBoolean>(writer, name("boolean").in(), CapeBoolean{1});
    call<&Writer::AddString>(writer, name("string").in(), name("Größe").in());
    call<&Writer::AddEnumeration>(writer, name("enumeration").in(), 3);
    ValueObject value;
    static_cast<const ICapeValue::Table*>(value.out()->vTbl)->setRealValue(value.out()->me, 2.5);
    call<&Writer::AddValue>(writer, name("value").in(), value.out());
    call<&Writer::AddArrayReal>(writer, name("reals").in(), RealArray({1, 2}).in());
    call<&Writer::AddArrayInteger>(writer, name("integers").in(), IntegerArray({3, 4}).in());
    call<&Writer::AddArrayBoolean>(writer, name("booleans").in(), BooleanArray({1, 0}).in());
    call<&Writer::AddArrayString>(writer, name("strings").in(), StringArray({"a", ""}).in());
    call<&Writer::AddArrayEnumeration>(writer, name("enumerations").in(), EnumerationArray({5}).in());
    call<&Writer::AddArrayByte>(writer, name("bytes").in(), ByteArray({0, 255}).in());

    CHECK(get<&Reader::GetReal, CapeReal>(reader, "real") == 1.5);
    CHECK(get<&Reader::GetInteger, CapeInteger>(reader, "integer") == 7);
    CHECK(get<&Reader::GetBoolean, CapeBoolean>(reader, "boolean") == 1);
    CHECK(text<&Reader::GetString>(reader, name("string").in()) == "Größe");
    CHECK(get<&Reader::GetEnumeration, CapeEnumeration>(reader, "enumeration") == 3);
    ValueObject read;
    call<&Reader::GetValue>(reader, name("value").in(), read.out());
    CHECK(std::get<double>(read.content()) == 2.5);
    CHECK(getArray<&Reader::GetArrayReal, RealArray>(reader, "reals") == std::vector{1.0, 2.0});
    CHECK(getArray<&Reader::GetArrayInteger, IntegerArray>(reader, "integers") == std::vector{3, 4});
    CHECK(getArray<&Reader::GetArrayBoolean, BooleanArray>(reader, "booleans") ==
          std::vector<CapeBoolean>{1, 0});
    StringArray strings;
    call<&Reader::GetArrayString>(reader, name("strings").in(), strings.out());
    CHECK(strings.utf8() == std::vector<std::string>{"a", ""});
    CHECK(getArray<&Reader::GetArrayEnumeration, EnumerationArray>(reader, "enumerations") == std::vector{5});
    CHECK(getArray<&Reader::GetArrayByte, ByteArray>(reader, "bytes") == std::vector<CapeByte>{0, 255});

    StringArray names;
    call<&Reader::getValueNames>(reader, names.out());
    const std::vector<std::string> expected = {"real",        "integer", "boolean",      "string",
                                               "enumeration", "value",   "reals",        "integers",
                                               "booleans",    "strings", "enumerations", "bytes"};
    REQUIRE(names.utf8() == expected);
    const int types[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const auto type = get<&Reader::GetValueType, CapePersistedDataType>(reader, expected[i].c_str());
        CHECK(static_cast<int>(type) == types[i]);
    }
}

TEST_CASE("A name that is missing answers 107, one of another type 111, one written again the new value") {
    const auto store = makeObject<PersistStore>();
    store->addReal("x", 1);
    store->addReal("y", 2);
    store->addReal("x", 3);
    auto* reader = store->as<ICapePersistReader>();
    CHECK(codeOf([&] { get<&Reader::GetReal, CapeReal>(reader, "X"); }) == noSuchItem);
    CHECK(codeOf([&] { get<&Reader::GetInteger, CapeInteger>(reader, "x"); }) == 111);
    CHECK(get<&Reader::GetReal, CapeReal>(reader, "x") == 3);
    CHECK(store->valueNames() == std::vector<std::string>{"x", "y"});
}

TEST_CASE("Nodes are stores of their own") {
    const auto store = makeObject<PersistStore>();
    const auto node = obtain<ICapePersistWriter, &Writer::AddNode>(store->as<ICapePersistWriter>(),
                                                                   StringObject("inner").in());
    call<&Writer::AddReal>(node, StringObject("x").in(), 4.0);
    const auto inner = obtain<ICapePersistReader, &Reader::GetNode>(store->as<ICapePersistReader>(),
                                                                    StringObject("inner").in());
    CHECK(get<&Reader::GetReal, CapeReal>(inner.get(), "x") == 4);
    CHECK(store->valueNames().empty());
    CHECK(store->nodeNames() == std::vector<std::string>{"inner"});
}
