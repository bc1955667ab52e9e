// A folder for one test, gone afterwards.
#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <thread>

namespace orvane::test {

class TemporaryFolder {
public:
    /// The name may hold any text; the folder is unique beside it.
    explicit TemporaryFolder(const std::string& name = "test")
        : root_(std::filesystem::temp_directory_path() /
                ("orvane-" + std::to_string(std::random_device()()))),
          path_(root_ / fromUtf8(name)) {
        std::filesystem::create_directories(path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        // What a process had open may stay so for a moment after its end.
        std::error_code failed;
        for (int i = 0; i < 100; ++i) {
            std::filesystem::remove_all(root_, failed);
            if (!failed) return;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }

    const std::filesystem::path& path() const noexcept { return path_; }
    /// The same in UTF-8, with slashes, as it may stand in a script's text on every system.
    std::string utf8() const {
        const std::u8string text = path_.generic_u8string();
        return std::string(text.begin(), text.end());
    }
    std::filesystem::path file(const std::string& name) const { return path_ / name; }
    std::string read(const std::string& name) const {
        std::ifstream stream(file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    /// How many things are in it.
    std::size_t count() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(path_), std::filesystem::directory_iterator()));
    }
    void write(const std::string& name, const std::string& text) const {
        const std::filesystem::path file = path_ / fromUtf8(name);
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
    }

private:
    static std::filesystem::path fromUtf8(const std::string& name) {
        return std::u8string(name.begin(), name.end());
    }

    std::filesystem::path root_, path_;
};

}  // namespace orvane::test
