#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/DrawnLines.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Projects/TabText/prepare/StringNames.h"

#include <algorithm>
#include <array>
#include <map>

namespace TabText {

namespace {

using std::string;

constexpr int kFewestLinesOfAStave = 4;
constexpr int kFewestLinesOfAShortStave = 2;

// Strings with a blank line after each, as some programs save them.
class DoubleSpacing {
public:
    explicit DoubleSpacing(Draft& draft) : m_Draft(draft), m_Lines(LookAtAll(draft)) {}

    void Close() {
        std::vector<bool> isRemoved(m_Lines.size());
        bool hasRemoved = false;
        const auto count = static_cast<int>(m_Lines.size());
        for (int line = 0; line < count; ++line) {
            int last = line;
            while (IsString(last) && IsBlank(last + 1) && IsString(last + 2))
                last += 2;
            if (last < line + 2 * (kFewestLinesOfAStave - 1) || TouchesStrings(line, last)) {
                line = last;
                continue;
            }
            for (int blank = line + 1; blank < last; blank += 2)
                isRemoved[static_cast<std::size_t>(blank)] = true;
            // The lines above have gaps too, and stand within reach only without them.
            for (int above = line - 2; IsBlank(above + 1) && IsText(above); above -= 2)
                isRemoved[static_cast<std::size_t>(above) + 1] = true;
            hasRemoved = true;
            line = last;
        }
        if (hasRemoved)
            Remove(isRemoved);
    }

private:
    bool Is(int line, LineKind kind) const {
        return line >= 0 && line < static_cast<int>(m_Lines.size()) &&
               m_Lines[static_cast<std::size_t>(line)].Kind == kind;
    }
    bool IsString(int line) const { return Is(line, LineKind::String) || Is(line, LineKind::Dashes); }
    bool IsBlank(int line) const { return Is(line, LineKind::Blank); }
    bool IsText(int line) const {
        return line >= 0 && !IsBlank(line) && !IsString(line) && (line == 0 || IsBlank(line - 1));
    }
    bool TouchesStrings(int first, int last) const { return IsString(first - 1) || IsString(last + 1); }

    void Remove(const std::vector<bool>& isRemoved) {
        std::vector<PlannedLine> plan;
        for (int line = 0; line < m_Draft.GetLineCount(); ++line)
            if (!isRemoved[static_cast<std::size_t>(line)])
                plan.push_back({line, false, {}});
        m_Draft.Rearrange(std::move(plan));
    }

    Draft& m_Draft;
    std::vector<DrawnLine> m_Lines;
};

// Strings next to each other, without any other line between them.
struct Block {
    int First = 0;
    int End = 0;

    int GetLineCount() const { return End - First; }
};

class ShortStaveFiller {
public:
    explicit ShortStaveFiller(Draft& draft) : m_Draft(draft), m_Lines(LookAtAll(draft)) { FindBlocks(); }

    void Fill() {
        const string strings = StringsOfText();
        if (strings.empty())
            return;
        FindPlacesBySize(strings);
        std::vector<PlannedLine> plan;
        int line = 0;
        for (const Block& block : m_Short) {
            for (; line < block.First; ++line)
                plan.push_back({line, false, {}});
            AddFilled(block, strings, plan);
            line = block.End;
        }
        for (; line < m_Draft.GetLineCount(); ++line)
            plan.push_back({line, false, {}});
        if (m_HasNew)
            m_Draft.Rearrange(std::move(plan));
    }

private:
    const DrawnLine& At(int line) const { return m_Lines[static_cast<std::size_t>(line)]; }

    // A candidate of any kind beside them makes a run that is not theirs alone.
    void FindBlocks() {
        const auto count = static_cast<int>(m_Lines.size());
        for (int line = 0; line < count; ++line) {
            const int first = line;
            bool isStrings = true;
            for (; line < count && At(line).IsCandidate; ++line)
                isStrings = isStrings && At(line).Kind == LineKind::String;
            if (!isStrings)
                continue;
            const Block block{first, line};
            if (block.GetLineCount() >= kFewestLinesOfAStave)
                m_Full.push_back(block);
            else if (block.GetLineCount() >= kFewestLinesOfAShortStave)
                m_Short.push_back(block);
        }
    }

