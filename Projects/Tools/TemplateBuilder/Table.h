#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace TemplateBuilder {

/// A compact table of records, read from text.
///
/// Lines that start with `#` are comments and blank lines are skipped. The first other line names the
/// columns; every further one is a row. Fields are separated by `|`, and blanks around them do not count.
/// There is no quoting: a field holds no `|`. Text is in the system code page. A table owns all its text.
class Table {
public:
    /// Reads a table. `file` names it in messages. Throws BuildError for a table without a header or with an
    /// unnamed or repeated column, for a row whose fields are not as many as the columns, and for control
    /// characters.
    Table(std::string file, std::string_view text);

    const std::string& File() const { return m_File; }
    std::size_t RowCount() const { return m_Rows.size(); }
    /// The field of a row, which must exist; null when the table has no such column.
    const std::string* Field(std::size_t row, std::string_view column) const;
    /// The line of the file that the row stands on, counted from 1.
    int LineOf(std::size_t row) const { return m_Rows[row].Line; }
    /// The row whose first field is `key`; RowCount() when there is none. Throws BuildError on the first call
    /// when two rows share a first field.
    std::size_t FindRow(const std::string& key) const;

private:
    struct Row {
        int Line;
        std::vector<std::string> Fields;
    };

    void ReadHeader(std::string_view line, int number);
    void ReadRow(std::string_view line, int number);
    void IndexFirstColumn() const;

    std::string m_File;
    std::vector<std::string> m_Columns;
    std::vector<Row> m_Rows;
    mutable std::unordered_map<std::string, std::size_t> m_RowOfKey;
};

/// The text without white space at both ends.
std::string_view Trimmed(std::string_view text);

/// The parts of `text` between separators, each trimmed. An empty text has no parts.
std::vector<std::string> SplitList(std::string_view text, char separator);

} // namespace TemplateBuilder
