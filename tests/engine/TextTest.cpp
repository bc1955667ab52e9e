// Search paths and error texts.
#include "engine/SearchPath.h"
#include "engine/Traceback.h"

#include <doctest/doctest.h>

using namespace orvane;

TEST_CASE("A search path splits at its separators") {
    using Pieces = std::vector<std::string>;
    CHECK(splitPath("", ':').empty());
    CHECK(splitPath("a:b", ':') == Pieces{"a", "b"});
    CHECK(splitPath("a::b", ':') == Pieces{"a", "", "b"});
    CHECK(splitPath("a:", ':') == Pieces{"a"});
    CHECK(splitPath(":a", ':') == Pieces{"", "a"});
}

TEST_CASE("Error texts name lines and the user's module") {
    struct Row {
        const char* raw;
        const char* tidy;
    };
    for (const Row& row : {
             Row{"  File \"<string>\", line 3, in f\n  File \"<string>\", line 9",
                 "  Line 3, in f\n  Line 9"},
             Row{"  File \"other.py\", line 3", "  File \"other.py\", line 3"},
             Row{"module 'unit0A9F' has no; module 'unit12'",
                 "module 'user_defined_unit' has no; module 'user_defined_unit'"},
             Row{"module 'unittest', module 'unit', module 'unit0A9f', module 'unit0A",
                 "module 'unittest', module 'unit', module 'unit0A9f', module 'unit0A"},
         }) {
        std::string text = row.raw;
        rewriteTraceback(text);
        CHECK(text == row.tidy);
    }
}

TEST_CASE("A failure in one line is the failing source line, or all of it") {
    CHECK(extractFailingLine("Traceback:\n  Line 2, in f\n    x = 1/0\n    ~~^~~\nZeroDivisionError\n") ==
          "    x = 1/0");
    CHECK(extractFailingLine("  one\r\ntwo\n") == "one; two; ");
    CHECK(extractFailingLine("Line x, in f\nsource\n") == "Line x, in f; source; ");
    CHECK(extractFailingLine("").empty());
}
