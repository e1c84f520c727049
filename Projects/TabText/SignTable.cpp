#include "Projects/TabText/MarkingSigns.h"
#include "Projects/TabText/Markings.h"
#include "Projects/TabText/TabReading.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>

namespace TabText {

namespace {

using Score::ModelHeading;
using std::string_view;

// A sign that is no note's.
struct PieceSign {
    string_view Shown;
    string_view Meaning;
    bool (*IsIn)(const BarMark& mark);
    bool (*IsInHeading)(const ModelHeading& heading);
};

bool Never(const BarMark& /*mark*/) {
    return false;
}

bool NotThere(const ModelHeading& /*heading*/) {
    return false;
}

constexpr std::array kPieceSigns{
    PieceSign{"|:  :|, ||*  *||", "repeat",
              [](const BarMark& mark) { return mark.Repeats.IsStart || mark.Repeats.IsEnd; }, NotThere},
    PieceSign{"x4, (2x), play 3 times", "after, above or below a stave: played so many times",
              [](const BarMark& mark) { return mark.Repeats.IsEnd && mark.Repeats.Times > 2; }, NotThere},
    PieceSign{"1.  2., |1.---|2.---, 1st time", "above a stave: endings of a repeat",
              [](const BarMark& mark) { return !mark.Repeats.Endings.empty(); }, NotThere},
    PieceSign{"D.C., D.S., al Fine, al Coda", "jump, with Segno (%), Fine, To Coda and Coda as it needs them",
              [](const BarMark& mark) { return mark.Way.To != Score::Jump::None; }, NotThere},
    PieceSign{"Tempo: 120, q=120, 120 bpm", "tempo, also where it changes",
              [](const BarMark& mark) { return mark.Tempo > 0; },
              [](const ModelHeading& heading) { return heading.Tempo > 0; }},
    PieceSign{"Capo 2", "capo", Never, [](const ModelHeading& heading) { return heading.Capo > 0; }},
    PieceSign{"swing, shuffle", "quavers long and short", Never,
              [](const ModelHeading& heading) { return heading.IsSwung; }},
    PieceSign{"Title: ..., Artist: ..., A by B", "above the first stave: title and artist", Never,
              [](const ModelHeading& heading) { return !heading.Title.empty() || !heading.Artist.empty(); }},
};

std::string InCapitals(string_view text) {
    std::string capitals;
    for (const char c : text)
        capitals += Nvr::Ascii::ToUpper(c);
    return capitals;
}

// As it stands beside a fret.
std::string Shown(const Sign& sign) {
    std::string text(sign.Text);
    switch (sign.Place) {
    case SignPlace::Between:
    case SignPlace::Slide:
        return "5" + text + "7";
    case SignPlace::Before:
        return text + "7";
    case SignPlace::After:
        return "7" + text;
    case SignPlace::Around:
        return text.substr(0, 1) + "7" + text.substr(1);
    case SignPlace::Above:
        return (text.find(' ') == std::string::npos ? InCapitals(text) : text) + "---";
    case SignPlace::Alone:
        return InCapitals(text);
    default:
        return text;
    }
}

void Append(std::vector<SignRow>& rows, std::string shown, string_view meaning) {
    const auto same =
        std::find_if(rows.begin(), rows.end(), [&](const SignRow& row) { return row.Meaning == meaning; });
    if (same == rows.end())
        rows.push_back({std::move(shown), meaning});
    else
        same->Shown += ", " + shown;
}

bool IsSignOf(const TabReading& reading, const NoteMark& mark, const Sign& sign) {
    // Of a pair, the first stands at the beginning.
    const string_view start = sign.Place == SignPlace::Around ? sign.Text.substr(0, 1) : sign.Text;
    const string_view text =
        reading.GetFile().GetLine(mark.Line).substr(static_cast<std::size_t>(mark.Column));
    // "^" pulls off too.
    const bool isKind = sign.Kind == mark.What.Kind || sign.Text == "^" || sign.Place == SignPlace::Slide;
    return isKind && Nvr::Ascii::StartsWithIgnoreCase(text, start);
}

} // namespace

std::vector<SignRow> SignTable() {
    std::vector<SignRow> rows;
    for (const Sign& sign : AllSigns())
        Append(rows, Shown(sign), sign.Meaning);
    for (const PieceSign& sign : kPieceSigns)
        Append(rows, std::string(sign.Shown), sign.Meaning);
    return rows;
}

std::vector<SignRow> SignsOf(const TabReading& reading, const Markings& markings) {
    std::vector<bool> isUsed(AllSigns().size());
    for (const NoteMark& mark : markings.Notes) {
        const auto sign = std::find_if(AllSigns().begin(), AllSigns().end(),
                                       [&](const Sign& row) { return IsSignOf(reading, mark, row); });
        if (sign != AllSigns().end())
            isUsed[static_cast<std::size_t>(sign - AllSigns().begin())] = true;
    }
    std::vector<SignRow> rows;
    for (std::size_t index = 0; index < isUsed.size(); ++index)
        if (isUsed[index])
            Append(rows, Shown(AllSigns()[index]), AllSigns()[index].Meaning);
    for (const PieceSign& sign : kPieceSigns)
        if (sign.IsInHeading(markings.Heading) ||
            std::any_of(markings.Bars.begin(), markings.Bars.end(), sign.IsIn))
            Append(rows, std::string(sign.Shown), sign.Meaning);
    return rows;
}

} // namespace TabText
