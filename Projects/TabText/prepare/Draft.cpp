#include "Projects/TabText/prepare/Draft.h"

#include <algorithm>

namespace TabText {

namespace {

using std::string;
using std::string_view;

constexpr std::size_t kTabWidth = 8;

bool EndsLine(char c) {
    return c == '\n' || c == '\r';
}

// The line end that begins at `at`: one byte, or two different ones.
string_view LineEndAt(string_view text, std::size_t at) {
    const bool isPair = at + 1 < text.size() && EndsLine(text[at + 1]) && text[at + 1] != text[at];
    return text.substr(at, isPair ? 2 : 1);
}

string ExpandTabs(string_view raw) {
    if (raw.find('\t') == string_view::npos)
        return string(raw);
    string text;
    for (const char c : raw) {
        if (c == '\t')
            text.append(kTabWidth - text.size() % kTabWidth, ' ');
        else
            text += c;
    }
    return text;
}

std::vector<DraftLine> SplitLines(string_view text) {
    std::vector<DraftLine> lines;
    std::size_t start = 0;
    for (bool isLast = false; !isLast;) {
        DraftLine line;
        const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
        line.Raw = text.substr(start, end - start);
        isLast = end == text.size();
        line.End = isLast ? string_view() : LineEndAt(text, end);
        line.Text = ExpandTabs(line.Raw);
        line.OriginalLine = static_cast<int>(lines.size());
        start = end + line.End.size();
        lines.push_back(std::move(line));
    }
    return lines;
}

// Where the character of the line as it is now stood; beyond its end it goes on.
int OriginalColumn(const DraftLine& line, int column) {
    if (column < static_cast<int>(line.Columns.size()))
        return line.Columns[static_cast<std::size_t>(column)];
    return line.Columns.empty() ? column
                                : line.Columns.back() + column - (static_cast<int>(line.Text.size()) - 1);
}

string_view UsualLineEnd(const std::vector<DraftLine>& lines) {
    return lines.front().End.empty() ? string_view("\n") : lines.front().End;
}

} // namespace

Draft::Draft(string_view text) : m_Source(text), m_Lines(SplitLines(m_Source)) {
    m_LineEnd = UsualLineEnd(m_Lines);
}

void Draft::StartStep(int number) {
    m_StepBit = std::uint32_t{1} << static_cast<unsigned>(number);
}

char Draft::GetChar(int line, int column) const {
    if (line < 0 || line >= GetLineCount() || column < 0)
        return '\0';
    const string& text = GetLine(line);
    return static_cast<std::size_t>(column) < text.size() ? text[static_cast<std::size_t>(column)] : '\0';
}

void Draft::Mark(DraftLine& line) {
    line.ChangedBy |= m_StepBit;
    m_HasChanged = true;
}

void Draft::Recode(string before, string text) {
    m_Before = std::move(before);
    m_IsBeforeSource = false;
    m_Recoded = std::move(text);
    const std::vector<DraftLine> old = SplitLines(m_Before);
    m_Lines = SplitLines(m_Recoded);
    m_LineEnd = UsualLineEnd(m_Lines);
    // A text in another encoding has none of its bytes left.
    const bool isAllNew = m_Before != m_Source;
    for (std::size_t at = 0; at < m_Lines.size(); ++at)
        if (isAllNew || at >= old.size() || old[at].Raw != m_Lines[at].Raw)
            Mark(m_Lines[at]);
}

void Draft::Overwrite(int line, string text) {
    DraftLine& entry = m_Lines[static_cast<std::size_t>(line)];
    if (entry.Text == text)
        return;
    entry.Text = std::move(text);
    Mark(entry);
}

void Draft::KeepBend(int line, MappedBend bend) {
    m_Lines[static_cast<std::size_t>(line)].Bends.push_back(bend);
}

void Draft::Insert(int line, const std::vector<Insertion>& insertions) {
    if (insertions.empty())
        return;
    DraftLine& entry = m_Lines[static_cast<std::size_t>(line)];
    const auto length = static_cast<int>(entry.Text.size());
    string text;
    std::vector<int> columns;
    auto next = insertions.begin();
    for (int column = 0; column <= length; ++column) {
        for (; next != insertions.end() && next->Column == column; ++next) {
            text += next->Character;
            columns.push_back(OriginalColumn(entry, column));
        }
        if (column < length) {
            text += entry.Text[static_cast<std::size_t>(column)];
            columns.push_back(OriginalColumn(entry, column));
        }
    }
    for (MappedBend& bend : entry.Bends) {
        const auto after = std::upper_bound(
            insertions.begin(), insertions.end(), bend.Column,
            [](int column, const Insertion& insertion) { return column < insertion.Column; });
        bend.Column += static_cast<int>(after - insertions.begin());
    }
    entry.Text = std::move(text);
    entry.Columns = std::move(columns);
    Mark(entry);
}

void Draft::Erase(int line, const std::vector<int>& columns) {
    if (columns.empty())
        return;
    DraftLine& entry = m_Lines[static_cast<std::size_t>(line)];
    string text;
    std::vector<int> kept;
    auto next = columns.begin();
    for (int column = 0; column < static_cast<int>(entry.Text.size()); ++column) {
        if (next != columns.end() && *next == column) {
            ++next;
            continue;
        }
        text += entry.Text[static_cast<std::size_t>(column)];
        kept.push_back(OriginalColumn(entry, column));
    }
    for (MappedBend& bend : entry.Bends)
        bend.Column -=
            static_cast<int>(std::lower_bound(columns.begin(), columns.end(), bend.Column) - columns.begin());
    entry.Text = std::move(text);
    entry.Columns = std::move(kept);
    Mark(entry);
}

DraftLine Draft::MakeLine(PlannedLine plan) {
    const DraftLine& model = m_Lines[static_cast<std::size_t>(plan.Line)];
    DraftLine line;
    line.Text = std::move(plan.Text);
    line.End = m_LineEnd;
    line.OriginalLine = model.OriginalLine;
    line.Columns = model.Columns;
    line.Columns.resize(std::min(line.Columns.size(), line.Text.size()));
    line.IsAdded = true;
    Mark(line);
    return line;
}

void Draft::Rearrange(std::vector<PlannedLine> plan) {
    std::vector<DraftLine> lines;
    std::vector<bool> isUsed(m_Lines.size());
    int greatest = -1;
    for (PlannedLine& entry : plan) {
        if (entry.IsNew)
            lines.push_back(MakeLine(std::move(entry)));
        else
            isUsed[static_cast<std::size_t>(entry.Line)] = true;
    }
    std::vector<DraftLine> added = std::move(lines);
    auto nextAdded = added.begin();
    lines.clear();
    for (const PlannedLine& entry : plan) {
        if (entry.IsNew) {
            lines.push_back(std::move(*nextAdded++));
            continue;
        }
        lines.push_back(std::move(m_Lines[static_cast<std::size_t>(entry.Line)]));
        if (entry.Line < greatest)
            Mark(lines.back());
        greatest = std::max(greatest, entry.Line);
    }
    for (std::size_t at = 0; at < isUsed.size(); ++at) {
        if (isUsed[at])
            continue;
        Mark(m_Lines[at]);
        m_Removed.push_back(std::move(m_Lines[at]));
    }
    m_Lines = std::move(lines);
    MendLineEnds();
}

// After lines have changed places: all but the last have a line end.
void Draft::MendLineEnds() {
    for (DraftLine& line : m_Lines)
        if (line.End.empty())
            line.End = m_LineEnd;
    m_Lines.back().End = {};
}

string Draft::GetText() const {
    string text;
    for (std::size_t at = 0; at < m_Lines.size(); ++at) {
        const DraftLine& line = m_Lines[at];
        const string_view shown = line.ChangedBy == 0 ? line.Raw : string_view(line.Text);
        // A single CR or LF would make one line end with the LF or CR of an empty line after it.
        const char before = text.empty() ? '\0' : text.back();
        const bool isAfterSingle = at > 0 && m_Lines[at - 1].End.size() == 1;
        if (isAfterSingle && shown.empty() && !line.End.empty() && line.End.front() != before)
            text += line.End.front();
        text.append(shown).append(line.End);
    }
    return text;
}

LineMap Draft::GetMap() const {
    std::vector<LineMap::Line> lines;
    lines.reserve(m_Lines.size());
    for (const DraftLine& line : m_Lines)
        lines.push_back({line.OriginalLine, line.Columns, line.Bends});
    return LineMap(std::move(lines));
}

int Draft::CountChanged(int number) const {
    const std::uint32_t bit = std::uint32_t{1} << static_cast<unsigned>(number);
    const auto isChanged = [bit](const DraftLine& line) { return (line.ChangedBy & bit) != 0; };
    return static_cast<int>(std::count_if(m_Lines.begin(), m_Lines.end(), isChanged) +
                            std::count_if(m_Removed.begin(), m_Removed.end(), isChanged));
}

std::vector<LineChange> Draft::GetChanges(std::span<const PreparationStep> steps) const {
    const std::vector<DraftLine> original = SplitLines(m_IsBeforeSource ? m_Source : m_Before);
    std::vector<LineChange> changes;
    const auto add = [&](const DraftLine& line, int place) {
        LineChange change{line.IsAdded ? -1 : line.OriginalLine, place, {}, {}, {}};
        if (!line.IsAdded)
            change.Before = original[static_cast<std::size_t>(line.OriginalLine)].Text;
        if (place >= 0)
            change.After = line.Text;
        for (std::size_t number = 0; number < steps.size(); ++number)
            if ((line.ChangedBy >> number & 1U) != 0)
                change.Steps.push_back(&steps[number]);
        changes.push_back(std::move(change));
    };
    std::vector<const DraftLine*> removed;
    for (const DraftLine& line : m_Removed)
        if (!line.IsAdded)
            removed.push_back(&line);
    std::sort(removed.begin(), removed.end(),
              [](const DraftLine* a, const DraftLine* b) { return a->OriginalLine < b->OriginalLine; });
    auto next = removed.begin();
    for (std::size_t at = 0; at < m_Lines.size(); ++at) {
        for (; next != removed.end() && (*next)->OriginalLine < m_Lines[at].OriginalLine; ++next)
            add(**next, -1);
        if (m_Lines[at].ChangedBy != 0)
            add(m_Lines[at], static_cast<int>(at));
    }
    for (; next != removed.end(); ++next)
        add(**next, -1);
    return changes;
}

} // namespace TabText
