// A registry of the test's own: what this process takes for its two roots, for as long as the object lives. Nothing of the
// user's or the machine's is read or written.
#pragma once

#include <stdexcept>
#include <string>
#include <windows.h>

namespace orvane::test {

class OwnRegistry {
public:
    /// What stands for a root.
    class Root {
    public:
        void text(const std::wstring& key, const std::wstring& name, const std::wstring& value) {
            write(key, name, REG_SZ, value.c_str(), (value.size() + 1) * sizeof(wchar_t));
        }
        /// Of any type, and without the null at the end that texts have.
        void value(const std::wstring& key, const std::wstring& name, DWORD type, const std::wstring& units) {
            write(key, name, type, units.c_str(), units.size() * sizeof(wchar_t));
        }

    private:
        friend OwnRegistry;
        explicit Root(const std::wstring& path) {
            check(RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                                  KEY_ALL_ACCESS, nullptr, &key_, nullptr));
        }
        Root(const Root&) = delete;
        Root& operator=(const Root&) = delete;
        ~Root() { RegCloseKey(key_); }

        void write(const std::wstring& path, const std::wstring& name, DWORD type, const void* data,
                   std::size_t size) {
            HKEY key = nullptr;
            check(RegCreateKeyExW(key_, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_WRITE, nullptr,
                                  &key, nullptr));
            const LSTATUS status = RegSetValueExW(key, name.c_str(), 0, type, static_cast<const BYTE*>(data),
                                                  static_cast<DWORD>(size));
            RegCloseKey(key);
            check(status);
        }

        HKEY key_ = nullptr;
    };

    OwnRegistry() {
        check(RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine.key_));
        check(RegOverridePredefKey(HKEY_CURRENT_USER, user.key_));
    }
    OwnRegistry(const OwnRegistry&) = delete;
    OwnRegistry& operator=(const OwnRegistry&) = delete;
    ~OwnRegistry() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, path().c_str());
    }

private:
    static void check(LSTATUS status) {
        if (status != ERROR_SUCCESS) throw std::runtime_error("registry error " + std::to_string(status));
    }
    static std::wstring path() { return L"Software\\OrvaneTest\\" + std::to_wstring(GetCurrentProcessId()); }

public:
    Root user{path() + L"\\user"}, machine{path() + L"\\machine"};
};

}  // namespace orvane::test
