#include "platform/HostDetection.h"

#include "cobia/Text.h"
#include "platform/CommandLine.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace orvane {
namespace {

struct KnownHost {
    std::string_view executable;  // in lower case
    HostKind kind;
};

constexpr KnownHost knownHosts[] = {
    {"kelvo.exe", HostKind::kelvo}, {"kelvom.exe", HostKind::kelvo},
    {"tarnq.exe", HostKind::tarnq}, {"brolentarq.exe", HostKind::tarnq},
    {"vispa.exe", HostKind::vispa}, {"quorvelandix.exe", HostKind::quorvelandix},
    {"miro.exe", HostKind::miro},   {"miro64.exe", HostKind::miro},
};

}  // namespace

HostKind hostKindOf(std::string_view commandLine, std::string_view separators) {
    const bool quoted = commandLine.starts_with('"');
    if (quoted) commandLine.remove_prefix(1);
    std::string_view program = commandLine.substr(0, commandLine.find_first_of(quoted ? "\"" : " \t"));
    if (const auto end = program.find_last_of(separators); end != program.npos)
        program.remove_prefix(end + 1);

    const std::string executable = COBIA::lowerCase(program);
    const auto host = std::find_if(std::begin(knownHosts), std::end(knownHosts),
                                   [&](const KnownHost& known) { return known.executable == executable; });
    return host == std::end(knownHosts) ? HostKind::other : host->kind;
}

HostKind hostKind() {
    static const HostKind kind = hostKindOf(commandLine(), pathSeparators);
    return kind;
}

}  // namespace orvane
