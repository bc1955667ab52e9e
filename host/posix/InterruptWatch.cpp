#include "host/System.h"

#include <atomic>
#include <csignal>
#include <pthread.h>
#include <unistd.h>

namespace orvane::host {
namespace {

struct sigaction before;
pthread_t scriptThread;
std::atomic<bool> watching = false;
std::atomic<bool> noticed = false;
std::atomic<bool> ours = false;  // the next signal is interruptScript's, not the user's

static_assert(std::atomic<bool>::is_always_lock_free);  // a signal handler touches them

void onInterrupt(int signal) {
    if (!ours.exchange(false)) {
        if (noticed.exchange(true)) _exit(130);
        if (before.sa_handler == SIG_DFL) _exit(130);
    }
    if (before.sa_handler != SIG_DFL && before.sa_handler != SIG_IGN) before.sa_handler(signal);
}

}  // namespace

InterruptWatch::InterruptWatch() {
    noticed = false;
    scriptThread = pthread_self();
    sigaction(SIGINT, nullptr, &before);
    if (before.sa_handler == SIG_IGN) return;  // started with Ctrl-C ignored: it stays so
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    watching = true;
}

InterruptWatch::~InterruptWatch() {
    if (!watching.exchange(false)) return;
    sigaction(SIGINT, &before, nullptr);
}

bool InterruptWatch::interrupted() const noexcept { return noticed; }

void InterruptWatch::interruptScript() noexcept {
    if (!watching) return;
    ours = true;
    pthread_kill(scriptThread, SIGINT);
}

}  // namespace orvane::host
