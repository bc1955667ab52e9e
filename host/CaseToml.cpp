#include "host/CaseToml.h"

#include "host/CaseFile.h"
#include "host/NearestName.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <optional>

namespace orvane::host {

int lineOf(const toml::node& node) { return static_cast<int>(node.source().begin.line); }
int lineOf(const toml::key& key) { return static_cast<int>(key.source().begin.line); }

std::string_view typeName(const toml::node& node) {
    switch (node.type()) {
    case toml::node_type::table: return "a table";
    case toml::node_type::array: return "an array";
    case toml::node_type::string: return "a text";
    case toml::node_type::integer: return "an integer";
    case toml::node_type::floating_point: return "a number";
    case toml::node_type::boolean: return "true or false";
    default: return "a date or time";
    }
}

void CaseToml::fail(int line, const std::string& what) const { throw CaseError(file_, line, what); }

void CaseToml::checkKeys(const toml::table& in, std::string_view where,
                         const std::vector<std::string>& known) const {
    for (const auto& [key, value] : in) {
        if (std::ranges::find(known, key.str()) != known.end()) continue;
        fail(lineOf(key),
             fmt::format("unknown key '{}'{}{}", key.str(),
                         where.empty() ? "" : fmt::format(" in [{}]", where), suggestion(key.str(), known)));
    }
}

const toml::table& CaseToml::table(const toml::node& node, std::string_view what) const {
    if (const auto* result = node.as_table()) return *result;
    fail(lineOf(node), fmt::format("'{}' is to be a table, not {}", what, typeName(node)));
}

const toml::array& CaseToml::array(const toml::node& node, std::string_view what) const {
    if (const auto* result = node.as_array()) return *result;
    fail(lineOf(node), fmt::format("'{}' is to be an array, not {}", what, typeName(node)));
}

std::string CaseToml::text(const toml::node& node, std::string_view what) const {
    if (const auto* result = node.as_string()) return result->get();
    fail(lineOf(node), fmt::format("'{}' is to be a text in quotes, not {}", what, typeName(node)));
}

double CaseToml::number(const toml::node& node, std::string_view what) const {
    const auto result = node.is_number() ? node.value<double>() : std::nullopt;
    if (!result) fail(lineOf(node), fmt::format("'{}' is to be a number, not {}", what, typeName(node)));
    if (!std::isfinite(*result))
        fail(lineOf(node), fmt::format("'{}' is {}, which is no amount", what, *result));
    return *result;
}

}  // namespace orvane::host
