// What the editor's callbacks answer: values, reports and images by number, and careless calls.
#include "tests/unit/Editor.h"

#include <doctest/doctest.h>

using namespace orvane::test;

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST_CASE("Values are shown as expressions and set from expressions by the rules of their types") {
    EditorFolder folder;
    TestHost host(folder.module(), fiveTypes);
    folder.edit([&](void*, EditingUnit* unit) {
        const Editor editor{unit};
        CHECK(editor.values(7) == Texts{"0.1", "-2", "'b'", "False", "[1.0, nan]", "5.0", "'free'"});
        for (int i = 0; i < 7; ++i) {
            if (i == 5) continue;
            CAPTURE(i);
            CHECK_MESSAGE(editor.set(i, unit->parameterValue(unit, i)) == "", "what is shown reads back");
        }
        CHECK(editor.values(7) == Texts{"0.1", "-2", "'b'", "False", "[1.0, nan]", "5.0", "'free'"});

        CHECK(editor.set(0, "2*3") == "");
        CHECK(editor.set(1, "0x10") == "");
        CHECK(editor.set(2, "'\u00e4\"'") == "");
        CHECK(editor.set(3, "1 > 0") == "");
        CHECK(editor.set(4, "(i/2 for i in range(3))") == "");
        CHECK(editor.set(6, "'a' * 3") == "");
        CHECK(editor.values(7) ==
              Texts{"6.0", "16", "'\u00e4\"'", "True", "[0.0, 0.5, 1.0]", "5.0", "'aaa'"});
        CHECK(editor.set(0, "nan") == "");
        CHECK(editor.values(1) == Texts{"nan"});

        struct Row {
            int parameter;
            const char* expression;
            const char* error;
        };
        for (const Row& row : {Row{0, "10", "ValueError: Value is above maximum value of 9"},
                               {0, "'x'", "TypeError: must be real number, not str"},
                               {0, "1/0", "ZeroDivisionError: division by zero"},
                               {0, "1 +", "SyntaxError: invalid syntax"},
                               {0, "", "SyntaxError: invalid syntax"},
                               {0, nullptr, "SyntaxError: invalid syntax"},
                               {0, "unit", "NameError: name 'unit' is not defined"},
                               {0, "exit()", "SystemExit: None"},
                               {1, "2.0", "TypeError: 'float' object cannot be interpreted as an integer"},
                               {2, "'c'", "ValueError: value must be one of \"a\", \"b\" or \"\u00e4\"\""},
                               {4, "3", "RuntimeError: 'value' must be iterable of real items"},
                               {5, "1", "'o' is an output parameter: its value comes from the script"},
                               {7, "1", "there is no parameter number 7"},
                               {-1, "1", "there is no parameter number -1"}}) {
            CAPTURE(row.expression);
            CHECK_MESSAGE(editor.set(row.parameter, row.expression).ends_with(row.error),
                          editor.set(row.parameter, row.expression));
        }
        CHECK(editor.values(7) ==
              Texts{"nan", "16", "'\u00e4\"'", "True", "[0.0, 0.5, 1.0]", "5.0", "'aaa'"});

        const char* const* options = nullptr;
        int current = 7;
        REQUIRE(unit->parameterOptions(unit, 2, &options, &current) == 3);
        CHECK(texts(options, 3) == Texts{"a", "b", "\u00e4\""});
        CHECK(current == 2);
        for (const int other : {0, 6, 99, -1}) {
            current = 7;
            CHECK(unit->parameterOptions(unit, other, &options, &current) == 0);
            CHECK(current == -1);
        }
        return true;
    });
    REQUIRE(edit(host).outcome.succeeded());
    CapeInteger integer = 0;
    call<&ICapeIntegerParameter::Table::getValue>(host.parameter<ICapeIntegerParameter>("i"), &integer);
    CHECK(integer == 16);
}

