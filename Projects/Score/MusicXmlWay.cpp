#include "Projects/Score/MusicXmlWay.h"
#include "Projects/Score/XmlNodes.h"

namespace Score {

namespace {

using pugi::xml_node;
using XmlNodes::Add;
using XmlNodes::Set;

// There is at most one of each in a score.
constexpr const char* kSegno = "segno";
constexpr const char* kCoda = "coda";

xml_node AddDirection(xml_node measure) {
    xml_node direction = Add(measure, "direction");
    Set(direction, "placement", "above");
    return direction;
}

void AddMetronome(xml_node direction, int tempo) {
    xml_node metronome = Add(Add(direction, "direction-type"), "metronome");
    Add(metronome, "beat-unit", "quarter");
    Add(metronome, "per-minute", std::to_string(tempo));
}

// The tempo, and how quavers are played, from the first bar on.
void WriteHeading(xml_node measure, const ModelHeading& heading) {
    if (heading.Tempo == 0 && !heading.IsSwung)
        return;
    xml_node direction = AddDirection(measure);
    if (heading.IsSwung)
        Add(Add(direction, "direction-type"), "words", "Swing");
    if (heading.Tempo > 0)
        AddMetronome(direction, heading.Tempo);
    xml_node sound = Add(direction, "sound");
    if (heading.Tempo > 0)
        Set(sound, "tempo", std::to_string(heading.Tempo));
    if (heading.IsSwung) {
        xml_node swing = Add(sound, "swing");
        Add(swing, "first", "2");
        Add(swing, "second", "1");
        Add(swing, "swing-type", "eighth");
    }
}

void WriteTempo(xml_node measure, int tempo) {
    if (tempo == 0)
        return;
    xml_node direction = AddDirection(measure);
    AddMetronome(direction, tempo);
    Set(Add(direction, "sound"), "tempo", std::to_string(tempo));
}

// A sign that a jump leads to: its name is the element's, and that of the attribute.
void WriteTarget(xml_node measure, const char* name) {
    xml_node direction = AddDirection(measure);
    Add(Add(direction, "direction-type"), name);
    Set(Add(direction, "sound"), name, name);
}

void WriteWords(xml_node measure, const std::string& words, const char* sound, const char* value) {
    xml_node direction = AddDirection(measure);
    Add(Add(direction, "direction-type"), "words", words);
    Set(Add(direction, "sound"), sound, value);
}

void WriteJumps(xml_node measure, const ModelWay& way) {
    if (way.HasToCoda)
        WriteWords(measure, "To Coda", "tocoda", kCoda);
    if (way.HasFine)
        WriteWords(measure, "Fine", "fine", "yes");
    if (way.To == Jump::DaCapo)
        WriteWords(measure, JumpText(way), "dacapo", "yes");
    if (way.To == Jump::DalSegno)
        WriteWords(measure, JumpText(way), "dalsegno", kSegno);
}

std::string NumbersOf(const std::vector<int>& endings) {
    std::string text;
    for (const int number : endings)
        text += (text.empty() ? "" : ", ") + std::to_string(number);
    return text;
}

void AddEnding(xml_node barline, const std::vector<int>& endings, const char* type) {
    xml_node ending = Add(barline, "ending");
    Set(ending, "number", NumbersOf(endings));
    Set(ending, "type", type);
}

} // namespace

void MusicXmlWay::WriteBarStart(xml_node measure, std::size_t bar) const {
    WriteLeftBarline(measure, bar);
    if (!m_IsTop)
        return;
    if (bar == 0)
        WriteHeading(measure, m_Score.Heading);
    WriteTempo(measure, m_Score.Bars[bar].Tempo);
    const ModelWay& way = m_Score.Bars[bar].Way;
    if (way.HasSegno)
        WriteTarget(measure, kSegno);
    if (way.HasCoda)
        WriteTarget(measure, kCoda);
}

void MusicXmlWay::WriteBarEnd(xml_node measure, std::size_t bar) const {
    if (m_IsTop)
        WriteJumps(measure, m_Score.Bars[bar].Way);
    WriteRightBarline(measure, bar);
}

void MusicXmlWay::WriteLeftBarline(xml_node measure, std::size_t bar) const {
    const ModelRepeats& repeats = m_Score.Bars[bar].Repeats;
    const bool beginsEnding = m_Score.BeginsEnding(bar);
    if (!repeats.IsStart && !beginsEnding)
        return;
    xml_node barline = Add(measure, "barline");
    Set(barline, "location", "left");
    if (repeats.IsStart)
        Add(barline, "bar-style", "heavy-light");
    if (beginsEnding)
        AddEnding(barline, repeats.Endings, "start");
    if (repeats.IsStart)
        Set(Add(barline, "repeat"), "direction", "forward");
}

void MusicXmlWay::WriteRightBarline(xml_node measure, std::size_t bar) const {
    const ModelRepeats& repeats = m_Score.Bars[bar].Repeats;
    const bool isLast = bar + 1 == m_Score.Bars.size();
    const bool endsEnding = m_Score.EndsEnding(bar);
    if (!repeats.IsEnd && !isLast && !endsEnding)
        return;
    xml_node barline = Add(measure, "barline");
    Set(barline, "location", "right");
    if (repeats.IsEnd || isLast)
        Add(barline, "bar-style", "light-heavy");
    // A last ending has no line down at its end.
    if (endsEnding)
        AddEnding(barline, repeats.Endings, repeats.IsEnd ? "stop" : "discontinue");
    if (!repeats.IsEnd)
        return;
    xml_node repeat = Add(barline, "repeat");
    Set(repeat, "direction", "backward");
    Set(repeat, "times", std::to_string(repeats.Times));
}

} // namespace Score
