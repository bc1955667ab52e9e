// Typed access to the nodes of a TOML document, with errors that name the file, the line and what was wanted.
// Not here: what a case consists of (CaseReader).
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <toml++/toml.h>
#include <vector>

namespace orvane::host {

int lineOf(const toml::node& node);
int lineOf(const toml::key& key);

/// "an integer", "a table": what a node is, for messages.
std::string_view typeName(const toml::node& node);

/// Every member throws CaseError when the node is not what its name says.
class CaseToml {
public:
    explicit CaseToml(std::filesystem::path file) : file_(std::move(file)) {}

    [[noreturn]] void fail(int line, const std::string& what) const;

    /// Refuses a key that is not among the known ones; `where` is the name of the table, empty for the
    /// document.
    void checkKeys(const toml::table& in, std::string_view where,
                   const std::vector<std::string>& known) const;

    const toml::table& table(const toml::node& node, std::string_view what) const;
    const toml::array& array(const toml::node& node, std::string_view what) const;
    std::string text(const toml::node& node, std::string_view what) const;
    /// Whole or not, but finite.
    double number(const toml::node& node, std::string_view what) const;

private:
    std::filesystem::path file_;
};

}  // namespace orvane::host
