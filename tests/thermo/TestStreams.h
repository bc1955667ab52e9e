// A feed and a product port with test materials connected, and scripts that see them as `feed` and `product`.
// On leaving it sees to it that everything of the host has been given back.
#pragma once

#include "tests/thermo/TestMaterial.h"
#include "thermo/MaterialPort.h"

#include <string>
#include <vector>

namespace orvane::test {

class TestStreams final : public PortOwner {
public:
    /// The feed: 2 mol/s, half of it vapour, at 1e5 Pa. K.
    static constexpr double pressure = 1e5;
    static inline const std::vector<double> composition = {0.5, 0.3, 0.2};

    TestStreams();
    TestStreams(const TestStreams&) = delete;
    TestStreams& operator=(const TestStreams&) = delete;
    ~TestStreams();

    /// Puts another state onto the feed.
    void setFeed(const TestPackage::Split& split);
    /// Starts a run: ports prepared, new scripting objects.
    void begin();
    /// Ends the script's part as the unit does; kept objects live on.
    void release();
    /// Ends the run; the text of the failure, or empty.
    std::string finish();

    /// Runs statements: "RuntimeError: value not specified", or empty when nothing was raised.
    std::string error(const std::string& statements);
    /// What an expression gives, as repr; a failure as error() gives it.
    std::string repr(const std::string& expression);
    double number(const std::string& expression);
    PyRef eval(const std::string& expression);

    TestPackage package;
    COBIA::Ref<TestMaterial> feed, product;
    COBIA::Ref<MaterialPort> feedPort, productPort;
    std::vector<std::string> warnings;

private:
    void portChanged() override {}
    void warn(const std::string& text) override { warnings.push_back(text); }
    void addHolder(HostObjectHolder& holder) override { holders_.push_back(&holder); }
    void removeHolder(HostObjectHolder& holder) noexcept override { std::erase(holders_, &holder); }

    std::vector<HostObjectHolder*> holders_;
    PyRef names_;
};

}  // namespace orvane::test
