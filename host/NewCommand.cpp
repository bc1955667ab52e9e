#include "host/NewCommand.h"

#include "host/ExitCode.h"
#include "host/Path.h"
#include "host/System.h"

#include <fmt/format.h>

extern "C" {
extern const unsigned char newCase[], newCase_end[];
extern const unsigned char newScript[], newScript_end[];
}

namespace orvane::host {
namespace {

struct Template {
    const char* name;
    const unsigned char *begin, *end;

    std::string_view text() const {
        return {reinterpret_cast<const char*>(begin), static_cast<std::size_t>(end - begin)};
    }
};

}  // namespace

int newCommand(const std::filesystem::path& folder) {
    const Template templates[] = {{"case.toml", newCase, newCase_end}, {"unit.py", newScript, newScript_end}};
    try {
        for (const Template& one : templates) {
            if (std::filesystem::exists(folder / one.name)) {
                throw std::runtime_error(
                    fmt::format("'{}' is there already; name another folder", textOf(folder / one.name)));
            }
        }
        std::filesystem::create_directories(folder);
        for (const Template& one : templates) writeWhole(folder / one.name, one.text());
    }
    catch (const std::exception& error) {
        fmt::print(stderr, "error: {}\n", error.what());
        return exitWrongUse;
    }
    for (const Template& one : templates) fmt::print("{}\n", textOf(folder / one.name));
    fmt::print("\nCalculate it:  orvane run {}\n", textOf(folder / "case.toml"));
    return exitSuccess;
}

}  // namespace orvane::host
