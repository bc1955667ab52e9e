#include "host/CompoundsCommand.h"

#include "cobia/Text.h"
#include "host/ExitCode.h"
#include "host/NearestName.h"
#include "host/Table.h"
#include "package/CompoundTable.h"

#include <fmt/format.h>

namespace orvane::host {

int compoundsCommand(std::string_view filter) {
    const std::string wanted = COBIA::lowerCase(filter);
    const auto holds = [&](const std::string& text) {
        return COBIA::lowerCase(text).find(wanted) != std::string::npos;
    };
    Table table(4);
    table.row({"Compound", "Name", "Formula", "CAS number", "Molecular weight [g/mol]", "Boiling point [K]"});
    bool any = false;
    for (const package::Compound& compound : package::CompoundTable::instance().compounds()) {
        if (!holds(compound.id) && !holds(compound.name) && !holds(compound.formula) && !holds(compound.cas))
            continue;
        any = true;
        table.row({compound.id, compound.name, compound.formula, compound.cas,
                   fmt::format("{:.4f}", compound.molecularWeight),
                   fmt::format("{:.2f}", compound.normalBoilingPoint)});
    }
    if (!any) {
        const auto nearest = package::CompoundTable::instance().nearest(filter);
        fmt::print(stderr, "error: there is no compound '{}'; nearest: {}\n", filter, listed(nearest));
        return exitWrongUse;
    }
    fmt::print("{}", table.text());
    return exitSuccess;
}

}  // namespace orvane::host
