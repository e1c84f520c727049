#include "Projects/Score/MusicXmlMarks.h"

#include "Projects/Score/Utf8.h"
#include "Projects/Score/XmlNodes.h"

#include <algorithm>

namespace Score {

namespace {

using pugi::xml_node;
using XmlNodes::Add;
using XmlNodes::Set;

bool LeadsToTheNext(Technique kind) {
    return kind == Technique::HammerOn || kind == Technique::PullOff || kind == Technique::Slide;
}

// One end of what leads from a note to the next on its string, whose number tells it from those beside it.
void WriteConnection(xml_node notations, xml_node technical, Technique kind, int string, const char* type) {
    constexpr int kMostNumbers = 16;
    const bool isHammer = kind == Technique::HammerOn;
    xml_node end = kind == Technique::Slide
                       ? Add(notations, "slide")
                       : Add(technical, isHammer ? "hammer-on" : "pull-off", isHammer ? "H" : "P");
    Set(end, "number", std::to_string(std::min(string + 1, kMostNumbers)).c_str());
    Set(end, "type", type);
}

// In semitones, which may be halves: "0.5".
std::string SemitonesText(int quarterTones) {
    return std::to_string(quarterTones / 2) + (quarterTones % 2 == 0 ? "" : ".5");
}

void WriteRelease(xml_node technical, int quarterTones) {
    xml_node release = Add(technical, "bend");
    Add(release, "bend-alter", "-" + SemitonesText(quarterTones));
    Add(release, "release");
}

// Out of or into nowhere in particular.
void WriteSlide(xml_node notations, const ModelTechnique& technique) {
    const bool isUpward = technique.Amount > 0;
    const bool isInto = technique.Kind == Technique::SlideIn;
    Add(Add(notations, "articulations"),
        isInto ? (isUpward ? "scoop" : "plop") : (isUpward ? "doit" : "falloff"));
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
    {Technique::Release, "release"},
    {Technique::PalmMute, "palm mute"},
};

void WriteVibrato(xml_node notations) {
    xml_node ornaments = Add(notations, "ornaments");
    for (const char* type : {"start", "stop"})
        Set(Add(ornaments, "wavy-line"), "type", type);
}

void WriteTechnique(xml_node notations, xml_node technical, const ModelTechnique& technique) {
    switch (technique.Kind) {
    case Technique::SlideIn:
    case Technique::SlideOut:
        return WriteSlide(notations, technique);
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
        WriteConnection(notations, technical, kind, model.String, "stop");
    m_Open.erase(open);
}

void MusicXmlMarks::WriteNotations(xml_node notations, xml_node technical, const ModelNote& model) {
    StopAt(notations, technical, model);
    const bool isBent = Has(model, Technique::Bend);
    for (const ModelTechnique& technique : model.Techniques) {
        if (technique.Kind == Technique::Bend) {
            Add(Add(technical, "bend"), "bend-alter", SemitonesText(technique.Amount));
            continue;
        }
        if (technique.Kind == Technique::Release && isBent) {
            WriteRelease(technical, WholeBend(model.Techniques));
            continue;
        }
        if (!LeadsToTheNext(technique.Kind)) {
            WriteTechnique(notations, technical, technique);
            continue;
        }
        WriteConnection(notations, technical, technique.Kind, model.String, "start");
        m_Open[model.String].push_back(technique.Kind);
    }
}

} // namespace Score
