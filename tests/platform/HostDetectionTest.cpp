#include "platform/HostDetection.h"

#include <doctest/doctest.h>
#include <string>

using orvane::HostKind;
using orvane::hostKind;
using orvane::hostKindOf;

TEST_CASE("The simulator is known by the executable that the command line names first") {
    struct Row {
        std::string commandLine;
        int kind;
    };
    const Row rows[] = {
        {"kelvo.exe", 1},
        {"kelvom.exe", 1},
        {"tarnq.exe", 2},
        {"brolentarq.exe", 2},
        {"vispa.exe", 3},
        {"quorvelandix.exe", 4},
        {"miro.exe", 5},
        {"miro64.exe", 5},
        {R"("C:\Program Files\Tarnq 12\TARNQ.EXE")", 2},
        {R"("C:\Program Files\Tarnq 12\TARNQ.EXE" -open "C:\vispa.exe")", 2},
        {R"(C:\sim\Miro64.exe /quiet)", 5},
        {"C:\\sim\\vispa.exe\t/quiet", 3},
        {R"("kelvo.exe)", 1},
        {"", 0},
        {"\"", 0},
        {"\"\" tarnq.exe", 0},
        {" tarnq.exe", 0},
        {R"(C:\Program Files\tarnq.exe)", 0},
        {R"("C:\tarnq.exe\")", 0},
        {R"("C:\tarnq.exe\other.exe")", 0},
        {"tarnq", 0},
        {"mytarnq.exe", 0},
        {"tarnq.exe.bak", 0},
        {"/opt/sim/tarnq.exe", 0},
    };
    for (const Row& row : rows)
        CHECK_MESSAGE(static_cast<int>(hostKindOf(row.commandLine, "\\")) == row.kind, row.commandLine);
}

TEST_CASE("The path of the executable splits where the system splits it") {
    CHECK(hostKindOf("\"/opt/my sim/Tarnq.exe\"", "\\/") == HostKind::tarnq);
    CHECK(hostKindOf("/opt/sim/tarnq.exe --headless", "\\/") == HostKind::tarnq);
    CHECK(hostKindOf("/opt/tarnq.exe/other", "\\/") == HostKind::other);
}

TEST_CASE("A test is none of the simulators") { CHECK(hostKind() == HostKind::other); }