TEST_CASE("Reports and images are listed, read and drawn by number") {
    EditorFolder folder;
    TestHost host(folder.module(),
                  "def Configure(unit):\n"
                  "    unit.add_report('Sum'); unit.add_image('Pic', 'draw'); unit.add_image('Bad', 'bad')\n"
                  "def Calculate(unit):\n    print('1 + 1', file=unit.reports['Sum'])\n"
                  "def draw(unit, path, width, height):\n"
                  "    open(path, 'wb').write(b'\\x89PNG\\r\\n\\x1a\\n\\0%dx%d' % (width, height))\n"
                  "def bad(unit, path, width, height):\n    raise OSError('no ink')\n");
    folder.edit([&](void*, EditingUnit* unit) {
        const char* const* names = nullptr;
        REQUIRE(unit->reports(unit, &names) == 1);
        CHECK(texts(names, 1) == Texts{"Sum"});
        CHECK(std::string(unit->reportText(unit, 0)).empty());
        CHECK(Editor{unit}.calculate().second == "");
        CHECK(std::string(unit->reportText(unit, 0)) == "1 + 1\n");
        for (const int none : {1, -1}) CHECK(std::string(unit->reportText(unit, none)).empty());
        REQUIRE(unit->images(unit, &names) == 2);
        CHECK(texts(names, 2) == Texts{"Pic", "Bad"});

        const unsigned char* bytes = nullptr;
        std::size_t size = 0;
        const char* error = nullptr;
        REQUIRE(unit->drawImage(unit, 0, &bytes, &size, &error));
        CHECK(std::string(bytes, bytes + size) == std::string("\x89PNG\r\n\x1a\n\0"
                                                              "1024x640",
                                                              17));
        CHECK(std::string(error).empty());
        CHECK_FALSE(unit->drawImage(unit, 1, &bytes, &size, &error));
        CHECK(contains(error, "OSError: no ink"));
        CHECK(bytes == nullptr);
        CHECK(size == 0);
        CHECK_FALSE(unit->drawImage(unit, 2, &bytes, &size, &error));
        CHECK(std::string(error) == "there is no image number 2");
        return true;
    });
    CHECK(edit(host).outcome.succeeded());
}

TEST_CASE("A callback takes no harm from nulls, and a text may go into the next callback") {
    EditorFolder folder;
    TestHost host(folder.module(), fiveTypes);
    const auto saved = host.save();
    saved->addString("lastOutput", std::string("a\0b", 3));
    host.load(*saved);
    folder.edit([&](void*, EditingUnit* unit) {
        CHECK_MESSAGE(std::string(unit->lastOutput(unit)) == "a\uFFFDb", "C texts end at a null");
        unit->setLastOutput(unit, "first \xFF");
        CHECK(std::string(unit->lastOutput(unit)) == "first \uFFFD");
        const char* const kept = unit->lastOutput(unit);
        unit->setLastOutput(unit, kept);
        CHECK(std::string(unit->lastOutput(unit)) == "first \uFFFD");
        unit->setLastOutput(unit, nullptr);
        CHECK(std::string(unit->lastOutput(unit)).empty());
        unit->setLastOutput(unit, "by the user");

        CHECK(std::string(unit->scriptFile(nullptr)).empty());
        unit->configure(nullptr, nullptr, nullptr);
        unit->configure(unit, nullptr, nullptr);
        unit->calculate(unit, nullptr, nullptr);
        unit->scriptChanged(nullptr);
        CHECK(unit->ports(unit, nullptr, nullptr, nullptr) == 0);
        CHECK(unit->parameters(unit, nullptr, nullptr) == 7);
        CHECK(unit->parameters(nullptr, nullptr, nullptr) == 0);
        CHECK(std::string(unit->lastOutput(nullptr)).empty());
        unit->setLastOutput(nullptr, "x");
        CHECK_FALSE(unit->isInputParameter(nullptr, 0));
        CHECK(std::string(unit->parameterValue(nullptr, 0)).empty());
        CHECK(std::string(unit->parameterValue(unit, 99)).empty());
        CHECK(unit->parameterOptions(unit, 2, nullptr, nullptr) == 3);
        CHECK(unit->reports(unit, nullptr) == 0);
        CHECK(unit->images(unit, nullptr) == 0);
        CHECK(std::string(unit->reportText(nullptr, 0)).empty());
        CHECK_FALSE(unit->drawImage(unit, 0, nullptr, nullptr, nullptr));
        CHECK(std::string(unit->setParameter(nullptr, 0, "1")) != "");
        unit->setLastOutput(unit, "by the user");
        return true;
    });
    REQUIRE(edit(host).outcome.succeeded());
    CHECK(contains(host.lastCalculation(), "by the user"));
    CHECK(host.save()->string("lastOutput") == "by the user");
}
