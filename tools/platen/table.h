#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace platen::tool {

/// Rows of texts, shown in columns as wide as their widest text.
class Table {
  public:
    struct Column {
        const char* heading;
        bool rightAligned;
    };

    explicit Table(std::vector<Column> columns);

    /// One text a column.
    void Add(std::vector<std::string> row);
    /// The headings and all rows, indented, a line each.
    [[nodiscard]] std::string Text() const;

  private:
    std::vector<Column> m_columns;
    std::vector<std::size_t> m_widths;
    std::vector<std::vector<std::string>> m_rows;
};

}  // namespace platen::tool
