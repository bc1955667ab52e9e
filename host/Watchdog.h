// Ends a run that takes too long.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace orvane::host {

/// When time is up, first interrupts the script as Ctrl-C does, so that the run can end in order and what was
/// printed is kept. A run that does not heed it within the grace period is ended: `lastWords` is called, on a
/// thread of its own, and the process ends with exitTimedOut.
class Watchdog {
public:
    static constexpr std::chrono::milliseconds grace{1000};

    Watchdog(std::chrono::duration<double> time, std::function<void()> lastWords);
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog();

    bool timeIsUp() const noexcept { return timeIsUp_; }

private:
    void watch(std::chrono::duration<double> time);

    std::function<void()> lastWords_;
    std::atomic<bool> timeIsUp_ = false;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool done_ = false;
    std::thread thread_;  // last, so that it starts when all else is there
};

}  // namespace orvane::host
