#include "host/StateFile.h"

#include "host/Base64.h"
#include "host/CaseFile.h"
#include "host/Path.h"
#include "host/TextFile.h"

#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <nlohmann/json.hpp>

namespace orvane::host {
namespace {

using Json = nlohmann::ordered_json;
using Kind = COBIA::CapePersistedDataType;
using COBIA::CapeInteger;

constexpr const char* formatName = "orvane-state";
constexpr int formatVersion = 1;

/// What is wrong with the content, without the file's name.
class Damage : public std::runtime_error {
    using runtime_error::runtime_error;
};

// Reals that JSON has no numbers for are texts.

Json real(double value) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value > 0 ? "Infinity" : "-Infinity";
    return value;
}

double realOf(const Json& value) {
    if (value.is_number()) return value.get<double>();
    if (value == "NaN") return std::numeric_limits<double>::quiet_NaN();
    if (value == "Infinity") return std::numeric_limits<double>::infinity();
    if (value == "-Infinity") return -std::numeric_limits<double>::infinity();
    throw Damage("it holds " + value.dump() + " for a real");
}

CapeInteger integerOf(const Json& value) {
    if (!value.is_number_integer() || value < std::numeric_limits<CapeInteger>::min() ||
        value > std::numeric_limits<CapeInteger>::max())
        throw Damage("it holds " + value.dump() + " for a 32-bit integer");
    return value.get<CapeInteger>();
}

bool booleanOf(const Json& value) {
    if (!value.is_boolean()) throw Damage("it holds " + value.dump() + " for true or false");
    return value.get<bool>();
}

std::string stringOf(const Json& value) {
    if (!value.is_string()) throw Damage("it holds " + value.dump() + " for a text");
    return value.get<std::string>();
}

std::vector<COBIA::CapeByte> bytesOf(const Json& value) {
    auto bytes = fromBase64(stringOf(value));
    if (!bytes) throw Damage("its bytes are no base64 text");
    return std::move(*bytes);
}

template <class Element, class Convert> std::vector<Element> listOf(const Json& value, Convert&& convert) {
    if (!value.is_array()) throw Damage("it holds " + value.dump() + " for an array");
    std::vector<Element> result;
    for (const Json& element : value) result.push_back(convert(element));
    return result;
}

Json items(const PersistStore& state) {
    Json result = Json::array();
    for (const std::string& name : state.valueNames()) {
        const auto add = [&](const char* kind, Json value) {
            result.push_back({{"name", name}, {"kind", kind}, {"value", std::move(value)}});
        };
        switch (state.valueType(name)) {
        case Kind::real: add("real", real(state.real(name))); break;
        case Kind::integer: add("integer", state.integer(name)); break;
        case Kind::boolean: add("boolean", state.boolean(name)); break;
        case Kind::string: add("string", state.string(name)); break;
        case Kind::arrayReal: {
            Json values = Json::array();
            for (const double value : state.reals(name)) values.push_back(real(value));
            add("real array", std::move(values));
            break;
        }
        case Kind::arrayInteger: add("integer array", state.integers(name)); break;
        case Kind::arrayString: add("string array", state.strings(name)); break;
        case Kind::arrayByte: add("bytes", toBase64(state.bytes(name))); break;
        default:
            throw std::runtime_error(
                fmt::format("item '{}' of the unit's state is of a kind that state files do not have", name));
        }
    }
    return result;
}

void readItem(PersistStore& state, const std::string& name, const std::string& kind, const Json& value) {
    if (kind == "real")
        state.addReal(name, realOf(value));
    else if (kind == "integer")
        state.addInteger(name, integerOf(value));
    else if (kind == "boolean")
        state.addBoolean(name, booleanOf(value));
    else if (kind == "string")
        state.addString(name, stringOf(value));
    else if (kind == "real array")
        state.addReals(name, listOf<double>(value, realOf));
    else if (kind == "integer array")
        state.addIntegers(name, listOf<CapeInteger>(value, integerOf));
    else if (kind == "string array")
        state.addTexts(name, listOf<std::string>(value, stringOf));
    else if (kind == "bytes")
        state.addBytes(name, bytesOf(value));
    else
        throw Damage("it is of the unknown kind '" + kind + "'");
}

const Json& member(const Json& of, const char* key) {
    const auto found = of.is_object() ? of.find(key) : of.end();
    if (found == of.end()) throw Damage(fmt::format("'{}' is missing", key));
    return *found;
}

void readItems(PersistStore& state, const Json& list) {
    if (!list.is_array()) throw Damage("'items' is no array");
    for (std::size_t i = 0; i < list.size(); ++i) {
        std::string name = std::to_string(i + 1);
        try {
            name = "'" + stringOf(member(list[i], "name")) + "'";
            const std::string itemName = list[i]["name"];
            for (const std::string& known : state.valueNames()) {
                if (known == itemName) throw Damage("it is there twice");
            }
            readItem(state, itemName, stringOf(member(list[i], "kind")), member(list[i], "value"));
        }
        catch (const Damage& damage) {
            throw Damage(fmt::format("item {}: {}", name, damage.what()));
        }
    }
}

}  // namespace

std::string stateText(const PersistStore& state) {
    if (!state.nodeNames().empty())
        throw std::runtime_error("the unit's state has nodes, which state files do not have");
    const Json root = {{"format", formatName},
                       {"version", formatVersion},
                       {"written_by", "orvane " ORVANE_VERSION},
                       {"items", items(state)}};
    return root.dump(1) + "\n";
}

COBIA::Ref<PersistStore> readState(std::string_view text, const std::filesystem::path& file) {
    const auto fail = [&](const std::string& what) { throw CaseError(textOf(file) + ": " + what); };
    Json root;
    try {
        root = Json::parse(text);
    }
    catch (const Json::parse_error& error) {
        fail(fmt::format("this is no state file, or a damaged one: it is no JSON from byte {} on",
                         error.byte));
    }
    if (!root.is_object() || root.value("format", Json()) != formatName)
        fail(fmt::format("this is no state file of orvane; `orvane run --save FILE` writes one"));
    auto state = COBIA::makeObject<PersistStore>();
    try {
        const int version = integerOf(member(root, "version"));
        if (version != formatVersion) {
            fail(fmt::format(
                "the state file has version {} of its format, and this orvane reads version {}; it was "
                "written by {}",
                version, formatVersion, root.value("written_by", Json("an unknown program")).dump()));
        }
        readItems(*state, member(root, "items"));
    }
    catch (const Damage& damage) {
        fail(fmt::format("the state file is damaged: {}", damage.what()));
    }
    return state;
}

COBIA::Ref<PersistStore> loadStateFile(const std::filesystem::path& file) {
    std::string text;
    try {
        text = readText(file);
    }
    catch (const std::runtime_error& error) {
        throw CaseError(fmt::format("{}: the state file cannot be read: {}", textOf(file), error.what()));
    }
    return readState(text, file);
}

}  // namespace orvane::host
