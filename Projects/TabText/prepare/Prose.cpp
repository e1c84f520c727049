#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/DraftReading.h"
#include "Projects/TabText/prepare/DrawnLines.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <set>

namespace TabText {

namespace {

// As many frets beside dashes are no date and no address.
constexpr int kFewestLinesWithFrets = 2;
constexpr int kFewestStrings = 4;
constexpr int kMostStrings = 6;

// Lines that the plug-in looks at together, as a person sees them.
struct Run {
    int First = 0;
    int End = 0;
};

class ProseFinder {
public:
    explicit ProseFinder(Draft& draft) : m_Draft(draft), m_Reading(draft), m_Lines(LookAtAll(draft)) {}

    void BlankHyphens() {
        const auto count = static_cast<int>(m_Lines.size());
        for (int line = 0; line < count; ++line) {
            const int first = line;
            while (line < count && At(line).IsCandidate)
                ++line;
            if (line > first)
                LookAtRun({first, line});
        }
        for (const int line : m_Prose) {
            std::string text = m_Draft.GetLine(line);
            std::replace(text.begin(), text.end(), '-', '=');
            m_Draft.Overwrite(line, std::move(text));
        }
    }

private:
    const DrawnLine& At(int line) const { return m_Lines[static_cast<std::size_t>(line)]; }
    bool IsStrings(int line) const {
        return At(line).Kind == LineKind::String || At(line).Kind == LineKind::Dashes;
    }

    int CountKind(const Run& run, LineKind kind) const {
        int count = 0;
        for (int line = run.First; line < run.End; ++line)
            count += At(line).Kind == kind ? 1 : 0;
        return count;
    }

    void LookAtRun(const Run& run) {
        if (CountKind(run, LineKind::String) == 0) {
            if (!MayBeDrawn(run))
                AddReadLines(run);
            return;
        }
        // What stands before the strings, after them, and between two staves.
        for (int line = run.First; line < run.End;) {
            Run block{line, line};
            while (block.End < run.End && IsStrings(block.End))
                ++block.End;
            LookAtRules(block);
            Run words{block.End, block.End};
            while (words.End < run.End && !IsStrings(words.End))
                ++words.End;
            if (TouchesAStave(run, words))
                AddReadWords(words);
            line = words.End;
        }
    }

    // A stave that a person sees although no line of it looks like a string.
    bool MayBeDrawn(const Run& run) const {
        int frets = 0;
        bool isAllDashes = true;
        for (int line = run.First; line < run.End; ++line) {
            frets += HasFretBesideDash(m_Draft.GetLine(line)) ? 1 : 0;
            isAllDashes = isAllDashes && At(line).Kind == LineKind::Dashes &&
                          m_Draft.GetLine(line).size() == m_Draft.GetLine(run.First).size();
        }
        return isAllDashes || frets >= kFewestLinesWithFrets;
    }

    void AddReadLines(const Run& run) {
        for (int line = run.First; line < run.End; ++line)
            if (m_Reading.IsStaveLine(line))
                m_Prose.push_back(line);
    }

    void AddReadWords(const Run& run) {
        for (int line = run.First; line < run.End; ++line)
            if (m_Reading.IsStaveLine(line) && At(line).Kind == LineKind::Words && !StartsLikeAString(line))
                m_Prose.push_back(line);
    }

    int StringsBefore(const Run& run, int line) const {
        const int end = line;
        while (line > run.First && IsStrings(line - 1))
            --line;
        return end - line;
    }

    int StringsAfter(const Run& run, int line) const {
        const int start = line;
        while (line < run.End && IsStrings(line))
            ++line;
        return line - start;
    }

    static bool IsWholeStaves(int strings) {
        return (strings >= kFewestStrings && strings <= kMostStrings) ||
               (strings > 0 && strings % kMostStrings == 0);
    }

    // What the words stand between is a stave without them.
    bool TouchesAStave(const Run& run, const Run& words) const {
        const int before = StringsBefore(run, words.First);
        const int after = StringsAfter(run, words.End);
        return (before == 0 || IsWholeStaves(before)) && (after == 0 || IsWholeStaves(after));
    }

    bool StartsLikeAString(int line) const {
        const std::string& text = m_Draft.GetLine(line);
        const std::size_t start = text.find_first_not_of(' ');
        if (start == std::string::npos)
            return false;
        // A string with signs that nobody knows.
        const bool isNamed =
            Nvr::Ascii::IsAlpha(text[start]) && start + 1 < text.size() && text[start + 1] == '|';
        return text[start] == '|' || isNamed || !At(line).Name.empty();
    }

    // What tells a rule beside strings from one of them.
    struct Strings {
        int Count = 0;
        bool AreMarked = true;
        // So many are not read that the rule may be why: it has so many hyphens that they seem to have few.
        bool AreHidden = false;
        std::set<std::size_t> Lengths;
    };

    Strings StringsOf(const Run& block) const {
        Strings strings;
        int unread = 0;
        for (int line = block.First; line < block.End; ++line) {
            if (At(line).Kind != LineKind::String)
                continue;
            ++strings.Count;
            strings.AreMarked = strings.AreMarked && StartsLikeAString(line);
            strings.Lengths.insert(m_Draft.GetLine(line).size());
            unread += m_Reading.IsStaveLine(line) ? 0 : 1;
        }
        strings.AreHidden = unread >= kFewestStrings;
        return strings;
    }

    // A rule above or below strings that all begin with a name or a stroke, and one between two staves.
    void LookAtRules(Run block) {
        const Strings strings = StringsOf(block);
        while (block.First < block.End && IsRuleOf(strings, block, block.First))
            m_Prose.push_back(block.First++);
        while (block.First < block.End && IsRuleOf(strings, block, block.End - 1))
            m_Prose.push_back(--block.End);
        for (int line = block.First; line < block.End; ++line)
            if (At(line).Kind == LineKind::Dashes && IsBetweenStaves(block, line))
                m_Prose.push_back(line);
    }

    // Whole staves stand right above the rule and right below it, whose strings begin with a name or a
    // stroke.
    bool IsBetweenStaves(const Run& block, int rule) const {
        int first = rule;
        while (first > block.First && IsMarkedString(first - 1))
            --first;
        int end = rule + 1;
        while (end < block.End && IsMarkedString(end))
            ++end;
        if (!IsWholeStaves(rule - first) || !IsWholeStaves(end - rule - 1))
            return false;
        const bool isAsLong = m_Draft.GetLine(rule).size() == m_Draft.GetLine(rule - 1).size();
        return !isAsLong || (rule - first) % kMostStrings == 0;
    }

    bool IsMarkedString(int line) const {
        return At(line).Kind == LineKind::String && StartsLikeAString(line);
    }

    // It was taken for a string, or keeps strings from being read.
    bool IsRuleOf(const Strings& strings, const Run& block, int rule) const {
        if (At(rule).Kind != LineKind::Dashes || (!m_Reading.IsStaveLine(rule) && !strings.AreHidden))
            return false;
        const bool isTooMany = block.End - block.First > kMostStrings;
        const bool hasLength = strings.Lengths.count(m_Draft.GetLine(rule).size()) > 0;
        return strings.AreMarked && IsWholeStaves(strings.Count) &&
               (isTooMany || strings.AreHidden || !hasLength);
    }

    Draft& m_Draft;
    DraftReading m_Reading;
    std::vector<DrawnLine> m_Lines;
    std::vector<int> m_Prose;
};

} // namespace

void RunProse(Draft& draft) {
    ProseFinder(draft).BlankHyphens();
}

} // namespace TabText
