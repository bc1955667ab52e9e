#include "host/ElementBalance.h"

#include "package/CompoundTable.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>
#include <string_view>

namespace orvane::host {
namespace {

// Calls visit(symbol, count) for each part of a formula such as C2H6O.
template <class Visit> void eachElement(std::string_view formula, Visit visit) {
    const auto is = [&](std::size_t at, int (*kind)(int)) {
        return at < formula.size() && kind(static_cast<unsigned char>(formula[at]));
    };
    for (std::size_t i = 0; i < formula.size();) {
        const std::size_t start = i++;
        while (is(i, std::islower)) ++i;
        const auto symbol = formula.substr(start, i - start);
        int count = 0;
        for (; is(i, std::isdigit); ++i) count = 10 * count + (formula[i] - '0');
        visit(symbol, count == 0 ? 1 : count);
    }
}

}  // namespace

std::vector<Balance> elementBalances(const std::vector<Balance>& compounds) {
    std::vector<Balance> elements;
    for (const Balance& compound : compounds) {
        eachElement(package::CompoundTable::instance().at(compound.name).formula,
                    [&](std::string_view symbol, int count) {
                        auto found = std::ranges::find(elements, symbol, &Balance::name);
                        if (found == elements.end()) found = elements.insert(found, {std::string(symbol)});
                        found->in += count * compound.in;
                        found->out += count * compound.out;
                        found->scale += count * std::abs(compound.difference());
                    });
    }
    return elements;
}

}  // namespace orvane::host
