#include "Projects/TabText/Words.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/Steps.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <charconv>

namespace TabText {

namespace {

using std::string;
using std::string_view;

// Strings of a stave, whatever stands before them.
bool LooksLikeString(string_view line) {
    constexpr int kFewestDashes = 6;
    return std::count(line.begin(), line.end(), '-') >= kFewestDashes &&
           line.find_first_of("|0123456789") != string_view::npos;
}

constexpr char kQuote = '>';

// How far the marks of so many mails reach, each with a blank before the next; fewer where there are fewer.
struct QuoteMarks {
    int Depth = 0;
    std::size_t End = 0;
};

QuoteMarks QuoteMarksOf(string_view line, int mostDepth) {
    QuoteMarks marks;
    std::size_t at = 0;
    while (marks.Depth < mostDepth && at < line.size() && line[at] == kQuote) {
        marks = {marks.Depth + 1, ++at};
        if (at < line.size() && line[at] == ' ')
            ++at;
    }
    return marks;
}

// What a mail program puts before each line of a mail that is answered.
class Quotation {
public:
    explicit Quotation(const Draft& draft) {
        constexpr int kFewestStrings = 4;
        int strings = 0;
        for (int line = 0; line < draft.GetLineCount(); ++line) {
            if (!LooksLikeString(draft.GetLine(line)))
                continue;
            m_Depth = std::min(strings == 0 ? kDeepest : m_Depth,
                               QuoteMarksOf(draft.GetLine(line), kDeepest).Depth);
            ++strings;
        }
        if (strings < kFewestStrings)
            m_Depth = 0;
        for (int line = 0; line < draft.GetLineCount(); ++line)
            m_HasBlank = m_HasBlank && (!LooksLikeString(draft.GetLine(line)) ||
                                        HasBlankAt(draft.GetLine(line), MarksOf(draft.GetLine(line)).End));
    }

    // How many columns of the line are the mail program's.
    std::size_t WidthIn(string_view line) const {
        const QuoteMarks marks = MarksOf(line);
        return marks.End + (marks.Depth > 0 && m_HasBlank && HasBlankAt(line, marks.End) ? 1 : 0);
    }

private:
    static constexpr int kDeepest = 20;

    static bool HasBlankAt(string_view line, std::size_t column) {
        return column < line.size() && line[column] == ' ';
    }
    QuoteMarks MarksOf(string_view line) const { return QuoteMarksOf(line, m_Depth); }

