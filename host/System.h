// What the host needs from the operating system: dynamic libraries, the standard output, interrupts, files.
// One folder a system implements it; nothing else in host/ tests for the platform.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::host {

/// The words of this process's command line, the program first, in UTF-8. Takes what main was given.
std::vector<std::string> programArguments(int count, char** arguments);

/// Makes the standard streams carry UTF-8, byte for byte. To be called before anything is written.
void prepareStreams();

/// Nothing when the variable is not set. UTF-8.
std::optional<std::string> environmentVariable(const char* name);

/// The file that this process runs.
std::filesystem::path executableFile();

/// The file names of the unit operation's module, and of the companion library.
std::string_view moduleFileName();
std::string_view companionFileName();

/// A dynamic library, loaded as simulators load modules: all symbols at once, and visible to nothing else.
/// It stays loaded when this object goes: an interpreter that lives in it cannot be taken away.
class DynamicLibrary {
public:
    /// Throws std::runtime_error with the loader's text.
    explicit DynamicLibrary(const std::filesystem::path& file);

    /// Null when the library has no such symbol.
    void* symbol(const char* name) const;

private:
    void* handle_;
};

/// True when the loader's text says that the library of the Python interpreter is what is missing.
bool saysPythonIsMissing(std::string_view loaderText);

/// What to do about it, as one sentence.
std::string_view pythonAdvice();

/// The files of the Python interpreters that are loaded in this process.
std::vector<std::string> pythonLibraries();

/// Whether standard error is a terminal.
bool errorIsTerminal();

/// The standard output as it was when this object was made. From then on whatever writes to the standard
/// output of the process (scripts, C libraries, printf) reaches standard error instead.
class ReservedOutput {
public:
    ReservedOutput();
    ReservedOutput(const ReservedOutput&) = delete;
    ReservedOutput& operator=(const ReservedOutput&) = delete;
    ~ReservedOutput();

    /// Throws std::runtime_error when the text could not be written in whole.
    void write(std::string_view text);

private:
    std::intptr_t reserved_;  // the system's own name for it
};

/// Writes a file whole or not at all: beside it under a temporary name, then renamed. What is there already
/// and is no regular file (a pipe, a device) is written directly. Throws std::runtime_error that names the
/// file and the reason.
void writeWhole(const std::filesystem::path& file, std::string_view text);

/// Notices Ctrl-C, and passes it on to the handler that was there before, so that a script gets its
/// KeyboardInterrupt. A second Ctrl-C ends the process at once with exit code 130, and so does the first
/// where there was no handler. One at a time. To be made after the interpreter has started, on the thread
/// that runs it.
class InterruptWatch {
public:
    InterruptWatch();
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;
    ~InterruptWatch();

    bool interrupted() const noexcept;

    /// Asks the interpreter to interrupt the script, as Ctrl-C does, without interrupted() becoming true.
    /// From any thread; does nothing when no InterruptWatch is there.
    static void interruptScript() noexcept;
};

/// Ends the process now, without tidying up, after what was written to the standard streams is out.
[[noreturn]] void endProcess(int exitCode) noexcept;

}  // namespace orvane::host
