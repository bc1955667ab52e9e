#include "host/Watchdog.h"

#include "host/ExitCode.h"
#include "host/System.h"

#include <utility>

namespace orvane::host {

Watchdog::Watchdog(std::chrono::duration<double> time, std::function<void()> lastWords)
    : lastWords_(std::move(lastWords)), thread_([this, time] { watch(time); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard lock(mutex_);
        done_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void Watchdog::watch(std::chrono::duration<double> time) {
    std::unique_lock lock(mutex_);
    const auto done = [this] { return done_; };
    if (changed_.wait_for(lock, time, done)) return;
    timeIsUp_ = true;
    InterruptWatch::interruptScript();
    if (changed_.wait_for(lock, grace, done)) return;
    lastWords_();
    endProcess(exitTimedOut);
}

}  // namespace orvane::host