    // Of all strings, so that they stay below each other.
    int m_Depth = 0;
    bool m_HasBlank = true;
};

bool IsTagName(string_view name) {
    return IsOneOf(name,
                   {"html", "head", "body", "title",  "meta",    "link",   "pre",  "code",   "tt", "kbd",
                    "p",    "br",   "hr",   "div",    "span",    "b",      "i",    "u",      "em", "small",
                    "big",  "sub",  "h1",   "h2",     "h3",      "h4",     "font", "center", "a",  "img",
                    "ul",   "ol",   "li",   "table",  "tr",      "td",     "th",   "sup",    "dl", "dt",
                    "dd",   "mark", "s",    "strong", "section", "article"});
}

// The length of the tag that begins there; 0 when none does.
std::size_t TagLength(string_view text) {
    if (text.empty() || text.front() != '<')
        return 0;
    const std::size_t start = text.substr(1).starts_with('/') ? 2 : 1;
    std::size_t end = start;
    while (end < text.size() && Nvr::Ascii::IsAlnum(text[end]))
        ++end;
    if (end == text.size() || !IsTagName(text.substr(start, end - start)))
        return 0;
    const bool goesOn = text[end] == ' ' || text[end] == '/';
    const std::size_t close = goesOn ? text.find('>', end) : end;
    return close < text.size() && text[close] == '>' ? close + 1 : 0;
}

struct Entity {
    // A character's name or number without "&" and ";", and its length with them.
    string_view Name;
    std::size_t Length = 0;
};

Entity EntityAt(string_view text) {
    constexpr std::size_t kLongest = 10;
    if (text.empty() || text.front() != '&')
        return {};
    const std::size_t end = text.substr(0, kLongest).find(';');
    return end == string_view::npos ? Entity{} : Entity{text.substr(1, end - 1), end + 1};
}

// The character of ASCII in the place of that of Unicode; 0 where there is none.
char InAscii(unsigned number) {
    struct Range {
        unsigned First;
        unsigned Last;
        char Character;
    };
    constexpr Range kRanges[] = {{0xA0, 0xA0, ' '},     {0x2010, 0x2015, '-'}, {0x2212, 0x2212, '-'},
                                 {0x2500, 0x2501, '-'}, {0x2502, 0x2503, '|'}, {0x2018, 0x2019, '\''},
                                 {0x201C, 0x201D, '"'}};
    constexpr unsigned kFirstPrinted = 0x20;
    constexpr unsigned kLastPrinted = 0x7E;
    if (number >= kFirstPrinted && number <= kLastPrinted)
        return static_cast<char>(number);
    for (const Range& range : kRanges)
        if (number >= range.First && number <= range.Last)
            return range.Character;
    return '\0';
}

char CharacterNumbered(string_view name) {
    constexpr int kDecimal = 10;
    constexpr int kHexadecimal = 16;
    const bool isHexadecimal = name.starts_with("x") || name.starts_with("X");
    name.remove_prefix(isHexadecimal ? 1 : 0);
    unsigned number = 0;
    const auto [end, failure] = std::from_chars(name.data(), name.data() + name.size(), number,
                                                isHexadecimal ? kHexadecimal : kDecimal);
    return failure == std::errc() && end == name.data() + name.size() ? InAscii(number) : '\0';
}

// 0 for one that stays as it is.
char CharacterOf(string_view entity) {
    struct Named {
        string_view Name;
        char Character;
    };
    constexpr Named kNamed[] = {{"nbsp", ' '},  {"amp", '&'},    {"lt", '<'},     {"gt", '>'},
                                {"quot", '"'},  {"apos", '\''},  {"ndash", '-'},  {"mdash", '-'},
                                {"minus", '-'}, {"lsquo", '\''}, {"rsquo", '\''}, {"ldquo", '"'},
                                {"rdquo", '"'}, {"shy", '-'},    {"vert", '|'}};
    if (entity.starts_with("#"))
        return CharacterNumbered(entity.substr(1));
    for (const Named& named : kNamed)
        if (named.Name == entity)
            return named.Character;
    return '\0';
}

// No tag begins after it: so a line of nothing but "<b" costs no square.
std::size_t LastTagEnd(string_view line) {
    const std::size_t last = line.rfind('>');
    return last == string_view::npos ? 0 : last;
}

// A page says where an element ends, or that its text is set as it is.
bool IsOfAPage(const Draft& draft) {
    for (int line = 0; line < draft.GetLineCount(); ++line) {
        const string_view text = draft.GetLine(line);
        const std::size_t end = LastTagEnd(text);
        for (std::size_t at = text.find('<'); at < end; at = text.find('<', at + 1)) {
            const string_view rest = text.substr(at);
            if ((rest.starts_with("</") || Nvr::Ascii::StartsWithIgnoreCase(rest, "<pre")) &&
                TagLength(rest) != 0)
                return true;
        }
    }
    return false;
}

// Takes out of one line what is no text of its writer.
class LineCleaner {
public:
    LineCleaner(string text, std::size_t quoteWidth, bool isOfAPage)
        : m_Text(std::move(text)), m_TagEnd(isOfAPage ? LastTagEnd(m_Text) : 0) {
        Erase(0, quoteWidth);
        std::size_t at = quoteWidth;
        while (at < m_Text.size())
            at += CleanAt(at);
    }

    const string& GetText() const { return m_Text; }
    const std::vector<int>& GetErased() const { return m_Erased; }

private:
    void Erase(std::size_t first, std::size_t count) {
        for (std::size_t column = first; column < first + count; ++column)
            m_Erased.push_back(static_cast<int>(column));
    }

    // How many columns it has dealt with.
    std::size_t CleanAt(std::size_t at) {
        const string_view rest = string_view(m_Text).substr(at);
        if (rest.front() == '&') {
            const Entity entity = EntityAt(rest);
            const char character = CharacterOf(entity.Name);
            if (character != '\0') {
                m_Text[at] = character;
                Erase(at + 1, entity.Length - 1);
                return entity.Length;
            }
        } else if (rest.front() == '<' && at < m_TagEnd) {
            const std::size_t length = TagLength(rest);
            Erase(at, length);
            return std::max<std::size_t>(length, 1);
        }
        return 1;
    }

    string m_Text;
    // Where the last tag may end; 0 where there are none.
    std::size_t m_TagEnd;
    std::vector<int> m_Erased;
};

} // namespace

void RunMarkup(Draft& draft) {
    const bool isOfAPage = IsOfAPage(draft);
    const Quotation quotation(draft);
    for (int line = 0; line < draft.GetLineCount(); ++line) {
        const LineCleaner cleaner(draft.GetLine(line), quotation.WidthIn(draft.GetLine(line)), isOfAPage);
        draft.Overwrite(line, cleaner.GetText());
        draft.Erase(line, cleaner.GetErased());
    }
}

} // namespace TabText
