// A folder for one test, gone afterwards.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace orvane::test {

class TemporaryFolder {
public:
    /// The name may hold any text; the folder is unique beside it.
    explicit TemporaryFolder(const std::string& name = "test")
        : root_(std::filesystem::temp_directory_path() /
                ("orvane-" + std::to_string(std::random_device()()))),
          path_(root_ / name) {
        std::filesystem::create_directories(path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(root_); }

    const std::filesystem::path& path() const noexcept { return path_; }
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
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << text;
    }

private:
    std::filesystem::path root_, path_;
};

}  // namespace orvane::test
