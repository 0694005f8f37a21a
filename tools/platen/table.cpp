#include "table.h"

#include <algorithm>

namespace platen::tool {

Table::Table(std::vector<Column> columns) : m_columns(std::move(columns)) {
    m_widths.resize(m_columns.size());
    std::vector<std::string> headings;
    for (const Column& column : m_columns) {
        headings.emplace_back(column.heading);
    }
    Add(std::move(headings));
}

void Table::Add(std::vector<std::string> row) {
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        m_widths[i] = std::max(m_widths[i], row[i].size());
    }
    m_rows.push_back(std::move(row));
}

std::string Table::Text() const {
    std::string text;
    for (const auto& row : m_rows) {
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            const std::string padding(m_widths[i] - row[i].size(), ' ');
            text += "  ";
            text += m_columns[i].rightAligned ? padding + row[i] : row[i] + padding;
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

}  // namespace platen::tool
