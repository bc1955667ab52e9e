// A table of texts with aligned columns, for a terminal or a file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::host {

/// The first columns stand to the left, the others to the right. A row may be shorter than others.
class Table {
public:
    explicit Table(std::size_t leftColumns = 1) : leftColumns_(leftColumns) {}

    void row(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

    /// One line a row, two spaces between columns, no spaces at the end of a line.
    std::string text() const;

private:
    std::size_t leftColumns_;
    std::vector<std::vector<std::string>> rows_;
};

/// How many columns of a terminal a UTF-8 text takes: one a character, none for combining marks, two for the
/// wide characters of East Asian scripts.
std::size_t displayWidth(std::string_view utf8);

}  // namespace orvane::host
