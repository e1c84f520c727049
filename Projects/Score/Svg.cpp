#include "Projects/Score/Svg.h"

#include "Projects/Score/Engraving.h"
#include "Projects/Score/Spelling.h"
#include "Projects/Score/Utf8.h"

#include <pugixml.hpp>

#include <algorithm>
#include <bit>
#include <cmath>
#include <sstream>

namespace Score {

namespace {

using pugi::xml_node;

constexpr double kHeadingRoom = 78;
constexpr double kTitleBaseline = 44;
constexpr double kSubtitleBaseline = 64;
constexpr double kStemGap = 9;
constexpr double kStemLength = 20;
constexpr double kFlagGap = 5;
constexpr double kFlagWidth = 7;
constexpr double kTextDrop = 4.5;
constexpr double kChordRise = 12;
constexpr double kLabelRise = 34;
// Exponents of a minim, a crotchet and a quaver in score units.
constexpr int kMinim = 9;
constexpr int kCrotchet = 8;

// Colours stand in the classes themselves: not every program that shows pictures knows variables.
constexpr const char* kStyle = R"(
    .paper { fill: #ffffff; }
    text { font-family: "DejaVu Sans", Verdana, Arial, sans-serif; fill: #1b1b1b; }
    .title { font-size: 24px; font-weight: bold; }
    .subtitle, .number { font-size: 11px; fill: #6b6b6b; }
    .lines, .barline { stroke: #8a8a8a; stroke-width: 1; fill: none; }
    .fret { font-size: 13px; font-weight: bold; text-anchor: middle; }
    .tied { font-weight: normal; fill: #6b6b6b; }
    .fret, .time, .rest { stroke: #ffffff; stroke-width: 5px; paint-order: stroke; }
    .stem { stroke: #1b1b1b; stroke-width: 1.3; fill: none; }
    .flag { stroke: #1b1b1b; stroke-width: 2.6; fill: none; }
    .chord { font-size: 14px; font-weight: bold; fill: #8a1c1c; }
    .label { font-size: 13px; font-weight: bold; fill: #1c4f8a; }
    .time { font-size: 19px; font-weight: bold; text-anchor: middle; }
    .clef { font-size: 13px; font-weight: bold; text-anchor: middle; fill: #6b6b6b; }
    .rest { font-size: 12px; text-anchor: middle; fill: #6b6b6b; }
    @media (prefers-color-scheme: dark) {
      .paper { fill: #16181c; }
      text { fill: #f0f0f0; }
      .subtitle, .number, .tied, .clef, .rest { fill: #a0a6b0; }
      .lines, .barline { stroke: #7c828c; }
      .fret, .time, .rest { stroke: #16181c; }
      .stem, .flag { stroke: #f0f0f0; }
      .chord { fill: #ff9c8f; }
      .label { fill: #8fc1ff; }
    }
)";

// One decimal is finer than any screen, and the same everywhere.
std::string Number(double value) {
    const long tenths = std::lround(value * 10);
    const std::string whole = std::to_string(tenths / 10);
    return tenths % 10 == 0 ? whole : Numbered(whole + ".", std::labs(tenths % 10));
}

void Set(xml_node node, const char* attribute, const std::string& value) {
    node.append_attribute(attribute).set_value(value.c_str());
}

xml_node AddText(xml_node parent, const char* style, double x, double y, const std::string& text) {
    xml_node node = parent.append_child("text");
    Set(node, "class", style);
    Set(node, "x", Number(x));
    Set(node, "y", Number(y));
    node.text().set(text.c_str());
    return node;
}

void AddPath(xml_node parent, const char* style, const std::string& path) {
    xml_node node = parent.append_child("path");
    Set(node, "class", style);
    Set(node, "d", path);
}

std::string Line(double x1, double y1, double x2, double y2) {
    return "M" + Number(x1) + " " + Number(y1) + "L" + Number(x2) + " " + Number(y2);
}

int ExponentOf(int duration) {
    return static_cast<int>(std::bit_width(static_cast<unsigned>(std::max(duration, 1)))) - 1;
}

std::string NameOf(int midi) {
    const SpelledPitch pitch = SpellMidi(midi);
    const char* sign = pitch.Alter > 0 ? "\u266F" : pitch.Alter < 0 ? "\u266D" : "";
    return std::string(1, pitch.Step) + sign;
}

// Draws one score; keeps the laid-out page and the picture.
class Painter {
public:
    Painter(const ScoreModel& score, const std::string& title)
        : m_Score(score), m_Title(title), m_Page(Engraving::LayOut(score, kHeadingRoom)) {}

    std::string Paint() {
        m_Svg = m_Document.append_child("svg");
        Set(m_Svg, "xmlns", "http://www.w3.org/2000/svg");
        Set(m_Svg, "viewBox", "0 0 " + Number(m_Page.Width) + " " + Number(m_Page.Height));
        Set(m_Svg, "width", Number(m_Page.Width));
        Set(m_Svg, "height", Number(m_Page.Height));
        Set(m_Svg, "role", "document");
        Set(m_Svg, "aria-labelledby", "title description");
        PaintHeading();
        for (const PlacedSystem& system : m_Page.Systems)
            PaintSystem(system);
        std::ostringstream text;
        m_Document.save(text, "  ");
        return text.str();
    }

private:
    void PaintHeading() {
        xml_node title = m_Svg.append_child("title");
        Set(title, "id", "title");
        title.text().set(m_Title.c_str());
        const std::string subtitle = ToUtf8(m_Score.InstrumentName) + ", " + TuningText() + ", " +
                                     std::to_string(m_Score.Bars.size()) +
                                     (m_Score.Bars.size() == 1 ? " bar" : " bars") +
                                     (m_Score.HasRhythms ? "" : ", no rhythms read");
        xml_node description = m_Svg.append_child("desc");
        Set(description, "id", "description");
        description.text().set(subtitle.c_str());
        m_Svg.append_child("style").text().set(kStyle);
        xml_node paper = m_Svg.append_child("rect");
        Set(paper, "class", "paper");
        Set(paper, "width", "100%");
        Set(paper, "height", "100%");
        AddText(m_Svg, "title", Engraving::kMargin, kTitleBaseline, m_Title);
        AddText(m_Svg, "subtitle", Engraving::kMargin, kSubtitleBaseline, subtitle);
    }

    std::string TuningText() const {
        std::string text;
        for (const int midi : m_Score.Tuning) {
            if (!text.empty())
                text += ' ';
            text += NameOf(midi);
        }
        return text;
    }

    double LineOf(const PlacedSystem& system, int string) const {
        const int fromTop = static_cast<int>(m_Score.Tuning.size()) - 1 - string;
        return system.Top + Engraving::kRoomAboveStave + Engraving::kLineGap * fromTop;
    }

    void PaintSystem(const PlacedSystem& system) {
        xml_node group = m_Svg.append_child("g");
        const double right = system.Bars.back().Left + system.Bars.back().Width;
        std::string lines;
        for (int string = 0; string < static_cast<int>(m_Score.Tuning.size()); ++string)
            lines += Line(Engraving::kMargin, LineOf(system, string), right, LineOf(system, string));
        const double top = LineOf(system, static_cast<int>(m_Score.Tuning.size()) - 1);
        const double bottom = LineOf(system, 0);
        AddPath(group, "lines", lines + Line(Engraving::kMargin, top, Engraving::kMargin, bottom));
        PaintClef(group, top, bottom);
        AddText(group, "number", Engraving::kMargin, top - kTextDrop,
                std::to_string(system.Bars.front().Bar + 1));
        for (const PlacedBar& bar : system.Bars)
            PaintBar(group, system, bar, top, bottom);
    }

    void PaintClef(xml_node group, double top, double bottom) const {
        const double x = Engraving::kMargin + Engraving::kClefRoom / 2;
        const double middle = (top + bottom) / 2 + kTextDrop;
        const double step = 13;
        double y = middle - step;
        for (const char* letter : {"T", "A", "B"}) {
            AddText(group, "clef", x, y, letter);
            y += step;
        }
    }

    void PaintBar(xml_node parent, const PlacedSystem& system, const PlacedBar& placed, double top,
                  double bottom) {
        const ModelBar& bar = m_Score.Bars[placed.Bar];
        xml_node group = parent.append_child("g");
        Set(group, "role", "group");
        Set(group, "aria-label", Spoken(bar, placed.Bar));
        AddPath(group, "barline", Line(placed.Left + placed.Width, top, placed.Left + placed.Width, bottom));
        double labelLeft = placed.Left;
        for (const std::string& label : bar.Labels) {
            AddText(group, "label", labelLeft, top - kLabelRise, ToUtf8(label));
            labelLeft += 10.0 * static_cast<double>(label.size() + 1);
        }
        if (bar.TimeSignature && m_Score.HasRhythms) {
            const double middle = (top + bottom) / 2;
            AddText(group, "time", placed.Left + 16, middle - 2,
                    std::to_string(bar.TimeSignature->Numerator));
            AddText(group, "time", placed.Left + 16, middle + 17,
                    std::to_string(bar.TimeSignature->Denominator));
        }
        for (const ModelText& symbol : bar.ChordSymbols)
            AddText(group, "chord",
                    placed.Left + Engraving::OffsetOf(bar, symbol.Position, placed.Width) - kTextDrop,
                    top - kChordRise, ToUtf8(symbol.Text));
        for (const ModelEvent& event : bar.Events)
            PaintEvent(group, system, placed.Left + Engraving::OffsetOf(bar, event.Position, placed.Width),
                       event, bottom);
    }

    void PaintEvent(xml_node group, const PlacedSystem& system, double x, const ModelEvent& event,
                    double bottom) {
        if (event.Notes.empty()) {
            if (m_Score.HasRhythms)
                AddText(group, "rest", x, bottom + kStemGap + kStemLength, RestSign(event.Duration));
            m_Tied.clear();
            return;
        }
        std::vector<std::pair<int, int>> tied;
        for (const ModelNote& note : event.Notes) {
            const std::pair<int, int> key{note.String, note.Midi};
            const bool isTied = std::find(m_Tied.begin(), m_Tied.end(), key) != m_Tied.end();
            const bool isDead = FindTechnique(note.Techniques, Technique::Dead) != nullptr;
            const std::string fret = isDead          ? std::string(1, 'x')
                                     : note.Fret < 0 ? std::string(1, '?')
                                                     : std::to_string(note.Fret);
            AddText(group, isTied ? "fret tied" : "fret", x, LineOf(system, note.String) + kTextDrop,
                    isTied ? "(" + fret + ")" : fret);
            if (note.TiedToNext)
                tied.push_back(key);
        }
        m_Tied = std::move(tied);
        if (m_Score.HasRhythms)
            PaintStem(group, x, event.Duration, bottom);
    }

    // Tab writes a minim with a short stem, a semibreve with none, and a flag for each halving of the
    // crotchet.
    static void PaintStem(xml_node group, double x, int duration, double bottom) {
        const int exponent = ExponentOf(duration);
        if (exponent > kMinim)
            return;
        const double end = bottom + kStemGap + kStemLength;
        const double start = exponent == kMinim ? end - kStemLength / 2 : bottom + kStemGap;
        AddPath(group, "stem", Line(x, start, x, end));
        for (int flag = 0; flag < kCrotchet - exponent; ++flag) {
            const double y = end - 1 - kFlagGap * flag;
            AddPath(group, "flag", Line(x, y, x + kFlagWidth, y - 2));
        }
    }

    // A rest by its length as a fraction of the semibreve.
    static std::string RestSign(int duration) {
        const int exponent = ExponentOf(duration);
        constexpr int kSemibreve = 10;
        if (exponent >= kSemibreve)
            return Numbered("r", 1 << (exponent - kSemibreve));
        return Numbered("r/", 1 << (kSemibreve - exponent));
    }

    static std::string Spoken(const ModelBar& bar, std::size_t index) {
        std::string text = Numbered("Bar ", static_cast<long long>(index) + 1);
        for (const std::string& label : bar.Labels)
            text.append(", ").append(ToUtf8(label));
        if (bar.TimeSignature)
            text +=
                Numbered(Numbered(", ", bar.TimeSignature->Numerator) + " ", bar.TimeSignature->Denominator);
        text += ":";
        for (const ModelEvent& event : bar.Events) {
            for (const ModelText& symbol : bar.ChordSymbols)
                if (symbol.Position == event.Position)
                    text.append(" ").append(ToUtf8(symbol.Text)).append(",");
            if (event.Notes.empty())
                text += " rest";
            for (const ModelNote& note : event.Notes)
                text.append(" ").append(NameOf(note.Midi));
            text += ",";
        }
        text.pop_back();
        return text;
    }

    const ScoreModel& m_Score;
    const std::string& m_Title;
    Engraving m_Page;
    pugi::xml_document m_Document;
    xml_node m_Svg;
    // String and pitch of the notes that are tied into the next event.
    std::vector<std::pair<int, int>> m_Tied;
};

} // namespace

std::string SvgText(const ScoreModel& score, const std::string& title) {
    return Painter(score, title).Paint();
}

} // namespace Score
