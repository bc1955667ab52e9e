// State files: what is written comes back, and what is said about files that are none.
#include "host/StateFile.h"

#include "host/Base64.h"
#include "host/CaseFile.h"

#include <bit>
#include <doctest/doctest.h>
#include <limits>

using namespace orvane::host;
using Kind = COBIA::CapePersistedDataType;

namespace {

using Limits = std::numeric_limits<double>;

const std::vector<double> reals = {0.0,
                                   -0.0,
                                   0.1,
                                   1.0 / 3,
                                   Limits::denorm_min(),
                                   Limits::max(),
                                   -Limits::infinity(),
                                   Limits::infinity(),
                                   Limits::quiet_NaN(),
                                   5e22,
                                   12345678901234567.0};

std::vector<std::uint64_t> bitsOf(const std::vector<double>& values) {
    std::vector<std::uint64_t> result;
    for (const double value : values) result.push_back(std::bit_cast<std::uint64_t>(value));
    return result;
}

std::string errorOf(const std::string& text) {
    try {
        readState(text, "folder/s.json");
        return "";
    }
    catch (const CaseError& error) {
        return error.what();
    }
}

/// A state file with these items.
std::string holding(const std::string& items) {
    return R"({"format": "orvane-state", "version": 1, "items": [)" + items + "]}";
}

}  // namespace

TEST_CASE("Every kind of item comes back from a state file, reals to the bit") {
    const auto state = COBIA::makeObject<PersistStore>();
    for (std::size_t i = 0; i < reals.size(); ++i) state->addReal("real" + std::to_string(i), reals[i]);
    state->addReals("reals", reals);
    state->addInteger("integer", std::numeric_limits<std::int32_t>::min());
    state->addIntegers("integers", std::vector<COBIA::CapeInteger>{1, -2, 2147483647});
    state->addBoolean("boolean", true);
    const std::vector<std::string> texts = {"", std::string("a\0b", 3), "Größe\r\n\t\"\\ \xf0\x9f\x9a\x80",
                                            "\x7f"};
    state->addTexts("texts", texts);
    state->addString("text", texts[2]);
    state->addReals("no reals", {});
    state->addTexts("no texts", {});
    std::vector<COBIA::CapeByte> bytes;
    for (int i = 0; i < 256; ++i) bytes.push_back(static_cast<COBIA::CapeByte>(i));
    state->addBytes("bytes", bytes);
    state->addBytes("no bytes", {});

    const auto again = readState(stateText(*state), "s.json");
    CHECK(again->valueNames() == state->valueNames());
    for (const std::string& name : state->valueNames())
        CHECK(again->valueType(name) == state->valueType(name));
    for (std::size_t i = 0; i < reals.size(); ++i)
        CHECK(bitsOf({again->real("real" + std::to_string(i))}) == bitsOf({reals[i]}));
    CHECK(bitsOf(again->reals("reals")) == bitsOf(reals));
    CHECK(again->integer("integer") == std::numeric_limits<std::int32_t>::min());
    CHECK(again->integers("integers") == state->integers("integers"));
    CHECK(again->boolean("boolean"));
    CHECK(again->strings("texts") == texts);
    CHECK(again->string("text") == texts[2]);
    CHECK(again->reals("no reals").empty());
    CHECK(again->strings("no texts").empty());
    CHECK(again->bytes("bytes") == bytes);
    CHECK(again->bytes("no bytes").empty());
    CHECK(stateText(*again) == stateText(*state));
}

TEST_CASE("A kind that state files do not have is an error, and nothing is left out") {
    const auto state = COBIA::makeObject<PersistStore>();
    state->addEnumeration("e", 1);
    CHECK_THROWS_WITH(stateText(*state),
                      "item 'e' of the unit's state is of a kind that state files do not have");
}

TEST_CASE("What is no state file, of another version or damaged is refused with the reason") {
    struct Row {
        std::string text;
        const char* message;
    };
    const Row rows[] = {
        {"", "this is no state file, or a damaged one: it is no JSON from byte 1 on"},
        {holding("").substr(0, 30), "it is no JSON from byte"},
        {"[1]", "this is no state file of orvane; `orvane run --save FILE` writes one"},
        {R"({"version": 1})", "this is no state file of orvane"},
        {R"({"format": "orvane-state"})", "the state file is damaged: 'version' is missing"},
        {R"({"format": "orvane-state", "version": 2, "written_by": "orvane 9"})",
         "the state file has version 2 of its format, and this orvane reads version 1; it was written by \"orvane 9\""},
        {R"({"format": "orvane-state", "version": "1"})", "it holds \"1\" for a 32-bit integer"},
        {R"({"format": "orvane-state", "version": 1})", "'items' is missing"},
        {R"({"format": "orvane-state", "version": 1, "items": {}})", "'items' is no array"},
        {holding("{}"), "item 1: 'name' is missing"},
        {holding(R"({"name": "x", "value": 1})"), "item 'x': 'kind' is missing"},
        {holding(R"({"name": "x", "kind": "real"})"), "item 'x': 'value' is missing"},
        {holding(R"({"name": "x", "kind": "reel", "value": 1})"),
         "item 'x': it is of the unknown kind 'reel'"},
        {holding(R"({"name": "x", "kind": "real", "value": "nan"})"),
         "item 'x': it holds \"nan\" for a real"},
        {holding(R"({"name": "x", "kind": "integer", "value": 2147483648})"), "for a 32-bit integer"},
        {holding(R"({"name": "x", "kind": "integer", "value": 1.5})"), "for a 32-bit integer"},
        {holding(R"({"name": "x", "kind": "boolean", "value": 1})"), "for true or false"},
        {holding(R"({"name": "x", "kind": "string array", "value": ["a", 1]})"), "it holds 1 for a text"},
        {holding(R"({"name": "x", "kind": "real array", "value": 1})"), "it holds 1 for an array"},
        {holding(R"({"name": "x", "kind": "bytes", "value": "a"})"), "its bytes are no base64 text"},
        {holding(R"({"name": "x", "kind": "real", "value": 1}, {"name": "x", "kind": "real", "value": 1})"),
         "item 'x': it is there twice"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        const std::string error = errorOf(row.text);
        CHECK_MESSAGE(error.starts_with("folder/s.json: "), error);
        CHECK_MESSAGE(error.find(row.message) != std::string::npos, error);
    }
    CHECK_THROWS_WITH_AS(loadStateFile("no.json"),
                         doctest::Contains("no.json: the state file cannot be read: No such file"),
                         CaseError);
}

TEST_CASE("Bytes become text by the published examples") {
    struct Row {
        const char *bytes, *text;
    };
    for (const Row& row : {Row{"", ""}, Row{"f", "Zg=="}, Row{"fo", "Zm8="}, Row{"foo", "Zm9v"},
                           Row{"foob", "Zm9vYg=="}, Row{"fooba", "Zm9vYmE="}, Row{"foobar", "Zm9vYmFy"}}) {
        const std::string plain = row.bytes;
        const std::vector<std::uint8_t> bytes(plain.begin(), plain.end());
        CHECK(toBase64(bytes) == row.text);
        CHECK(fromBase64(row.text) == bytes);
    }
    for (const char* wrong : {"Zg=", "Zg", "====", "Zm9v====", "Zg==Zg==", "Zm 9", "Z\xc3\xa4=="})
        CHECK_MESSAGE(!fromBase64(wrong), wrong);
}
