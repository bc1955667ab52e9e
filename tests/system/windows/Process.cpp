#include "tests/system/Process.h"

#include "cobia/Text.h"

#include <algorithm>
#include <stdexcept>
#include <windows.h>

namespace orvane::test {
namespace {

/// In quotes, with what the program takes apart again.
std::wstring quoted(const std::string& word) {
    std::wstring result = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : COBIA::toCape(word)) {
        if (c == L'"') result.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        result += c;
    }
    return result.append(backslashes, L'\\') + L"\"";
}

/// Those of this process, with the given ones first: the first of a name counts.
std::wstring environmentBlock(const std::vector<std::string>& added) {
    std::wstring block;
    for (const std::string& variable : added) block += COBIA::toCape(variable) + L'\0';
    wchar_t* const own = GetEnvironmentStringsW();
    for (const wchar_t* variable = own; *variable; variable += wcslen(variable) + 1) {
        const std::wstring text = variable;
        const bool replaced = std::any_of(added.begin(), added.end(), [&](const std::string& one) {
            return COBIA::equalIgnoringCase(COBIA::toUtf8(text.substr(0, text.find(L'=', 1))),
                                            one.substr(0, one.find('=')));
        });
        if (!replaced) block += text + L'\0';
    }
    FreeEnvironmentStringsW(own);
    return block + L'\0';
}

HANDLE inheritable(const wchar_t* file, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES attributes{sizeof attributes, nullptr, TRUE};
    return CreateFileW(file, access, FILE_SHARE_READ | FILE_SHARE_WRITE, &attributes, disposition, 0,
                       nullptr);
}

}  // namespace

struct Process::System {
    HANDLE process = nullptr;
    ~System() { CloseHandle(process); }
};

Process::Process(const std::vector<std::string>& words, const std::vector<std::string>& environment,
                 const std::filesystem::path& output, const std::filesystem::path& errors)
    : system_(std::make_unique<System>()) {
    std::wstring line;
    for (const std::string& word : words) line += (line.empty() ? L"" : L" ") + quoted(word);
    std::wstring variables = environmentBlock(environment);

    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = inheritable(L"NUL", GENERIC_READ, OPEN_EXISTING);
    start.hStdOutput = inheritable(output.c_str(), GENERIC_WRITE, CREATE_ALWAYS);
    start.hStdError = inheritable(errors.c_str(), GENERIC_WRITE, CREATE_ALWAYS);
    PROCESS_INFORMATION started{};
    const bool running = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE,
                                        CREATE_UNICODE_ENVIRONMENT | CREATE_NO_WINDOW, variables.data(),
                                        nullptr, &start, &started);
    for (const HANDLE handle : {start.hStdInput, start.hStdOutput, start.hStdError}) CloseHandle(handle);
    if (!running) throw std::runtime_error("cannot start " + words[0]);
    CloseHandle(started.hThread);
    system_->process = started.hProcess;
}

Process::~Process() {
    if (!exitCode()) wait(0);
}

/// Every process on a console gets it, so the one started has a console of its own, and this one does not heed it.
void Process::interrupt() {
    static const BOOL ignored = SetConsoleCtrlHandler([](DWORD) -> BOOL { return TRUE; }, TRUE);
    FreeConsole();
    // A process that has just started may have none yet.
    bool attached = false;
    for (int i = 0; i < 250 && !attached; ++i) {
        attached = AttachConsole(GetProcessId(system_->process));
        if (!attached) Sleep(20);
    }
    const bool done = ignored && attached && GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
    if (!done) throw std::runtime_error("Ctrl-C cannot be sent, error " + std::to_string(GetLastError()));
}

std::optional<int> Process::exitCode() {
    DWORD code = 0;
    if (WaitForSingleObject(system_->process, 0) == WAIT_TIMEOUT) return std::nullopt;
    GetExitCodeProcess(system_->process, &code);
    return static_cast<int>(code);
}

int Process::wait(double seconds) {
    if (WaitForSingleObject(system_->process, static_cast<DWORD>(seconds * 1000)) == WAIT_TIMEOUT)
        TerminateProcess(system_->process, 137);
    WaitForSingleObject(system_->process, INFINITE);
    return *exitCode();
}

}  // namespace orvane::test
