#include "tests/host/CommandProcess.h"

#include <chrono>
#include <fstream>
#include <iterator>

namespace orvane::host {
namespace {

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

std::string TestFolder::write(const std::string& name, const std::string& text) const {
    std::ofstream(file(name), std::ios::binary) << text;
    return file(name).string();
}

std::string TestFolder::read(const std::string& name) const { return contentOf(file(name)); }

std::vector<std::string> TestFolder::names() const {
    std::vector<std::string> result;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
        result.push_back(entry.path().filename().string());
    }
    return result;
}

Finished command(const std::vector<std::string>& arguments, const std::vector<std::string>& environment,
                 const std::function<void(test::Process&)>& meanwhile) {
    const TestFolder folder;
    std::vector<std::string> words = {ORVANE_BIN "/orvane"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const auto start = std::chrono::steady_clock::now();
    test::Process process(words, environment, folder.file("out"), folder.file("error"));
    if (meanwhile) meanwhile(process);
    const int exitCode = process.wait(60);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return {exitCode, folder.read("out"), folder.read("error"), seconds};
}

}  // namespace orvane::host
