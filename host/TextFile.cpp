#include "host/TextFile.h"

#include "cobia/Text.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace orvane::host {

std::string readText(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) throw std::runtime_error("it is a folder");
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw std::runtime_error(std::generic_category().message(errno));
    std::string text(std::istreambuf_iterator<char>(stream), {});
    if (stream.bad()) throw std::runtime_error("it cannot be read to its end");
    return text;
}

std::string readScript(const std::filesystem::path& file) {
    std::string text = readText(file);
    if (COBIA::wellFormed(text) != text) throw std::runtime_error("it is not UTF-8 text; save it as UTF-8");
    return text;
}

}  // namespace orvane::host
