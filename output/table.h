/// Tables for people: columns that stand below each other.
#pragma once

#include <string>
#include <vector>

namespace paramgen::output {

/// Rows of cells. Texts are as they are shown (`Shown`).
class Table {
public:
    void Add(std::vector<std::string> row);

    /// The rows, one a line, every column but the last as wide as its widest cell and two spaces
    /// apart from the next. Nothing is behind the last cell of a row that is not empty.
    std::string Text() const;

private:
    std::vector<std::vector<std::string>> rows_;
};

}  // namespace paramgen::output
