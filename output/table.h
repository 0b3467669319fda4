/// Tables for people: columns that stand below each other.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace paramgen::output {

/// Rows of cells. Texts are as they are shown (`Shown`).
class Table {
public:
    void Add(std::vector<std::string> row);

    /// Lets column `column`, from 0, be at most `width` wide. A wider cell moves the rest of its
    /// row to the right.
    void Limit(std::size_t column, std::size_t width) { limits_[column] = width; }

    /// The rows, one a line, every column but the last as wide as its widest cell and two spaces
    /// apart from the next. Nothing is behind the last cell of a row that is not empty.
    std::string Text() const;

private:
    std::vector<std::size_t> Widths() const;

    std::vector<std::vector<std::string>> rows_;
    std::map<std::size_t, std::size_t> limits_;  ///< by column
};

}  // namespace paramgen::output
