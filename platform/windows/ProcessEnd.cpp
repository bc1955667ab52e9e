#include "platform/ProcessEnd.h"

#include <atomic>
#include <windows.h>

namespace orvane {
namespace {

std::atomic<void (*)()> atEnd = nullptr;

void __cdecl callAtEnd() {
    if (const auto function = atEnd.exchange(nullptr)) function();
}

int __cdecl callAtEndOld() {
    callAtEnd();
    return 0;
}

template <class Register, class Function>
void registerWith(const wchar_t* runtime, const char* entry, Function function) {
    const HMODULE module = GetModuleHandleW(runtime);
    if (const auto found = module ? GetProcAddress(module, entry) : nullptr)
        reinterpret_cast<Register*>(reinterpret_cast<void*>(found))(function);
}

}  // namespace

void beforeProcessEnds(void (*function)()) {
    atEnd = function;
    HMODULE self = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const wchar_t*>(&callAtEnd), &self);
    // The list of this library's own C runtime is gone through too late. Which runtime the host has is not known, so its
    // end is asked of both; that of a host which brings its own inside goes unnoticed.
    registerWith<int(void(__cdecl*)())>(L"ucrtbase.dll", "_crt_atexit", &callAtEnd);
    using Old = int(__cdecl*)();
    registerWith<Old(Old)>(L"msvcrt.dll", "_onexit", &callAtEndOld);
}

bool otherThreadsAreGone() noexcept {
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    const auto found = system ? GetProcAddress(system, "RtlDllShutdownInProgress") : nullptr;
    return found && reinterpret_cast<BOOLEAN(NTAPI*)()>(reinterpret_cast<void*>(found))();
}

}  // namespace orvane
