#include "Projects/Score/ModelMarks.h"

#include <algorithm>

namespace Score {

const TechniqueName& NameOf(Technique kind) {
    // In the order of the enumeration.
    static constexpr TechniqueName kNames[] = {
        {Technique::HammerOn, "hammer-on", "hammer-on"},
        {Technique::PullOff, "pull-off", "pull-off"},
        {Technique::Slide, "slide", "slide to the next note"},
        {Technique::SlideIn, "slide-in", "slide into the note"},
        {Technique::SlideOut, "slide-out", "slide out of the note"},
        {Technique::Bend, "bend", "bend"},
        {Technique::Release, "release", "release of a bend"},
        {Technique::Vibrato, "vibrato", "vibrato"},
        {Technique::Dead, "dead", "dead note"},
        {Technique::NaturalHarmonic, "natural-harmonic", "natural harmonic"},
        {Technique::ArtificialHarmonic, "artificial-harmonic", "artificial harmonic"},
        {Technique::Trill, "trill", "trill"},
        {Technique::Tap, "tap", "tapped"},
        {Technique::Ghost, "ghost", "ghost note"},
        {Technique::PalmMute, "palm-mute", "palm mute"},
        {Technique::LetRing, "let-ring", "let ring"},
        {Technique::Accent, "accent", "accent"},
        {Technique::DownStroke, "down-stroke", "stroke downward"},
        {Technique::UpStroke, "up-stroke", "stroke upward"},
    };
    return kNames[static_cast<std::size_t>(kind)];
}

std::string JumpText(const ModelWay& way) {
    std::string text = way.To == Jump::DaCapo ? "D.C." : "D.S.";
    switch (way.Until) {
    case JumpEnd::Fine:
        return text + " al Fine";
    case JumpEnd::Coda:
        return text + " al Coda";
    default:
        return text;
    }
}

int WholeBend(const std::vector<ModelTechnique>& techniques) {
    int quarterTones = 0;
    for (const ModelTechnique& technique : techniques)
        quarterTones += technique.Kind == Technique::Bend ? technique.Amount : 0;
    return quarterTones;
}

const ModelTechnique* FindTechnique(const std::vector<ModelTechnique>& techniques, Technique kind) {
    const auto found = std::find_if(techniques.begin(), techniques.end(),
                                    [&](const ModelTechnique& technique) { return technique.Kind == kind; });
    return found == techniques.end() ? nullptr : &*found;
}

} // namespace Score
