#include "output/table.h"

#include <algorithm>

#include "output/shown_text.h"

namespace paramgen::output {

constexpr std::size_t kGap = 2;

void Table::Add(std::vector<std::string> row) {
    rows_.push_back(std::move(row));
}

std::string Table::Text() const {
    std::vector<std::size_t> widths;
    for (const std::vector<std::string>& row : rows_) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], WidthOf(row[i]));
        }
    }
    std::string text;
    for (const std::vector<std::string>& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i] + std::string(widths[i] - WidthOf(row[i]) + kGap, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

}  // namespace paramgen::output
