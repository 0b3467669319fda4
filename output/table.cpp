#include "output/table.h"

#include <algorithm>

#include "output/shown_text.h"

namespace paramgen::output {

constexpr std::size_t kGap = 2;

void Table::Add(std::vector<std::string> row) {
    rows_.push_back(std::move(row));
}

std::vector<std::size_t> Table::Widths() const {
    std::vector<std::size_t> widths;
    for (const std::vector<std::string>& row : rows_) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], WidthOf(row[i]));
        }
    }
    for (const auto& [column, limit] : limits_) {
        if (column < widths.size()) {
            widths[column] = std::min(widths[column], limit);
        }
    }
    return widths;
}

std::string Table::Text() const {
    const std::vector<std::size_t> widths = Widths();
    std::string text;
    for (const std::vector<std::string>& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::size_t width = WidthOf(row[i]);
            text.append(row[i]).append(std::max(widths[i], width) - width + kGap, ' ');
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

}  // namespace paramgen::output
