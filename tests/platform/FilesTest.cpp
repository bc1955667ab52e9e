#include "platform/Files.h"
#include "platform/TemporaryFile.h"

#include "cobia/Error.h"
#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>
#include <filesystem>
#include <string>

using namespace orvane;
namespace fs = std::filesystem;

namespace {

fs::path native(const std::string& utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }
bool exists(const std::string& path) { return fs::exists(native(path)); }

/// What the call says of its failure; empty when it does not fail.
template <class Body> std::string failure(Body&& body) {
    try {
        body();
    }
    catch (const COBIA::StringException& error) {
        return error.what();
    }
    return {};
}

}  // namespace

TEST_CASE("A file gives back the bytes that were written, whatever they are") {
    TemporaryFile file;
    std::string everyByte;
    for (int value = 0; value < 256; ++value) everyByte += static_cast<char>(value);

    for (const std::string& bytes : {everyByte + everyByte, std::string("a\r\nb\nc\r\r\n\x1a"),
                                     std::string(100'000, 'x'), std::string("short\0er", 8), std::string()}) {
        writeFile(file.path(), bytes);
        CHECK(readFile(file.path()) == bytes);
    }
}

TEST_CASE("A file that cannot be read or written is named, with the system's reason") {
    TemporaryFile directory(".folder");
    fs::remove(native(directory.path()));
    const std::string missing = directory.path() + "/Größe.py";
    const auto reading = failure([&] { readFile(missing); });
    const auto writing = failure([&] { writeFile(missing, "text"); });
    for (const std::string& message : {reading, writing}) {
        const std::size_t reason = message.find(missing + "': ") + missing.size() + 3;
        CHECK(message.size() > reason + 5);
    }
    CHECK(reading.find("read") != reading.npos);
    CHECK(writing.find("write") != writing.npos);

    // A folder can be opened, and only then refuses.
    CHECK_THROWS_AS(readFile(fs::temp_directory_path().string()), COBIA::StringException);
    CHECK_THROWS_AS(writeFile(fs::temp_directory_path().string(), ""), COBIA::StringException);
}

TEST_CASE("A file is written whole or not at all, and nothing is left of an attempt") {
    const test::TemporaryFolder folder("Größe");
    const std::string target = folder.utf8() + "/report.txt";
    writeFile(target, "old");
    writeFile(target, "new");
    CHECK(readFile(target) == "new");
    CHECK_THROWS_AS(writeFile(folder.utf8() + "/" + std::string(300, 'n'), "x"), COBIA::StringException);
    // A folder, which no file takes the place of.
    fs::create_directory(folder.file("taken"));
    CHECK_THROWS_AS(writeFile(folder.utf8() + "/taken", "x"), COBIA::StringException);
    CHECK(folder.count() == 2);
}

TEST_CASE("A temporary file lives as long as its owner") {
    std::string path;
    {
        const TemporaryFile file(".png");
        path = file.path();
        const fs::path name = native(path);
        CHECK(readFile(path).empty());
        CHECK(name.is_absolute());
        CHECK(name.filename().string().starts_with("ORV"));
        CHECK(name.extension() == ".png");
        CHECK(fs::equivalent(name.parent_path(), (fs::temp_directory_path() / "x").parent_path()));
    }
    CHECK_FALSE(exists(path));
}

TEST_CASE("Temporary files have different names") {
    const TemporaryFile one, other;
    CHECK(one.path() != other.path());
}

TEST_CASE("A temporary file that somebody removed is no trouble") {
    TemporaryFile file;
    CHECK(fs::remove(native(file.path())));
}

TEST_CASE("A temporary file moves with its owner") {
    TemporaryFile first, second;
    const std::string kept = first.path();
    const std::string replaced = second.path();

    second = std::move(first);
    CHECK(second.path() == kept);
    CHECK(exists(kept));
    CHECK_FALSE(exists(replaced));

    TemporaryFile& same = second;
    second = std::move(same);
    CHECK(second.path() == kept);
    CHECK(exists(kept));

    {
        const TemporaryFile third(std::move(second));
        CHECK(third.path() == kept);
    }
    CHECK_FALSE(exists(kept));
}

TEST_CASE("A released temporary file stays") {
    std::string path;
    {
        TemporaryFile file;
        path = file.path();
        CHECK(file.release() == path);
        CHECK(file.path().empty());
    }
    CHECK(fs::remove(native(path)));
}
