// A unit with ports, and scripts that see their objects by the names they are put under. On leaving it sees to it that
// everything of the host has been given back.
#pragma once

#include "engine/PyRef.h"
#include "streams/Port.h"
#include "tests/streams/TestStream.h"

#include <string>
#include <vector>

namespace orvane::test {

class TestUnit final : public PortOwner {
public:
    TestUnit();
    TestUnit(const TestUnit&) = delete;
    TestUnit& operator=(const TestUnit&) = delete;
    ~TestUnit();

    /// The port's scripting object under the name `port`; the text of the failure, or empty.
    std::string begin(Port& port);
    /// Ends the script's part as the unit does; kept objects live on.
    void release();

    /// Runs statements: "ValueError: no", or empty when nothing was raised.
    std::string error(const std::string& statements);
    /// What an expression gives, as repr; a failure as error() gives it.
    std::string repr(const std::string& expression);
    PyRef kept();

    std::vector<std::string> warnings;
    int changes = 0;

private:
    void portChanged() override { ++changes; }
    void warn(const std::string& text) override { warnings.push_back(text); }
    void addHolder(HostObjectHolder& holder) override { holders_.push_back(&holder); }
    void removeHolder(HostObjectHolder& holder) noexcept override { std::erase(holders_, &holder); }

    std::vector<HostObjectHolder*> holders_;
    PyRef names_;
};

/// What connecting an object comes to: empty, "code 103", or the text of the error.
std::string connect(Port& port, COBIA::ICapeInterface* object);

}  // namespace orvane::test
