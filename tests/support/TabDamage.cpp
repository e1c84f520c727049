#include "tests/support/TabDamage.h"

#include "tests/support/TabBook.h"

#include <array>
#include <string_view>
#include <vector>

namespace TestSupport {

namespace {

using std::string;
using std::string_view;

using Lines = std::vector<string>;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

Lines LinesOf(const string& text) {
    Lines lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

string TextOf(const Lines& lines) {
    string text;
    for (const string& line : lines)
        text.append(line).append("\n");
    return text;
}

bool IsString(const string& line) {
    return line.find("--") != string::npos;
}

bool IsFirstString(const Lines& lines, std::size_t at) {
    return IsString(lines[at]) && (at == 0 || !IsString(lines[at - 1]));
}

bool IsLastString(const Lines& lines, std::size_t at) {
    return IsString(lines[at]) && (at + 1 == lines.size() || !IsString(lines[at + 1]));
}

// The strings of the stave that begins at the line.
std::size_t CountStrings(const Lines& lines, std::size_t first) {
    std::size_t count = 0;
    while (first + count < lines.size() && IsString(lines[first + count]))
        ++count;
    return count;
}

template <typename Change>
string EachLine(const string& text, Change change) {
    Lines changed;
    const Lines lines = LinesOf(text);
    for (std::size_t at = 0; at < lines.size(); ++at)
        change(lines, at, changed);
    return TextOf(changed);
}

// The stave's lines, to be changed in place.
template <typename Change>
string EachStave(const string& text, Change change) {
    Lines lines = LinesOf(text);
    for (std::size_t at = 0; at < lines.size(); ++at)
        if (IsFirstString(lines, at)) {
            const std::size_t strings = CountStrings(lines, at);
            change(lines, at, at + strings);
            at += CountStrings(lines, at);
        }
    return TextOf(lines);
}

string Replace(const string& text, string_view dash, string_view stroke) {
    string replaced;
    for (const char c : text) {
        if (c == '-')
            replaced += dash;
        else if (c == '|')
            replaced += stroke;
        else
            replaced += c;
    }
    return replaced;
}

string InUtf8(const string& text, Dice& dice) {
    constexpr std::array<string_view, 4> kDashes{"\xE2\x80\x93", "\xE2\x80\x94", "\xE2\x94\x80",
                                                 "\xE2\x80\x90"};
    constexpr std::array<string_view, 3> kStrokes{"|", "\xE2\x94\x82", "\xC2\xA6"};
    return Replace(text, kDashes[static_cast<std::size_t>(dice.Roll(4))],
                   kStrokes[static_cast<std::size_t>(dice.Roll(3))]);
}

string InAnOldCodePage(const string& text, Dice& dice) {
    return dice.Roll(2) == 0 ? Replace(text, "\x96", "\xA6") : Replace(text, "\xC4", "\xB3");
}

string InAMail(const string& text, Dice& dice) {
    const string mark = dice.Roll(2) == 0 ? "> " : "> > ";
    return "Hello,\n" + EachLine(text, [&](const Lines& lines, std::size_t at, Lines& changed) {
               changed.push_back(lines[at].empty() ? mark.substr(0, mark.size() - 1) : mark + lines[at]);
           });
}

// As a page has it that shows notes in bold.
string OnAPage(const string& text, Dice& /*dice*/) {
    string page = "<html><body><pre>\n";
    for (const char c : text)
        page += IsDigit(c) ? string("<b>") + c + "</b>" : c == ' ' ? string("&nbsp;") : string(1, c);
    return page + "</pre></body></html>\n";
}

string InUtf16(const string& text, Dice& dice) {
    const bool isLowFirst = dice.Roll(2) == 0;
    string wide = isLowFirst ? "\xFF\xFE" : "\xFE\xFF";
    for (const char c : text)
        wide += isLowFirst ? string{c, '\0'} : string{'\0', c};
    return wide;
}

bool HasRhythmAbove(const Lines& lines, std::size_t first) {
    return first > 0 && lines[first - 1].find_first_of("Q+") != string::npos;
}

// As one hand plays them, each note is struck again two columns on, where nothing else is in the way.
string WithRepeatedNotes(const string& tidy) {
    string text = tidy;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (IsDigit(text[at]) && at > 0 && text[at - 1] == '-')
            text[at] = static_cast<char>('0' + (text[at] - '0') % 5);
    return EachStave(text, [](Lines& lines, std::size_t first, std::size_t end) {
        const auto isFree = [&](std::size_t column) {
            for (std::size_t line = first; line < end; ++line)
                if (lines[line][column] != '-')
                    return false;
            return true;
        };
        for (std::size_t column = 0; column + 4 < lines[first].size(); ++column)
            for (std::size_t line = first; line < end; ++line)
                if (IsDigit(lines[line][column]) && isFree(column + 1) && isFree(column + 2) &&
                    isFree(column + 3)) {
                    lines[line][column + 2] = lines[line][column];
                    column += 3;
                    break;
                }
    });
}

// What stands between two equal numbers of a string is taken out of the stave and of the chords above it.
string WithoutGaps(const string& tidy, Dice&) {
    return EachStave(tidy, [](Lines& lines, std::size_t first, std::size_t end) {
        if (HasRhythmAbove(lines, first))
            return;
        std::size_t above = first;
        while (above > 0 && !lines[above - 1].empty())
            --above;
        for (std::size_t column = 1; column + 1 < lines[first].size(); ++column)
            for (std::size_t line = first; line < end; ++line) {
                const char before = lines[line][column - 1];
                if (lines[line][column] != '-' || !IsDigit(before) || lines[line][column + 1] != before)
                    continue;
                for (std::size_t cut = above; cut < first; ++cut)
                    if (const std::size_t blank = lines[cut].find("  ", column); blank != string::npos)
                        lines[cut].erase(blank, 1);
                for (std::size_t cut = first; cut < end; ++cut)
                    lines[cut].erase(column, 1);
                break;
            }
    });
}

// All notes on the second, third and fourth string of six: three strings of a bass could be those of a
// guitar.
string OnThreeStrings(const string& tidy) {
    return EachStave(tidy, [](Lines& lines, std::size_t first, std::size_t end) {
        if (end - first < 6)
            return;
        const Lines before(lines);
        for (std::size_t line = first; line < end; ++line)
            for (std::size_t column = 0; column < lines[line].size(); ++column)
                lines[line][column] = IsDigit(before[line][column]) ? '-' : before[line][column];
        for (std::size_t line = first; line < end; ++line)
            for (std::size_t column = 0; column < lines[line].size(); ++column)
                if (IsDigit(before[line][column]))
                    lines[first + 1 + (line - first) % 3][column] = before[line][column];
    });
}

string WithoutEmptyStrings(const string& tidy, Dice&) {
    std::size_t strings = 0;
    return EachLine(tidy, [&](const Lines& lines, std::size_t at, Lines& changed) {
        strings = IsFirstString(lines, at) ? CountStrings(lines, at) : strings;
        if (!IsString(lines[at]) || strings < 6 || lines[at].find_first_of("0123456789") != string::npos)
            changed.push_back(lines[at]);
    });
}

string DoublySpaced(const string& tidy, Dice&) {
    return EachLine(tidy, [](const Lines& lines, std::size_t at, Lines& changed) {
        changed.push_back(lines[at]);
        if (IsString(lines[at]))
            changed.emplace_back();
    });
}

string WithAnnotations(const string& tidy, Dice&) {
    return EachLine(tidy, [](const Lines& lines, std::size_t at, Lines& changed) {
        if (IsFirstString(lines, at))
            changed.push_back("   PM" + string(lines[at].size() - 6, '-') + "|");
        changed.push_back(lines[at]);
    });
}

string WithSignature(const string& tidy, Dice&) {
    return "From: a-b-c@example.org\n----------------------------\n" + tidy +
           "----------------------------\n-- A. N. Other -- on-line --\n-- mail: a-n-o@example.org -\n"
           "----------------------------\n----------------------------\n";
}

// At a length that no string has. Above the stave only where no symbols are.
string WithRules(const string& tidy, Dice&) {
    const string rule(60, '-');
    return EachLine(tidy, [&](const Lines& lines, std::size_t at, Lines& changed) {
        if (IsFirstString(lines, at) && (at == 0 || lines[at - 1].empty()))
            changed.push_back(rule);
        changed.push_back(lines[at]);
        if (IsLastString(lines, at))
            changed.push_back(rule);
    });
}

// A rule in the place of each blank line, where no symbols are.
string WithRulesBetween(const string& tidy, Dice&) {
    return EachLine(tidy, [](const Lines& lines, std::size_t at, Lines& changed) {
        const bool isBetween =
            at > 0 && at + 1 < lines.size() && lines[at].empty() && IsString(lines[at + 1]);
        changed.push_back(isBetween ? string(40, '-') : lines[at]);
    });
}

// From the highest string down.
string WithNames(const string& tidy, string_view names) {
    return EachStave(tidy, [&](Lines& lines, std::size_t first, std::size_t end) {
        if (end - first == names.size())
            for (std::size_t line = first; line < end; ++line)
                lines[line][0] = names[line - first];
    });
}

string InDadgad(const string& tidy) {
    return WithNames(tidy, "DAGDAD");
}

string WithTuningInProse(const string& tidy, Dice&) {
    return "Tuning: D A D G A D\n\n\n" + WithNames(tidy, "EBGDAE");
}

string WithBends(const string& tidy, Dice& dice) {
    string text = tidy;
    for (std::size_t at = 1; at + 4 < text.size(); ++at)
        if (text[at] >= '2' && text[at] < '8' && text.compare(at + 1, 3, "---") == 0) {
            text[at + 1] = dice.Roll(3) == 0 ? 'r' : 'b';
            text[at + 2] = static_cast<char>(text[at] + (text[at + 1] == 'b' ? 2 : -2));
            at += 3;
        }
    return text;
}

string InSmallLetters(const string& tidy, Dice&) {
    string text = tidy;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] == 'Q')
            text[at] = 'q';
    return text;
}

// Where nothing else tells the rhythm.
string WithStrokes(const string& tidy, Dice&) {
    return EachLine(tidy, [](const Lines& lines, std::size_t at, Lines& changed) {
        if (IsFirstString(lines, at) && !HasRhythmAbove(lines, at)) {
            string strokes;
            for (std::size_t column = 3; column < lines[at].size(); column += 3)
                strokes.append(column - strokes.size(), ' ') += column % 2 == 0 ? 'u' : 'd';
            changed.push_back(strokes);
        }
        changed.push_back(lines[at]);
    });
}

string WithLyrics(const string& tidy, Dice& dice) {
    constexpr std::array<string_view, 4> kWords{
        "   Alas, my Love, you Do me wrong, to Cast me off", "   A Bonny lad Comes home At Even",
        "   Down by Every river, Father, Give me Bread", "   Be still, and Am I Far away"};
    return EachLine(tidy, [&](const Lines& lines, std::size_t at, Lines& changed) {
        changed.push_back(lines[at]);
        if (IsLastString(lines, at))
            changed.emplace_back(kWords[static_cast<std::size_t>(dice.Roll(4))]);
    });
}

string WithProse(const string& tidy, Dice&) {
    return EachLine("Written down in 2015/04 by somebody who plays it 1/2 step lower\n"
                    "and who thinks that the intro riff sounds best with a clean guitar\n\n" +
                        tidy,
                    [](const Lines& lines, std::size_t at, Lines& changed) {
                        changed.push_back(lines[at]);
                        if (IsLastString(lines, at))
                            changed.emplace_back("   Go on with the chorus as often as you like, "
                                                 "Dear reader, and Fade");
                    });
}

constexpr std::array kDamages = std::to_array<TabDamage>({
    {"utf-8", "dashes and strokes of UTF-8", "", true, nullptr, InUtf8},
    {"utf-16", "all of it in UTF-16", "", true, nullptr, InUtf16},
    {"code page", "dashes and strokes of Windows or DOS", "", true, nullptr, InAnOldCodePage},
    {"glued", "equal numbers on one string without a gap", "", false, WithRepeatedNotes, WithoutGaps},
    {"short", "strings without notes left out", "", true, OnThreeStrings, WithoutEmptyStrings},
    {"double", "a blank line after each string", "", true, nullptr, DoublySpaced},
    {"annotation", "an annotation (PM---) right above each stave", "", true, nullptr, WithAnnotations},
    {"signature", "rules and hyphens of an e-mail", "", true, nullptr, WithSignature},
    {"mail", "answered in a mail, once or twice", "", true, nullptr, InAMail},
    {"page", "a web page with tags and entities", "", true, nullptr, OnAPage},
    {"rules", "a rule right above and below each stave", "", true, nullptr, WithRules},
    {"rules between", "a rule in place of the blank line between staves", "", true, nullptr,
     WithRulesBetween},
    {"tuning", "the tuning stated in words", "", true, InDadgad, WithTuningInProse},
    {"bends", "targets of bends and releases", "", true, nullptr, WithBends},
    {"small letters", "note lengths in small letters", "rhythm", true, nullptr, InSmallLetters},
    {"strokes", "a line of strokes above each stave", "rhythm", true, nullptr, WithStrokes},
    {"lyrics", "lyrics below each stave", "text", true, nullptr, WithLyrics},
    {"prose", "dates and sentences with capitals and labels", "text", true, nullptr, WithProse},
});

} // namespace

std::span<const TabDamage> AllTabDamages() {
    return kDamages;
}

} // namespace TestSupport
