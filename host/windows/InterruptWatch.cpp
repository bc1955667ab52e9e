#include "host/System.h"

#include <atomic>
#include <csignal>
#include <windows.h>

namespace orvane::host {
namespace {

using Handler = void (*)(int signal);

std::atomic<bool> watching = false;
std::atomic<bool> noticed = false;

/// What the C runtime of the interpreter does on Ctrl-C; SIG_DFL when there is none.
Handler interpretersHandler() noexcept {
    const HMODULE runtime = GetModuleHandleW(L"ucrtbase.dll");
    const FARPROC entry = runtime ? GetProcAddress(runtime, "signal") : nullptr;
    if (!entry) return SIG_DFL;
    const auto ask = reinterpret_cast<Handler (*)(int, Handler)>(reinterpret_cast<void*>(entry));
    return ask(SIGINT, SIG_GET);
}

bool isFunction(Handler handler) noexcept { return handler != SIG_DFL && handler != SIG_IGN; }

[[noreturn]] void endAtOnce() noexcept {
    TerminateProcess(GetCurrentProcess(), 130);
    for (;;) Sleep(INFINITE);
}

/// On a thread of the system's own.
BOOL WINAPI onControl(DWORD event) {
    if (event != CTRL_C_EVENT) return FALSE;
    const Handler before = interpretersHandler();
    if (noticed.exchange(true) || before == SIG_DFL) endAtOnce();
    if (isFunction(before)) before(SIGINT);
    return TRUE;
}

}  // namespace

InterruptWatch::InterruptWatch() {
    noticed = false;
    watching = SetConsoleCtrlHandler(onControl, TRUE);
}

InterruptWatch::~InterruptWatch() {
    if (watching.exchange(false)) SetConsoleCtrlHandler(onControl, FALSE);
}

bool InterruptWatch::interrupted() const noexcept { return noticed; }

void InterruptWatch::interruptScript() noexcept {
    if (!watching) return;
    if (const Handler handler = interpretersHandler(); isFunction(handler)) handler(SIGINT);
}

}  // namespace orvane::host
