#include "Projects/Fretline/stave/TabChord.h"

#include <string_view>

namespace Fretline {

namespace {

std::string_view TextOfToken(const ChordToken& token) {
    switch (token.m_Kind) {
    case ChordTokenKind::Major:
        return "maj";
    case ChordTokenKind::Minor:
        return "m";
    case ChordTokenKind::Suspended:
        return "sus";
    case ChordTokenKind::Added:
        return "add";
    case ChordTokenKind::Literal:
        return token.m_Text;
    case ChordTokenKind::Diminished:
        return "dim";
    case ChordTokenKind::Augmented:
        return "aug";
    case ChordTokenKind::OpenBracket:
        return "(";
    case ChordTokenKind::CloseBracket:
        return ")";
    case ChordTokenKind::SixNine:
        return "6/9";
    }
    return {};
}

} // namespace

Nvr::String GetChordText(const TabChord& chord) {
    std::string text = chord.m_Root;
    for (const ChordToken& token : chord.m_Tokens)
        text += TextOfToken(token);
    if (!chord.m_Bass.empty())
        text += "/" + chord.m_Bass;
    return Nvr::String(std::string_view(text));
}

} // namespace Fretline
