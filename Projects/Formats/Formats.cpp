#include "Projects/Formats/Formats.h"

#include "Projects/Score/Midi.h"
#include "Projects/Score/MusicXml.h"
#include "Projects/Score/Svg.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>

namespace Formats {

namespace {

std::string WriteScore(const Conversion& conversion, std::string& /*why*/) {
    return conversion.ScoreBytes;
}

std::string WriteMusicXml(const Conversion& conversion, std::string& /*why*/) {
    return Score::MusicXmlText(conversion.Model);
}

std::string WriteCompressedMusicXml(const Conversion& conversion, std::string& why) {
    return Score::CompressedMusicXml(conversion.Model, why);
}

std::string WriteMidi(const Conversion& conversion, std::string& /*why*/) {
    return Score::MidiBytes(conversion.Model);
}

std::string WriteSvg(const Conversion& conversion, std::string& /*why*/) {
    return Score::SvgText(conversion.Model, conversion.Title);
}

std::string WriteTreeText(const Conversion& conversion, std::string& /*why*/) {
    return std::string(conversion.Tree->ToText().View());
}

constexpr std::array<Format, 6> kFormats{{
    {"nvf", ".nvf", "the finished score", WriteScore},
    {"musicxml", ".musicxml", "MusicXML 4.0", WriteMusicXml},
    {"mxl", ".mxl", "MusicXML 4.0, compressed", WriteCompressedMusicXml},
    {"mid", ".mid", "standard MIDI file", WriteMidi},
    {"svg", ".svg", "picture of the tab", WriteSvg},
    {"txt", ".txt", "the score's tree as text", WriteTreeText},
}};

bool IsSameWord(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Nvr::Ascii::ToLower(x) == Nvr::Ascii::ToLower(y); });
}

} // namespace

std::span<const Format> AllFormats() {
    return kFormats;
}

const Format* FindFormat(std::string_view name) {
    const auto* row = std::find_if(kFormats.begin(), kFormats.end(),
                                   [&](const Format& format) { return format.Name == name; });
    return row == kFormats.end() ? nullptr : row;
}

const Format* FindFormatByExtension(std::string_view extension) {
    const auto* row = std::find_if(kFormats.begin(), kFormats.end(), [&](const Format& format) {
        return IsSameWord(format.Extension, extension);
    });
    return row == kFormats.end() ? nullptr : row;
}

} // namespace Formats