    // Empty when some line has no name.
    std::vector<string> NamesOf(const Block& block) const {
        std::vector<string> names;
        for (int line = block.First; line < block.End; ++line) {
            if (At(line).Name.empty())
                return {};
            names.emplace_back(At(line).Name);
        }
        return names;
    }

    // The strings of the staves that are whole, one letter each from the highest down: as most of them name
    // them, or as instruments with so many strings have them.
    string StringsOfText() const {
        std::map<string, int> counts;
        for (const Block& block : m_Full)
            if (block.GetLineCount() <= kMostStrings)
                ++counts[LettersOf(NamesOf(block), block.GetLineCount())];
        string most;
        for (const auto& [letters, count] : counts)
            if (!letters.empty() && (most.empty() || count > counts.at(most)))
                most = letters;
        return counts.empty() ? string(kGuitarStrings) : most;
    }

    // Where the block's strings lie among those of the text; empty when that is not known.
    std::vector<int> PlacesOf(const Block& block, const string& strings) const {
        const std::vector<string> names = NamesOf(block);
        if (!names.empty())
            return PlacesAmong(names, strings);
        return m_PlacesBySize[static_cast<std::size_t>(block.GetLineCount())];
    }

    // For staves without names: as the others of their size that have some lie, if they agree.
    void FindPlacesBySize(const string& strings) {
        std::array<bool, kFewestLinesOfAStave> isUnclear{};
        for (const Block& block : m_Short) {
            if (NamesOf(block).empty())
                continue;
            const auto size = static_cast<std::size_t>(block.GetLineCount());
            std::vector<int>& places = m_PlacesBySize[size];
            const std::vector<int> found = PlacesOf(block, strings);
            isUnclear[size] = isUnclear[size] || found.empty() || (!places.empty() && places != found);
            places = isUnclear[size] ? std::vector<int>() : found;
        }
    }

    void AddFilled(const Block& block, const string& strings, std::vector<PlannedLine>& plan) {
        const std::vector<int> places = PlacesOf(block, strings);
        int line = block.First;
        for (int place = 0; !places.empty() && place < static_cast<int>(strings.size()); ++place) {
            const auto at = static_cast<std::size_t>(line - block.First);
            if (at < places.size() && places[at] == place) {
                plan.push_back({line++, false, {}});
                continue;
            }
            const int model = std::min(line, block.End - 1);
            plan.push_back(
                {model, true, EmptyString(block, model, strings[static_cast<std::size_t>(place)])});
            m_HasNew = true;
        }
        for (; line < block.End; ++line)
            plan.push_back({line, false, {}});
    }

    // A string on which nothing is played, with the barlines of the block.
    string EmptyString(const Block& block, int model, char name) const {
        string text = m_Draft.GetLine(model);
        const DrawnLine& drawn = At(model);
        const std::size_t nameEnd = static_cast<std::size_t>(drawn.NameColumn) + drawn.Name.size();
        for (std::size_t column = 0; column < text.size(); ++column) {
            if (column < nameEnd) {
                if (column >= static_cast<std::size_t>(drawn.NameColumn))
                    text[column] = column == static_cast<std::size_t>(drawn.NameColumn) ? name : ' ';
                continue;
            }
            if (!IsBarline(block, static_cast<int>(column)))
                text[column] = '-';
        }
        return text;
    }

    bool IsBarline(const Block& block, int column) const {
        const char sign = m_Draft.GetChar(block.First, column);
        if (sign != '|' && sign != ' ' && sign != ':' && sign != '*')
            return false;
        for (int line = block.First + 1; line < block.End; ++line)
            if (m_Draft.GetChar(line, column) != sign)
                return false;
        return true;
    }

    Draft& m_Draft;
    std::vector<DrawnLine> m_Lines;
    std::vector<Block> m_Full;
    std::vector<Block> m_Short;
    std::array<std::vector<int>, kFewestLinesOfAStave> m_PlacesBySize;
    bool m_HasNew = false;
};

} // namespace

void RunShort(Draft& draft) {
    DoubleSpacing(draft).Close();
    ShortStaveFiller(draft).Fill();
}

} // namespace TabText
