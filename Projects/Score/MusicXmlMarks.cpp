#include "Projects/Score/MusicXmlMarks.h"

#include "Projects/Score/Utf8.h"

namespace Score {

namespace {

using pugi::xml_node;

xml_node Add(xml_node parent, const char* name, const std::string& text = {}) {
    xml_node node = parent.append_child(name);
    if (!text.empty())
        node.text().set(text.c_str());
    return node;
}

void Set(xml_node node, const char* attribute, const char* value) {
    node.append_attribute(attribute).set_value(value);
}

bool LeadsToTheNext(Technique kind) {
    return kind == Technique::HammerOn || kind == Technique::PullOff || kind == Technique::Slide;
}

// One end of what leads from a note to the next on its string.
void WriteConnection(xml_node notations, xml_node technical, Technique kind, const char* type) {
    switch (kind) {
    case Technique::HammerOn:
    case Technique::PullOff: {
        const bool isHammer = kind == Technique::HammerOn;
        Set(Add(technical, isHammer ? "hammer-on" : "pull-off", isHammer ? "H" : "P"), "type", type);
        break;
    }
    default:
        Set(Add(notations, "slide"), "type", type);
        break;
    }
}

// In semitones, which may be halves: "0.5".
std::string SemitonesText(int quarterTones) {
    return std::to_string(quarterTones / 2) + (quarterTones % 2 == 0 ? "" : ".5");
}

void WriteBend(xml_node technical, const ModelTechnique& technique) {
    xml_node bend = Add(technical, "bend");
    Add(bend, "bend-alter", SemitonesText(technique.Amount));
}

void WriteHarmonic(xml_node technical, const char* kind) {
    Add(Add(technical, "harmonic"), kind);
}

struct NamedTechnique {
    Technique Kind;
    const char* Text;
};

// Those that MusicXML has no element for.
constexpr NamedTechnique kOthers[] = {
    {Technique::Release, "release"},  {Technique::PalmMute, "palm mute"}, {Technique::LetRing, "let ring"},
    {Technique::SlideIn, "slide in"}, {Technique::SlideOut, "slide out"},
};

void WriteVibrato(xml_node notations) {
    xml_node ornaments = Add(notations, "ornaments");
    for (const char* type : {"start", "stop"})
        Set(Add(ornaments, "wavy-line"), "type", type);
}

void WriteTechnique(xml_node notations, xml_node technical, const ModelTechnique& technique) {
    switch (technique.Kind) {
    case Technique::Bend:
        return WriteBend(technical, technique);
    case Technique::Vibrato:
        return WriteVibrato(notations);
    case Technique::NaturalHarmonic:
        return WriteHarmonic(technical, "natural");
    case Technique::ArtificialHarmonic:
        return WriteHarmonic(technical, "artificial");
    case Technique::Trill:
        Add(Add(notations, "ornaments"), "trill-mark");
        return;
    case Technique::Tap:
        Add(technical, "tap", "T");
        return;
    case Technique::Accent:
        Add(Add(notations, "articulations"), "accent");
        return;
    case Technique::DownStroke:
        Add(technical, "down-bow");
        return;
    case Technique::UpStroke:
        Add(technical, "up-bow");
        return;
    case Technique::LetRing:
        Set(Add(notations, "tied"), "type", "let-ring");
        return;
    default:
        break;
    }
    for (const NamedTechnique& other : kOthers)
        if (other.Kind == technique.Kind)
            Add(technical, "other-technical", other.Text);
}

bool Has(const ModelNote& note, Technique kind) {
    return FindTechnique(note.Techniques, kind) != nullptr;
}

} // namespace

void MusicXmlMarks::WriteWork(xml_node root, const ModelHeading& heading) {
    if (!heading.Title.empty())
        Add(Add(root, "work"), "work-title", ToUtf8(heading.Title));
}

void MusicXmlMarks::WriteCreator(xml_node identification, const ModelHeading& heading) {
    if (!heading.Artist.empty())
        Set(Add(identification, "creator", ToUtf8(heading.Artist)), "type", "composer");
}

void MusicXmlMarks::WriteCapo(xml_node staffDetails, const ModelHeading& heading) {
    if (heading.Capo > 0)
        Add(staffDetails, "capo", std::to_string(heading.Capo));
}

void MusicXmlMarks::WriteNotehead(xml_node note, const ModelNote& model) {
    if (Has(model, Technique::Dead))
        Add(note, "notehead", "x");
    else if (Has(model, Technique::Ghost))
        Set(Add(note, "notehead", "normal"), "parentheses", "yes");
}

void MusicXmlMarks::WritePlay(xml_node note, const ModelNote& model) {
    if (Has(model, Technique::PalmMute))
        Add(Add(note, "play"), "mute", "palm");
}

bool MusicXmlMarks::HasNotations(const ModelNote& model) const {
    return !model.Techniques.empty() || m_Open.count(model.String) != 0;
}

void MusicXmlMarks::StopAt(xml_node notations, xml_node technical, const ModelNote& model) {
    const auto open = m_Open.find(model.String);
    if (open == m_Open.end())
        return;
    for (const Technique kind : open->second)
        WriteConnection(notations, technical, kind, "stop");
    m_Open.erase(open);
}

void MusicXmlMarks::WriteNotations(xml_node notations, xml_node technical, const ModelNote& model) {
    StopAt(notations, technical, model);
    for (const ModelTechnique& technique : model.Techniques) {
        if (!LeadsToTheNext(technique.Kind)) {
            WriteTechnique(notations, technical, technique);
            continue;
        }
        WriteConnection(notations, technical, technique.Kind, "start");
        m_Open[model.String].push_back(technique.Kind);
    }
}

} // namespace Score
