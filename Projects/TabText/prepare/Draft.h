#pragma once

#include "Projects/TabText/Preparation.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace TabText {

/// One line of a draft.
struct DraftLine {
    /// Without line end, tabs expanded as TabFile expands them.
    std::string Text;
    /// The bytes of the line and of its line end in the source.
    std::string_view Raw;
    std::string_view End;
    int OriginalLine = 0;
    /// As in LineMap::Line.
    std::vector<int> Columns;
    /// By column of the line as it is now.
    std::vector<MappedBend> Bends;
    /// One bit for each step that changed it.
    std::uint32_t ChangedBy = 0;
    bool IsAdded = false;
};

/// A character to be put before a column.
struct Insertion {
    int Column = 0;
    char Character = ' ';
};

/// Where a line of a rearranged draft comes from: it is the draft's line, or a new one made for that line.
struct PlannedLine {
    int Line = 0;
    bool IsNew = false;
    /// Of a new line.
    std::string Text;
};

/// A text that is being prepared: its lines, what became of each, and where each character stood.
///
/// Every edit costs in proportion to the lines that it touches, and to all lines for Recode and Rearrange.
class Draft {
public:
    /// Splits the text as TabFile does.
    explicit Draft(std::string_view text);
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    /// Edits from here on are those of the step with this number.
    void StartStep(int number);
    /// True when a step changed something since the last StartStep or TakeChanged.
    bool HasChanged() const { return m_HasChanged; }
    void ForgetChanged() { m_HasChanged = false; }

    /// The bytes as they came, before any change.
    std::string_view GetSource() const { return m_Source; }
    int GetLineCount() const { return static_cast<int>(m_Lines.size()); }
    const std::string& GetLine(int line) const { return m_Lines[static_cast<std::size_t>(line)].Text; }
    /// The character; 0 at and beyond the line's end and for lines that are not there.
    char GetChar(int line, int column) const;

    /// Puts `text` in the place of the source, of which it has the lines and the columns. `before` is the
    /// source as a person reads it. Only before any other edit.
    void Recode(std::string before, std::string text);
    /// Puts `text`, which is as long, in the place of the line's.
    void Overwrite(int line, std::string text);
    /// Keeps in mind how far a bend of the line goes.
    void KeepBend(int line, MappedBend bend);
    /// Puts each character before its column, which is one of the line as it is now. By ascending column.
    void Insert(int line, const std::vector<Insertion>& insertions);
    /// Takes the characters at these columns, ascending, away.
    void Erase(int line, const std::vector<int>& columns);
    /// Puts the lines in this order; those that are not mentioned are removed. A plan that mentions all lines
    /// in their order and no others changes nothing.
    void Rearrange(std::vector<PlannedLine> plan);

    /// Of the parts that the text shows, the one that is to be left of it (PartName::Key); empty for all.
    const std::string& GetPart() const { return m_Part; }
    void ChoosePart(std::string key) { m_Part = std::move(key); }

    std::string GetText() const;
    LineMap GetMap() const;
    /// How many lines the step with this number changed, added or removed.
    int CountChanged(int number) const;
    /// The changes, whose steps are named by their number in `steps`.
    std::vector<LineChange> GetChanges(std::span<const PreparationStep> steps) const;

private:
    void Mark(DraftLine& line);
    DraftLine MakeLine(PlannedLine plan);
    void MendLineEnds();

    /// The original as a person reads it, the source, and what stands in its place.
    std::string m_Before;
    std::string m_Source;
    std::string m_Recoded;
    std::string m_Part;
    std::string_view m_LineEnd;
    std::vector<DraftLine> m_Lines;
    std::vector<DraftLine> m_Removed;
    std::uint32_t m_StepBit = 0;
    bool m_HasChanged = false;
    bool m_IsBeforeSource = true;
};

} // namespace TabText
