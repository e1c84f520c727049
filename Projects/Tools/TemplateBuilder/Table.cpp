#include "Projects/Tools/TemplateBuilder/Table.h"

#include "Projects/Tools/TemplateBuilder/BuildError.h"

#include <algorithm>
#include <utility>

namespace TemplateBuilder {

namespace {

constexpr char kFieldSeparator = '|';
constexpr char kCommentMark = '#';

bool IsControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return (byte < 0x20 && character != '\t') || byte == 0x7F;
}

std::vector<std::string> SplitFields(std::string_view line) {
    std::vector<std::string> fields;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = std::min(line.find(kFieldSeparator, start), line.size());
        fields.emplace_back(Trimmed(line.substr(start, end - start)));
        if (end == line.size())
            return fields;
        start = end + 1;
    }
}

} // namespace

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kWhite = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kWhite);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kWhite) - first + 1);
}

std::vector<std::string> SplitList(std::string_view text, char separator) {
    std::vector<std::string> parts;
    if (Trimmed(text).empty())
        return parts;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find(separator, start), text.size());
        parts.emplace_back(Trimmed(text.substr(start, end - start)));
        start = end + 1;
    }
    return parts;
}

Table::Table(std::string file, std::string_view text) : m_File(std::move(file)) {
    int number = 0;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const std::string_view line = Trimmed(text.substr(start, end - start));
        start = end + 1;
        ++number;
        if (line.empty() || line.front() == kCommentMark)
            continue;
        if (std::any_of(line.begin(), line.end(), IsControl))
            throw BuildError(m_File, number, "the line holds a control character");
        if (m_Columns.empty())
            ReadHeader(line, number);
        else
            ReadRow(line, number);
    }
    if (m_Columns.empty())
        throw BuildError(m_File, "the table has no line that names its columns");
}

void Table::ReadHeader(std::string_view line, int number) {
    m_Columns = SplitFields(line);
    for (std::size_t i = 0; i < m_Columns.size(); ++i) {
        if (m_Columns[i].empty())
            throw BuildError(m_File, number, "column " + std::to_string(i + 1) + " has no name");
        if (std::find(m_Columns.begin(), m_Columns.begin() + static_cast<std::ptrdiff_t>(i), m_Columns[i]) !=
            m_Columns.begin() + static_cast<std::ptrdiff_t>(i))
            throw BuildError(m_File, number, "two columns are named '" + m_Columns[i] + "'");
    }
}

void Table::ReadRow(std::string_view line, int number) {
    std::vector<std::string> fields = SplitFields(line);
    if (fields.size() != m_Columns.size())
        throw BuildError(m_File, number,
                         "the row has " + std::to_string(fields.size()) + " fields where the table has " +
                             std::to_string(m_Columns.size()) + " columns");
    m_Rows.push_back({number, std::move(fields)});
}

const std::string* Table::Field(std::size_t row, std::string_view column) const {
    const auto found = std::find(m_Columns.begin(), m_Columns.end(), column);
    if (found == m_Columns.end())
        return nullptr;
    return &m_Rows[row].Fields[static_cast<std::size_t>(found - m_Columns.begin())];
}

void Table::IndexFirstColumn() const {
    for (std::size_t i = 0; i < m_Rows.size(); ++i) {
        const auto [entry, isNew] = m_RowOfKey.emplace(m_Rows[i].Fields.front(), i);
        if (!isNew)
            throw BuildError(m_File, m_Rows[i].Line,
                             "'" + entry->first + "' stands already on line " +
                                 std::to_string(m_Rows[entry->second].Line));
    }
}

std::size_t Table::FindRow(const std::string& key) const {
    if (m_RowOfKey.empty())
        IndexFirstColumn();
    const auto found = m_RowOfKey.find(key);
    return found == m_RowOfKey.end() ? m_Rows.size() : found->second;
}

} // namespace TemplateBuilder
