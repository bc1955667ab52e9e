// A host's threads: units, ports, parameters and error objects are created, asked and released on any of them.
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

#include <atomic>
#include <functional>
#include <thread>

using namespace orvane::test;

namespace {

constexpr int threadCount = 4;

/// Runs the body on several threads that start together; gives how many of them failed.
int onThreads(const std::function<bool(int)>& body) {
    // Not std::barrier, whose waking gets lost now and then with mingw-w64's GCC 12.
    std::atomic<int> missing = threadCount;
    std::atomic<int> failed = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back([&, i] {
            for (--missing; missing > 0;) std::this_thread::yield();
            try {
                if (!body(i)) ++failed;
            }
            catch (...) {
                ++failed;
            }
        });
    for (std::thread& thread : threads) thread.join();
    return failed;
}

const char* const counting =
    "def Configure(unit):\n"
    "    unit.add_parameter('n', unit.ParameterType.INTEGER, unit.ParameterMode.INPUT, default=0)\n"
    "    unit.add_parameter('out', unit.ParameterType.INTEGER, unit.ParameterMode.OUTPUT)\n"
    "def Calculate(unit):\n"
    "    unit.parameters['out'].value = 2 * unit.parameters['n'].value\n"
    "    print('n =', unit.parameters['n'].value)\n";

}  // namespace

TEST_CASE("The first units of a process are created on several threads at once") {
    std::vector<std::unique_ptr<TestHost>> hosts(threadCount);
    CHECK(onThreads([&](int i) {
              hosts[i] = std::make_unique<TestHost>();
              return hosts[i]->names(hosts[i]->ports()).size() == 2;
          }) == 0);
    // Each goes on another thread than it came on.
    CHECK(onThreads([&](int i) {
              hosts[(i + 1) % threadCount].reset();
              return true;
          }) == 0);
}

TEST_CASE("Units calculate on threads of their own, each with its own script, values and output") {
    CHECK(onThreads([](int i) {
              TestHost host{std::string(counting)};
              for (CapeInteger run = 0; run < 5; ++run) {
                  const CapeInteger n = 100 * i + run;
                  call<&ICapeIntegerParameter::Table::putValue>(host.parameter<ICapeIntegerParameter>("n"),
                                                                n);
                  if (!host.calculate().succeeded()) return false;
                  CapeInteger out = 0;
                  call<&ICapeIntegerParameter::Table::getValue>(host.parameter<ICapeIntegerParameter>("out"),
                                                                &out);
                  if (out != 2 * n) return false;
                  if (host.lastCalculation().find("n = " + std::to_string(n) + "\r\n") == std::string::npos)
                      return false;
              }
              return true;
          }) == 0);
}

TEST_CASE("An error object is shared by threads and outlives its unit") {
    Ref<ICapeError> error;
    {
        TestHost host;
        const auto unit = host.as<ICapeUnit>();
        const auto* table = static_cast<const ICapeUnit::Table*>(unit->vTbl);
        CHECK(table->Calculate(unit->me) == capeOpenError);
        REQUIRE(table->base.getLastError(unit->me, error.receive()) == noError);
    }
    std::vector<Ref<ICapeError>> held(threadCount, error);
    error = nullptr;
    CHECK(onThreads([&](int i) {
              for (int k = 0; k < 200; ++k) {
                  const Ref<ICapeError> again = held[i];
                  StringObject text;
                  const auto* table = static_cast<const ICapeError::Table*>(again->vTbl);
                  if (table->getErrorText(again->me, text.out()) != noError) return false;
                  if (text.utf8() != "Unit is not valid: Port 'Feed' is not connected") return false;
              }
              held[i] = nullptr;
              return true;
          }) == 0);
}

TEST_CASE("One failure's error goes to one of the threads that ask for it") {
    TestHost host;
    const auto unit = host.as<ICapeUnit>();
    const auto* table = static_cast<const ICapeUnit::Table*>(unit->vTbl);
    for (int round = 0; round < 20; ++round) {
        CHECK(table->Calculate(unit->me) == capeOpenError);
        std::atomic<int> given = 0;
        CHECK(onThreads([&](int) {
                  Ref<ICapeError> error;
                  const CapeResult code = table->base.getLastError(unit->me, error.receive());
                  if (code == noError) ++given;
                  return code == noError || code == noSuchItem;
              }) == 0);
        CHECK(given == 1);
    }
}

TEST_CASE("Interfaces are asked for and released on every thread while the unit calculates") {
    TestHost host{std::string(counting)};
    REQUIRE(host.calculate().succeeded());
    const auto unit = host.as<ICapeUnit>();
    const auto parameters = host.parameters();
    std::atomic<bool> done = false;
    std::thread calculating([&] {
        for (int i = 0; i < 30; ++i) host.calculate();
        done = true;
    });
    const int failed = onThreads([&](int) {
        do {
            for (const auto& found :
                 {query<ICapeInterface>(unit), query<ICapeInterface>(query<ICapeReport>(unit)),
                  query<ICapeInterface>(query<ICapePersist>(unit))})
                if (!found) return false;
            if (!obtain<ICapeInterface, &ICapeCollection::Table::ItemByIndex>(parameters.get(), 0))
                return false;
        } while (!done);
        return true;
    });
    calculating.join();
    CHECK(failed == 0);
}

TEST_CASE("What a script keeps is let go on whichever thread releases the unit") {
    for (int round = 0; round < 3; ++round) {
        auto host = std::make_unique<TestHost>(
            "class Kept:\n    def __del__(self): self.unit.volatile_data.clear()\n"
            "def Configure(unit):\n    pass\n"
            "def Calculate(unit):\n"
            "    kept = Kept(); kept.unit = unit; unit.volatile_data['kept'] = kept\n"
            "    unit.private_data['parameters'] = dict(unit.parameters)\n");
        REQUIRE(host->calculate().succeeded());
        std::thread([&] { host.reset(); }).join();
    }
    TestHost after;
    CHECK(after.calculateDefault().succeeded());
}
