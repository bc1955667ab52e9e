#include "parameters/Dimensionality.h"

#include <doctest/doctest.h>

#include <limits>
#include <vector>

using orvane::sameDimensionality;
using orvane::unitText;

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

}  // namespace

TEST_CASE("A dimensionality shows as the unit that users know") {
    struct Row {
        std::vector<double> exponents;  // m, kg, s, A, K, mol, cd, rad, difference
        const char* text;
    };
    const Row rows[] = {
        // with a name
        {{0, 0, -1}, "Hz"},
        {{1, 1, -2}, "N"},
        {{-1, 1, -2}, "Pa"},
        {{-1, 1, -3}, "Pa*s"},
        {{2, 1, -2}, "J"},
        {{2, 0, -2}, "J/kg"},
        {{2, 1, -2, 0, 0, -1}, "J/mol"},
        {{2, 1, -2, 0, -1, -1}, "J/(mol*K)"},
        {{2, 0, -2, 0, -1}, "J/(kg*K)"},
        {{2, 1, -3}, "W"},
        {{2, 1, -3, 0, -1}, "W/K"},
        {{1, 1, -3, 0, -1}, "W/(m*K)"},
        {{0, 1, -3, 0, -1}, "W/(m**2*K)"},
        {{0, 1, -3}, "W/m**2"},
        // without a name
        {{}, ""},
        {{0, 0, 0}, ""},
        {{1}, "m"},
        {{-3, 1}, "kg/m**3"},
        {{-1, 1, -1}, "kg/(m*s)"},
        {{0, 0, -2}, "1/s**2"},
        {{-1, 0, 0, 0, -1}, "1/(m*K)"},
        {{1, 1, 1, 1, 1, 1, 1, 1}, "cd*rad*A*mol*kg*m*K*s"},
        {{-1, -1, -1, -1, -1, -1, -1, -1}, "1/(cd*rad*A*mol*kg*m*K*s)"},
        // exponents
        {{0.5}, "m**0.5"},
        {{0, 0, 0, 0, -1.5}, "1/K**1.5"},
        {{1.0 / 3}, "m**0.333333"},
        {{1e7}, "m**1e+07"},
        {{1 + 1e-9, -1 - 1e-9}, "m/kg"},
        {{1 + 1e-7}, "m**1"},
        {{nan}, "1/m"},
        // the difference entry is not shown, more entries are an error
        {{-1, 1, -2, 0, 0, 0, 0, 0, 1}, "Pa"},
        {{1, 0, 0, 0, 0, 0, 0, 0, 0, 0}, "<error>"},
    };
    for (const auto& [exponents, text] : rows) CHECK(unitText(exponents) == text);
}

TEST_CASE("Dimensionalities agree when nothing but zeros and rounding sets them apart") {
    struct Row {
        std::vector<double> a, b;
        bool same;
    };
    const Row rows[] = {
        {{}, {}, true},
        {{}, {0, 0}, true},
        {{1, 0}, {1}, true},
        {{1, 0, 0.5}, {1}, false},
        {{1}, {1 + 0.9e-8}, true},
        {{1}, {1 + 2e-8}, false},
        {{1}, {1, 1e-12}, false},  // beyond the common length only zero counts as zero
        {{1}, {1, nan}, false},
        {{nan}, {nan}, false},
        {{1, 2}, {2, 1}, false},
        {{-1, 1, -2}, {-1, 1, -2, 0, 0, 0, 0, 0, 1}, false},  // pressure, and difference of pressures
    };
    for (const Row& row : rows) {
        const auto &a = row.a, &b = row.b;
        CAPTURE(unitText(a));
        CAPTURE(unitText(b));
        CHECK(sameDimensionality(a, b) == row.same);
        CHECK(sameDimensionality(b, a) == row.same);
    }
}
