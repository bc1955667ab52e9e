#include "cobia/Text.h"

#include <doctest/doctest.h>
#include <string>

using namespace COBIA;

namespace {

std::string throughTheInterface(const std::string& text) { return toUtf8(toCape(text)); }

}  // namespace

TEST_CASE("Text comes back as it went") {
    const std::string texts[] = {
        "",
        "Heat Duty",
        "Größe °C",
        "水 κόσμος",
        "𐐷 😀 beyond the first plane",
        "\xEF\xBF\xBD",
        "\xED\x9F\xBF \xEE\x80\x80",
        std::string("with\0null", 9),
        "line\r\nend\n",
        "\x7F\xC2\x80 \xDF\xBF\xE0\xA0\x80 \xF4\x8F\xBF\xBF",
    };
    for (const std::string& text : texts) CHECK_MESSAGE(throughTheInterface(text) == text, text);
}

TEST_CASE("A null pointer is the empty text") { CHECK(toUtf8(CapeTextView()).empty()); }

TEST_CASE("What is not UTF-8 becomes U+FFFD, the rest stays") {
    struct Row {
        std::string text;
        std::string expected;
    };
    const Row rows[] = {
        {"a\xFFz", "a\uFFFDz"},
        {"a\x80z", "a\uFFFDz"},
        {"a\xE2\x82z", "a\uFFFDz"},
        {"\xC3", "\uFFFD"},
        {"\xF0\x9F\x98", "\uFFFD"},
        {"Gr\xF6\xDF\x65", "Gr\uFFFD\uFFFDe"},  // Latin-1
        {"a\xC0\xAFz", "a\uFFFDz"},             // an overlong slash
        {"a\xED\xA0\x80z", "a\uFFFDz"},         // half a surrogate pair
        {"a\xF4\x90\x80\x80z", "a\uFFFDz"},     // beyond the last character
        {"ok \xC3\xA4 \xC3", "ok ä \uFFFD"},
    };
    for (const Row& row : rows) CHECK_MESSAGE(throughTheInterface(row.text) == row.expected, row.expected);
}

TEST_CASE("Lower-casing maps each character by itself") {
    struct Row {
        std::string text;
        std::string lower;
    };
    const Row rows[] = {
        {"", ""},
        {"Water-2 [KG/S]@Z", "water-2 [kg/s]@z"},
        {"ÄÖÜ Ñ Ÿ", "äöü ñ ÿ"},
        {"×÷", "×÷"},
        {"ΣΟΦΟΣ", "σοφοσ"},  // no other form at the end of a word
        {"ς", "ς"},
        {"ΆΈΏ", "άέώ"},
        {"ПРИВЕТ Ё Ж", "привет ё ж"},
        {"Iİı", "iiı"},
        {"ẞß", "ßß"},
        {"ǄǅǈĲ", "ǆǆǉĳ"},
        {"\u212A\u212B\u2126", "k\u00E5\u03C9"},  // Kelvin, ångström, ohm
        {"ႠᲐᎠ", "ⴀაꭰ"},
        {"𐐀𐐧𞤀", "𐐨𐑏𞤢"},
        {"水 😀", "水 😀"},
        {"A\xFFÄ", "a\uFFFDä"},
    };
    for (const Row& row : rows) CHECK_MESSAGE(lowerCase(row.text) == row.lower, row.text);
}

TEST_CASE("Upper-casing maps each character by itself") {
    struct Row {
        std::string text;
        std::string upper;
    };
    const Row rows[] = {
        {"", ""},
        {"last calculation 1-2 [z]", "LAST CALCULATION 1-2 [Z]"},
        {"äöü ñ ÿ", "ÄÖÜ Ñ Ÿ"},
        {"straße", "STRAßE"},  // one character each, so no SS
        {"σοφος", "ΣΟΦΟΣ"},
        {"привет ё", "ПРИВЕТ Ё"},
        {"iı", "II"},
        {"ǆǅ", "ǄǄ"},
        {"\u00B5", "\u039C"},
        {"ᾀᾳ", "ᾈᾼ"},
        {"𐐨𞤢", "𐐀𞤀"},
        {"水 😀", "水 😀"},
        {"ä\xFF", "Ä\uFFFD"},
    };
    for (const Row& row : rows) CHECK_MESSAGE(upperCase(row.text) == row.upper, row.text);
}

TEST_CASE("Ill-formed text is made well-formed, well-formed text stays") {
    CHECK(wellFormed("Größe 😀") == "Größe 😀");
    CHECK(wellFormed("Gr\xF6\xDF\x65") == "Gr\uFFFD\uFFFDe");
}

TEST_CASE("Names compare without regard to case") {
    CHECK(equalIgnoringCase("Heat Duty", "HEAT dUTY"));
    CHECK(equalIgnoringCase("Größe", "GRÖßE"));
    CHECK_FALSE(equalIgnoringCase("Größe", "GRÖSSE"));
    CHECK_FALSE(equalIgnoringCase("Feed", "Feed "));
    CHECK_FALSE(equalIgnoringCase("Feed", "Fee"));
    CHECK(equalIgnoringCase("", ""));
}
